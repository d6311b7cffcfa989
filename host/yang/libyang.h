// libyang's objects with owners.
#pragma once

#include <libyang/libyang.h>

#include <memory>
#include <string>

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

// What libyang last complained about: "line 3: Invalid ...", or "/module:a/b: Invalid ..." when it names a node. `what`
// stands in front when no node is named. Never empty.
std::string last_complaint(const ly_ctx* context, const std::string& what);

// A tree with all its siblings as text; null is an empty document. Throws Refusal.
std::string print_tree(const ly_ctx* context, const lyd_node* tree, LYD_FORMAT format);

}  // namespace oclacp::host
