#include "host/translation/walk_error.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>

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
const yfw_datatree* locate_failure(const MappingContext& request, RequestTree& tree, cerrno status) {
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

// "error tag 'state', code 0xaaf2ee00"; the tag is left out when it is null.
std::string code_text(const char* tag, cerrno status) {
  std::array<char, 16> text{};
  static_cast<void>(std::snprintf(text.data(), text.size(), "0x%08x", status));
  return (tag == nullptr ? "" : "error tag '" + std::string(tag) + "', ") + "code " + text.data();
}

// A refused period is marked at the container around it.
std::string describe_period(const yfw_datatree* container) {
  for (unsigned index = 0; index < container->child_count; ++index) {
    const yfw_datatree& leaf = container->children[index];
    if (leaf.value != nullptr && std::strcmp(leaf.tag, "period") == 0) {
      return "/period: '" + std::string(leaf.value) +
             "' has no OpenConfig form, which only one second (true or 1000) and thirty (30000) have";
    }
  }
  return std::string(": ") + cerr_strerror(YFW_UNSUPPORTED_INTERVAL);
}

}  // namespace

std::string describe_failure(const MappingContext& request, RequestTree& tree, cerrno status) {
  if (request.refused()) {
    const yfw_datatree* node = request.refused()->node;
    return node_path(node == nullptr ? tree.top() : node) + ": " + request.refused()->reason;
  }
  const yfw_datatree* node = request.marked_node();
  const char* tag = comes_with_tag(status) ? request.request->error_tag : nullptr;
  std::string sentence = node_path(node == nullptr ? locate_failure(request, tree, status) : node);
  if (tag != nullptr) {
    sentence.append("/").append(tag);
  }
  return sentence.append(": ").append(cerr_strerror(status)).append(" (").append(code_text(tag, status)).append(")");
}

std::string describe_native_failure(const MappingContext& request, const yfw_datatree* top, cerrno status) {
  const auto known = [top](const yfw_datatree* node) { return node == nullptr ? top : node; };
  if (request.refused()) {
    return node_path(known(request.refused()->node)) + ": " + request.refused()->reason;
  }
  const yfw_datatree* node = request.marked_node();
  if (node == nullptr) {
    node = known(request.last_entered());
  }
  const std::string reason =
      status == YFW_UNSUPPORTED_INTERVAL ? describe_period(node) : std::string(": ") + cerr_strerror(status);
  const char* tag = comes_with_tag(status) ? request.request->error_tag : nullptr;
  return node_path(node) + reason + " (" + code_text(tag, status) + ")";
}

}  // namespace oclacp::host
