#include "support/left_behind.h"

#include <algorithm>

namespace support {
namespace {

using Sentences = std::vector<std::string>;

void check(Sentences& sentences, bool right, const char* what) {
  if (!right) sentences.emplace_back(what);
}

bool is_deleted_entry(const NodeFields& before, const NodeFields& after, Store store) {
  const bool deleted = before.operation == YFW_OPERATION_DELETE || before.operation == YFW_OPERATION_REMOVE;
  const bool working =
      after.operation == YFW_OPERATION_REMOVE || (after.operation == YFW_OPERATION_NONE && store == Store::kLeftOpen);
  NodeFields expected = before;
  expected.operation = after.operation;
  expected.flags |= YFW_FLAG_OPERATION_CHANGED;
  return before.path.ends_with("/interface") && deleted && working && after == expected;
}

void check_fields(Sentences& sentences, const Request& request, Store store) {
  const std::vector<NodeFields>& before = request.fields_as_built();
  const std::vector<NodeFields> after = request.fields();
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (before[i] == after[i] || is_deleted_entry(before[i], after[i], store)) continue;
    sentences.push_back("found " + before[i].text() + "; left " + after[i].text());
  }
}

}  // namespace

std::vector<std::string> left_behind(Platform& platform, const Request& request, Store store) {
  const Seen& seen = platform.seen();
  const yfw_request_state& state = platform.state();
  Sentences sentences = seen.misuses;
  check(sentences, seen.hierarchy.empty(), "nodes are left on the hierarchy");
  check(sentences, seen.itree_stack.empty(), "children are left on the itree stack");
  check(sentences, seen.output_list.empty() && state.output_list_count == 0, "entries are left on the output list");
  check(sentences, state.whole_subtree == 0, "the whole-subtree mark is left");
  check(sentences, state.key_pending == 0, "the key-pending mark is left");
  check(sentences, state.replace_flags == 0, "replace flags are left");
  check(sentences, state.replace_restore == 0, "the replace-restore mark is left");
  check(sentences, state.current_list_node == nullptr, "the slot of the current list node is left filled");
  check(sentences, std::ranges::all_of(state.interface_name, [](char c) { return c == '\0'; }),
        "the interface-name buffer is left filled");
  check(sentences, state.error_tag == nullptr || seen.copies.count(state.error_tag) != 0, "the error tag is dead");
  check(sentences, seen.copies.size() == (state.error_tag == nullptr ? 0 : 1), "a copy is lost");
  const std::size_t open = store == Store::kLeftOpen ? 1 : 0;
  check(sentences, seen.lists.size() == open, "data-store lists are not as they should be");
  check(sentences, seen.connections.size() == open, "data-store connections are not as they should be");
  check_fields(sentences, request, store);
  return sentences;
}

}  // namespace support
