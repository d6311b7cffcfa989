// Nodes of libyang's data trees.
#pragma once

#include <libyang/libyang.h>

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace oclacp::host {

// The first child with a name, also of null, which has none; null when there is none. Nodes without schema are skipped.
const lyd_node* child_named(const lyd_node* above, std::string_view name);

// Whether the data has a node, and libyang did not add it: defaults, and containers that the schema has in any case.
inline bool is_explicit(const lyd_node* node) {
  return (node->flags & LYD_DEFAULT) == 0;
}

// The path of a node with module prefixes where they change, and with the keys of list entries.
std::string data_path(const lyd_node* node);

// The most keys that a list may have here.
inline constexpr std::size_t kMaxKeys = 8;

// Makes a list entry with its keys, in the schema's order and each with a terminator, below `above`; without it the
// entry stands alone. LY_EINVAL for more than kMaxKeys.
LY_ERR make_list_entry(lyd_node* above, const lysc_node* list, std::span<const std::string_view> keys, lyd_node*& made);

}  // namespace oclacp::host
