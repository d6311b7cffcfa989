#include "host/edit_plan.h"

#include <cstring>

#include "host/refusal.h"

namespace oclacp::host {
namespace {

// In a difference every node says what happens to it, or takes it from the node above; "none" stands on the way.
bool is_changed(const lyd_node* node) {
  const lyd_meta* operation = lyd_find_meta(node->meta, nullptr, "yang:operation");
  return operation != nullptr && std::strcmp(lyd_get_meta_value(operation), "none") != 0;
}

}  // namespace

std::string EditPlan::first_change() const {
  const lyd_node* root = nullptr;
  LY_LIST_FOR(difference.get(), root) {
    const lyd_node* node = nullptr;
    LYD_TREE_DFS_BEGIN(root, node) {
      if (is_changed(node)) {
        const std::unique_ptr<char, decltype(&std::free)> path(lyd_path(node, LYD_PATH_STD, nullptr, 0), &std::free);
        return path.get();
      }
      LYD_TREE_DFS_END(root, node);
    }
  }
  return "";
}

std::string EditPlan::print_difference() const {
  return print_tree(difference == nullptr ? nullptr : LYD_CTX(difference.get()), difference.get(), format);
}

TreePtr find_difference(const ly_ctx* native, const lyd_node* before, const lyd_node* after) {
  lyd_node* difference = nullptr;
  if (lyd_diff_siblings(before, after, 0, &difference) != LY_SUCCESS) {
    throw Refusal(last_complaint(native, "the running configuration"));
  }
  return TreePtr(difference);
}

}  // namespace oclacp::host
