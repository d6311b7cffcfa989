#include "host/failure.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace oclacp::host {
namespace {

// Whether the module says with an error tag which child of the marked node is meant.
bool comes_with_tag(cerrno status) {
  static constexpr std::array kTagged = {YFW_UNSUPPORTED_NODE, YFW_BAD_LIST_KEY, YFW_LIST_KEY_DELETED,
                                         YFW_UNKNOWN_AUGMENT, YFW_UNSUPPORTED_INTERVAL};
  return std::find(kTagged.begin(), kTagged.end(), status) != kTagged.end();
}

bool is_container(const yfw_datatree& node) {
  return info_of(&node).schema->nodetype == LYS_CONTAINER;
}

// Which node an unmarked failure is about. Two kinds are refused before their node is entered, but there is only one
// thing in a request that each can mean; the others are found in the node that was entered last.
const yfw_datatree* find_culprit(const Request& request, RequestTree& tree, cerrno status) {
  for (const yfw_datatree& node : tree.nodes()) {
    const bool is_refused_delete = status == YFW_INVALID_ARGUMENTS && is_container(node) && node.child_count != 0 &&
                                   yfw_map_is_request_delete(&node) != 0;
    const bool is_bare_entry =
        status == YFW_MALFORMED_TREE && info_of(&node).schema->nodetype == LYS_LIST && node.child_count == 0;
    if (is_refused_delete || is_bare_entry) {
      return &node;
    }
  }
  return request.last_entered() == nullptr ? tree.top() : request.last_entered();
}

std::string code_text(cerrno status) {
  std::array<char, 16> text{};
  static_cast<void>(std::snprintf(text.data(), text.size(), "0x%08x", status));
  return text.data();
}

}  // namespace

std::string describe_failure(const Request& request, RequestTree& tree, cerrno status) {
  if (request.refused()) {
    const yfw_datatree* node = request.refused()->node;
    return node_path(node == nullptr ? tree.top() : node) + ": " + request.refused()->reason;
  }
  const yfw_datatree* node = request.marked_node();
  const char* tag = comes_with_tag(status) ? request.request->error_tag : nullptr;
  std::string sentence = node_path(node == nullptr ? find_culprit(request, tree, status) : node);
  if (tag != nullptr) {
    sentence.append("/").append(tag);
  }
  sentence.append(": ").append(cerr_strerror(status)).append(" (");
  if (tag != nullptr) {
    sentence.append("error tag '").append(tag).append("', ");
  }
  return sentence.append("code ").append(code_text(status)).append(")");
}

}  // namespace oclacp::host
