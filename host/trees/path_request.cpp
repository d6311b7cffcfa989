#include "host/trees/path_request.h"

#include <algorithm>

#include "host/base/error.h"
#include "host/trees/node.h"
#include "host/yang/libyang_error.h"
#include "host/yang/path_parser.h"
#include "host/yang/schemas.h"

namespace oclacp::host {
namespace {

constexpr const char* kTopModule = "openconfig-lacp";

// The nodes that a path names, as libyang keeps nodes that it has not judged; the request tree does.
class PathNodes {
 public:
  PathNodes(const ly_ctx* context, const std::string& path) : context_(context), path_(path), module_(kTopModule) {}

  TreePtr make() {
    TreePtr top;
    for (const PathStep& step : parse_path_steps(path_)) {
      last_ = make(last_, step);
      if (top == nullptr) {
        top.reset(last_);
      }
    }
    return top;
  }

  // The node that the path leads to, once its nodes are made.
  [[nodiscard]] lyd_node* last() const { return last_; }
  // Whether it is one that a predicate has named, and given its value.
  [[nodiscard]] bool ends_at_predicate() const { return ends_at_predicate_; }

 private:
  lyd_node* make(lyd_node* above, const PathStep& step) {
    if (!step.module.empty()) {
      module_ = step.module;
    }
    const std::string* own_value = nullptr;
    for (const auto& [child, value] : step.predicates) {
      own_value = child == "." ? &value : own_value;
    }
    lyd_node* node = own_value == nullptr ? find_child(above, step.name) : nullptr;
    ends_at_predicate_ = node != nullptr;
    if (node == nullptr) {
      node = make(above, step.name, own_value);
    }
    for (const auto& [child, value] : step.predicates) {
      if (child != ".") {
        make(node, child, &value);
      }
    }
    return node;
  }

  lyd_node* make(lyd_node* above, const std::string& name, const std::string* value) const {
    lyd_node* made = nullptr;
    if (lyd_new_opaq(above, context_, name.c_str(), value == nullptr ? nullptr : value->c_str(), nullptr,
                     module_.c_str(), &made) != LY_SUCCESS) {
      throw Error(ErrorKind::kBadElement, "the path '" + path_ + "': '" + name + "' is no name of a node");
    }
    if (value == nullptr) {
      reinterpret_cast<lyd_node_opaq*>(made)->hints = LYD_VALHINT_EMPTY;
    }
    return made;
  }

  // A step may lead to a child that a predicate has named.
  static lyd_node* find_child(const lyd_node* above, const std::string& name) {
    lyd_node* child = lyd_child(above);
    while (child != nullptr && name != reinterpret_cast<lyd_node_opaq*>(child)->name.name) {
      child = child->next;
    }
    return child;
  }

  const ly_ctx* context_;
  const std::string& path_;
  std::string module_;  // inherited from step to step
  lyd_node* last_ = nullptr;
  bool ends_at_predicate_ = false;
};

}  // namespace

RequestTree parse_path(const ly_ctx* context, const std::string& path) {
  PathNodes nodes(context, path);
  TreePtr data = nodes.make();
  RequestTree tree(context, std::move(data));
  require_served_top(tree);
  if (nodes.ends_at_predicate()) {
    const auto last = std::find_if(tree.nodes().begin(), tree.nodes().end(),
                                   [&](const yfw_datatree& node) { return info_of(&node).data == nodes.last(); });
    RequestTree::select(*last);
  }
  return tree;
}

ParsedRequest parse_delete_path(const ly_ctx* context, const std::string& path) {
  PathNodes nodes(context, path);
  TreePtr data = nodes.make();
  if (lyd_new_attr(nodes.last(), operation_module(context)->name, "ietf-netconf:operation", "delete", nullptr) !=
      LY_SUCCESS) {
    throw libyang_error(context, "the path '" + path + "'");
  }
  RequestTree tree(context, std::move(data));
  require_served_top(tree);
  for (const yfw_datatree& node : tree.nodes()) {
    if (node.value != nullptr && !lysc_is_key(info_of(&node).schema)) {
      throw Error(ErrorKind::kBadElement, "the path '" + path + "': only list keys may be given values in a delete");
    }
  }
  return {LYD_JSON, std::move(tree)};
}

}  // namespace oclacp::host
