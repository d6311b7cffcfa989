#include "host/translation/walk_error.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>

#include "host/base/printable_text.h"
#include "host/base/status_text.h"
#include "host/trees/node.h"

namespace oclacp::host {
namespace {

// Whether the module says with an error tag which child of the marked node it is about.
bool comes_with_tag(cerrno status) {
  static constexpr std::array kTagged = {YFW_UNSUPPORTED_NODE, YFW_BAD_LIST_KEY, YFW_LIST_KEY_DELETED,
                                         YFW_UNKNOWN_AUGMENT, YFW_UNSUPPORTED_INTERVAL};
  return std::find(kTagged.begin(), kTagged.end(), status) != kTagged.end();
}

bool is_container(const yfw_datatree& node) {
  return info_of(&node).schema->nodetype == LYS_CONTAINER;
}

bool is_bare_entry(const yfw_datatree& node) {
  return info_of(&node).schema->nodetype == LYS_LIST && node.child_count == 0;
}

// What a status says about a node.
std::string reason_of(cerrno status, const yfw_datatree& node) {
  return status == YFW_MALFORMED_TREE && is_bare_entry(node) ? "the list entry names no keys" : status_text(status);
}

// Which node an unmarked failure is about. Two kinds are refused before their node is entered, but there is only one
// thing in a request that each can mean; the others are found in the node that was entered last.
const yfw_datatree* locate_failure(const MappingContext& context, RequestTree& tree, cerrno status) {
  for (const yfw_datatree& node : tree.nodes()) {
    const bool is_refused_delete =
        status == YFW_INVALID_ARGUMENTS && is_container(node) && node.child_count != 0 && is_deleted(&node);
    if (is_refused_delete || (status == YFW_MALFORMED_TREE && is_bare_entry(node))) {
      return &node;
    }
  }
  return context.last_entered() == nullptr ? tree.top() : context.last_entered();
}

// "error tag 'state', code 0xaaf2ee00"; the tag is left out when it is null.
std::string code_text(const char* tag, cerrno status) {
  std::array<char, 16> text{};
  static_cast<void>(std::snprintf(text.data(), text.size(), "0x%08x", status));
  return (tag == nullptr ? "" : "error tag '" + std::string(tag) + "', ") + "code " + text.data();
}

// A refused period is marked at the container around it. Null when there is none.
const yfw_datatree* find_period(const yfw_datatree* container) {
  for (unsigned index = 0; index < container->child_count; ++index) {
    const yfw_datatree& leaf = container->children[index];
    if (leaf.value != nullptr && std::strcmp(leaf.tag, "period") == 0) {
      return &leaf;
    }
  }
  return nullptr;
}

// The host's own refusal, of something at a node; null is the top.
Error refusal_error(const MappingContext::Refused& refused, const yfw_datatree* top) {
  return node_error(refused.kind, node_path(refused.node == nullptr ? top : refused.node), refused.reason);
}

}  // namespace

Error request_error(const MappingContext& context, RequestTree& tree, cerrno status) {
  if (context.refused()) {
    return refusal_error(*context.refused(), tree.top());
  }
  const yfw_datatree* node = context.marked_node();
  const char* tag = comes_with_tag(status) ? context.request->error_tag : nullptr;
  if (node == nullptr) {
    node = locate_failure(context, tree, status);
  }
  std::string path = node_path(node);
  if (tag != nullptr) {
    path.append("/").append(tag);
  }
  return node_error(status_kind(status), path, reason_of(status, *node) + " (" + code_text(tag, status) + ")");
}

Error native_error(const MappingContext& context, const yfw_datatree* top, cerrno status) {
  if (context.refused()) {
    return refusal_error(*context.refused(), top);
  }
  const yfw_datatree* node = context.marked_node();
  if (node == nullptr) {
    node = context.last_entered() == nullptr ? top : context.last_entered();
  }
  const char* tag = comes_with_tag(status) ? context.request->error_tag : nullptr;
  const std::string code = " (" + code_text(tag, status) + ")";
  const yfw_datatree* period = status == YFW_UNSUPPORTED_INTERVAL ? find_period(node) : nullptr;
  if (period != nullptr) {
    return node_error(status_kind(status), node_path(node) + "/period",
                      "'" + shortened(period->value) +
                          "' has no OpenConfig form, which only one second (true or 1000) and thirty (30000) have" +
                          code);
  }
  return node_error(status_kind(status), node_path(node), reason_of(status, *node) + code);
}

}  // namespace oclacp::host
