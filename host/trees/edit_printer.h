// A native edit as text.
#pragma once

#include <string>

#include "host/trees/edit_tree.h"
#include "host/yang/libyang_ptr.h"

namespace oclacp::host {

// Prints an edit as instance data of the native models in JSON (RFC 7951) or XML. Nodes that do more than merge carry
// the NETCONF `operation` attribute; a deleted leaf has no value. Empty edits print as an empty document. Throws
// Error when libyang does not take a node.
std::string print_edit(const ly_ctx* context, const EditTree& edit, LYD_FORMAT format);

}  // namespace oclacp::host
