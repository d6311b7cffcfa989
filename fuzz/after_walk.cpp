#include "after_walk.h"

#include <cstdio>
#include <cstdlib>

namespace fuzz {
namespace {

void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "%s\n", what);
  std::abort();
}

void require_marks_as_found(const yfw_request_state& state) {
  require(state.whole_subtree == 0, "the whole-subtree mark stays set");
  require(state.key_pending == YFW_KEY_PENDING_NONE, "the key-pending mark stays set");
  require(state.replace_flags == 0, "a replace flag stays set");
  require(state.replace_restore == 0, "the replace-restore mark stays set");
  require(state.current_list_node == nullptr, "the slot of the current list node stays filled");
  for (const char c : state.interface_name) require(c == '\0', "the interface-name buffer stays filled");
  require(state.output_list_count == 0, "the output list's count stays");
}

void require_balance(const support::Seen& seen) {
  for (const std::string& misuse : seen.misuses) require(false, misuse.c_str());
  require(seen.hierarchy.empty(), "a node stays on the hierarchy");
  require(seen.itree_stack.empty(), "an entry stays on the itree stack");
  require(seen.output_list.empty(), "an entry stays on the output list");
}

}  // namespace

void require_left_in_order(cerrno status, const FuzzedTree& tree, support::Platform& platform) {
  require(status != YFW_SKIP_SUBTREE, "the entry walker returns that it skipped");
  require_marks_as_found(platform.state());
  require_balance(platform.seen());
  require(tree.disturbed() == nullptr, "a node is not as it was");
}

}  // namespace fuzz
