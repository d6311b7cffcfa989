// libyang's trees as text.
#pragma once

#include <libyang/libyang.h>

#include <cstdio>
#include <string>

#include "host/base/export.h"

namespace oclacp::host {

// Writes a tree with all its siblings; null is an empty document. Throws Error.
OCLACP_HOST_API void write_tree(std::FILE* stream, const ly_ctx* context, const lyd_node* tree, LYD_FORMAT format);

// The same as a text.
std::string print_tree(const ly_ctx* context, const lyd_node* tree, LYD_FORMAT format);

}  // namespace oclacp::host
