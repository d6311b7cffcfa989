// What differs between two configurations.
#pragma once

#include <string>

#include "host/yang/libyang_ptr.h"

namespace oclacp::host {

// Both compare two configurations, each with its first top node or null, in a time linear in their nodes. They throw
// Error.

// The path of the first node that differs; empty when none does.
std::string find_first_change(const ly_ctx* native, const lyd_node* before, const lyd_node* after);

// All that differs, as libyang writes it: each node with a yang:operation; null for nothing.
TreePtr find_difference(const ly_ctx* native, const lyd_node* before, const lyd_node* after);

}  // namespace oclacp::host
