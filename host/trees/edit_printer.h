// A native edit as text.
#pragma once

#include <string>

#include "host/trees/edit_tree.h"
#include "host/trees/tree_context.h"

namespace oclacp::host {

// Writes an edit as instance data of the native models in JSON (RFC 7951) or XML, laid out as libyang does it. Nodes
// that do more than merge carry the NETCONF `operation` attribute; a deleted leaf has no value. A node's children stand
// in the order of its schema, and after them the leaves that are deleted. Empty edits are an empty document. Throws
// Error when a type does not take a value.
std::string print_edit(TreeContext& context, const EditTree& edit, LYD_FORMAT format);

}  // namespace oclacp::host
