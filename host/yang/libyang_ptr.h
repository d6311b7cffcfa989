// libyang's objects with owners.
#pragma once

#include <libyang/libyang.h>

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

#include "host/base/export.h"

namespace oclacp::host {

struct FreeContext {
  void operator()(ly_ctx* context) const { ly_ctx_destroy(context); }
};
struct FreeTree {
  void operator()(lyd_node* tree) const { lyd_free_all(tree); }
};

using ContextPtr = std::unique_ptr<ly_ctx, FreeContext>;
// Owns a tree with all its siblings.
using TreePtr = std::unique_ptr<lyd_node, FreeTree>;

// The first child with a name, also of null, which has none; null when there is none. Nodes without schema are passed
// over.
const lyd_node* child_named(const lyd_node* above, std::string_view name);

// What libyang last complained about, without the node. Never empty.
std::string last_reason(const ly_ctx* context);

// What libyang last complained about: "line 3: Invalid ...", or "/module:a/b: Invalid ..." when it names a node. `what`
// stands in front when no node is named. Never empty.
std::string last_complaint(const ly_ctx* context, const std::string& what);

// Writes a tree with all its siblings; null is an empty document. Throws Error.
OCLACP_HOST_API void write_tree(std::FILE* stream, const ly_ctx* context, const lyd_node* tree, LYD_FORMAT format);

// The same as a text.
std::string print_tree(const ly_ctx* context, const lyd_node* tree, LYD_FORMAT format);

}  // namespace oclacp::host
