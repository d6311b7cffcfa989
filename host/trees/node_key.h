// What nodes are found by.
#pragma once

#include <libyang/libyang.h>

#include <span>
#include <string>
#include <string_view>

namespace oclacp::host {

// A text that tells a node from all others: by the node above it, its schema, and as a list entry its keys. A key that
// is not known (without data) differs from every value.
std::string node_key(const void* above, const lysc_node* schema, std::span<const std::string_view> keys);

}  // namespace oclacp::host
