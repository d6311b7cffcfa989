// libyang's objects with owners.
#pragma once

#include <libyang/libyang.h>

#include <memory>

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

}  // namespace oclacp::host
