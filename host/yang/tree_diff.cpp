#include "host/yang/tree_diff.h"

#include <cstring>
#include <functional>

#include "host/base/error.h"
#include "host/yang/data_nodes.h"
#include "host/yang/libyang_error.h"

namespace oclacp::host {
namespace {

// The same node among the siblings of another configuration; null when none counts.
const lyd_node* counterpart(const lyd_node* node, const lyd_node* siblings) {
  lyd_node* found = nullptr;
  return lyd_find_sibling_first(siblings, node, &found) == LY_SUCCESS && is_explicit(found) ? found : nullptr;
}

// Takes a part of two configurations, null where one of them lacks it. Whether to go on.
using Visitor = std::function<bool(const lyd_node* before, const lyd_node* after)>;

// Visits the parts that two configurations are compared by, side by side: list entries and leaves outside of lists, and
// containers that only one of them has. libyang's own comparison searches a long list from its beginning for each of
// its entries. Whether all were visited.
bool visit_parts(const lyd_node* before, const lyd_node* after, const Visitor& visit) {
  const lyd_node* node = nullptr;
  LY_LIST_FOR(before, node) {
    if (!is_explicit(node)) {
      continue;
    }
    const lyd_node* other = counterpart(node, after);
    const bool goes_down = other != nullptr && node->schema->nodetype == LYS_CONTAINER;
    if (!(goes_down ? visit_parts(lyd_child(node), lyd_child(other), visit) : visit(node, other))) {
      return false;
    }
  }
  LY_LIST_FOR(after, node) {
    if (is_explicit(node) && counterpart(node, before) == nullptr && !visit(nullptr, node)) {
      return false;
    }
  }
  return true;
}

// The difference of a part, with the containers around it; null when there is none.
TreePtr difference_of(const ly_ctx* native, const lyd_node* before, const lyd_node* after) {
  if (before != nullptr && after != nullptr &&
      lyd_compare_single(before, after, LYD_COMPARE_FULL_RECURSION) == LY_SUCCESS) {
    return nullptr;
  }
  lyd_node* difference = nullptr;
  if (lyd_diff_tree(before, after, 0, &difference) != LY_SUCCESS) {
    throw libyang_error(native, "the running configuration");
  }
  return TreePtr(difference);
}

// In a difference every node says what happens to it, or takes it from the node above; "none" stands on the way.
bool is_changed(const lyd_node* node) {
  const lyd_meta* operation = lyd_find_meta(node->meta, nullptr, "yang:operation");
  return operation != nullptr && std::strcmp(lyd_get_meta_value(operation), "none") != 0;
}

std::string first_changed(const lyd_node* root) {
  const lyd_node* node = nullptr;
  LYD_TREE_DFS_BEGIN(root, node) {
    if (is_changed(node)) {
      return data_path(node);
    }
    LYD_TREE_DFS_END(root, node);
  }
  return "";
}

// Puts the difference of a part among those of the others, below the containers that they share.
void join(TreePtr& all, TreePtr part) {
  lyd_node* parent = nullptr;
  lyd_node* rest = part.get();
  while (true) {
    lyd_node* siblings = parent == nullptr ? all.get() : lyd_child(parent);
    lyd_node* same = nullptr;
    if (rest->schema->nodetype != LYS_CONTAINER ||
        lyd_find_sibling_val(siblings, rest->schema, nullptr, 0, &same) != LY_SUCCESS) {
      break;
    }
    parent = same;
    rest = lyd_child(rest);
  }
  if (parent != nullptr) {
    lyd_insert_child(parent, rest);
    if (rest == part.get()) {
      static_cast<void>(part.release());
    }
    return;
  }
  lyd_node* first = all.release();
  lyd_insert_sibling(first, part.release(), &first);
  all.reset(first);
}

}  // namespace

std::string find_first_change(const ly_ctx* native, const lyd_node* before, const lyd_node* after) {
  std::string path;
  visit_parts(before, after, [&](const lyd_node* old, const lyd_node* now) {
    const TreePtr difference = difference_of(native, old, now);
    if (difference != nullptr) {
      path = first_changed(difference.get());
    }
    return path.empty();
  });
  return path;
}

TreePtr find_difference(const ly_ctx* native, const lyd_node* before, const lyd_node* after) {
  TreePtr all;
  visit_parts(before, after, [&](const lyd_node* old, const lyd_node* now) {
    TreePtr difference = difference_of(native, old, now);
    if (difference != nullptr) {
      join(all, std::move(difference));
    }
    return true;
  });
  return all;
}

}  // namespace oclacp::host
