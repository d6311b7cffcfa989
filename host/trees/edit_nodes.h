// Nodes of an edit as libyang's.
#pragma once

#include <string>

#include "host/base/error.h"
#include "host/trees/edit_tree.h"
#include "host/yang/libyang_ptr.h"

namespace oclacp::host {

// Makes a node of an edit, with its keys or with `value` but with nothing below it, as the last child of `parent`;
// without a parent it stands alone. What libyang does not take is reported by refuse_native().
LY_ERR make_native_node(const EditNode& node, const char* value, lyd_node* parent, lyd_node*& made);

// Throws Error: the node of the request that `node` originates from, the native node's path and `reason`.
[[noreturn]] void refuse_native(ErrorKind kind, const EditNode& node, const std::string& reason);

// The same with what libyang last reported.
[[noreturn]] void refuse_native(const ly_ctx* context, const EditNode& node);

}  // namespace oclacp::host
