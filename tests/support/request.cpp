#include "support/request.h"

#include <cstdlib>
#include <iostream>
#include <string>

#include "support/platform.h"

namespace support {

Node Node::with(std::uint32_t edit_operation) const {
  Node node = *this;
  node.operation = edit_operation;
  return node;
}

Node Node::in(std::string_view uri) const {
  Node node = *this;
  node.ns = uri;
  return node;
}

Node container(std::string tag, std::vector<Node> children) {
  return {.tag = std::move(tag), .value = std::nullopt, .ns = "", .children = std::move(children)};
}

Node leaf(std::string tag) {
  return container(std::move(tag));
}

Node leaf(std::string tag, std::string value) {
  return {.tag = std::move(tag), .value = std::move(value), .ns = "", .children = {}};
}

Node lacp_with_interfaces(std::vector<Node> entries) {
  return container("lacp", {container("interfaces", std::move(entries))});
}

Node interface_entry(std::string name, std::vector<Node> config) {
  Node entry = container("interface", {leaf("name", std::move(name))});
  if (!config.empty()) entry.children.push_back(container("config", std::move(config)));
  return entry;
}

Request::Request(Node root) : description_(std::move(root)) {
  if (description_.ns.empty()) description_.ns = kOpenconfigLacp;
  fill(root_, description_, nullptr, "");
  as_built_ = fields();
}

void Request::fill(yfw_datatree& node, const Node& description, yfw_datatree* parent, const std::string& path) {
  node.tag = description.tag ? description.tag->c_str() : nullptr;
  node.value = description.value ? description.value->c_str() : nullptr;
  node.ns = description.ns.empty() ? parent->ns : description.ns.c_str();
  node.operation = description.operation;
  node.framework = parent;
  if (description.value) node.flags |= YFW_FLAG_VALUE;

  const std::string here = path + "/" + description.tag.value_or("(no tag)");
  nodes_.push_back({here, &node});
  if (description.children.empty()) return;

  std::vector<yfw_datatree> children(description.children.size());
  yfw_datatree* const first = children.data();
  arrays_.push_back(std::move(children));
  node.children = first;
  node.child_count = static_cast<unsigned int>(description.children.size());
  node.flags |= YFW_FLAG_SUBTREE;
  for (std::size_t i = 0; i < description.children.size(); ++i) fill(first[i], description.children[i], &node, here);
}

yfw_datatree* Request::find(std::string_view path) {
  const std::string wanted = nodes_.front().path + (path.empty() ? "" : "/") + std::string(path);
  for (const Described& described : nodes_) {
    if (described.path == wanted) return const_cast<yfw_datatree*>(described.node);
  }
  std::cerr << "the request has no node " << wanted << "\n";
  std::abort();
}

std::vector<NodeFields> Request::fields() const {
  std::vector<NodeFields> all;
  all.reserve(nodes_.size());
  for (const auto& [path, node] : nodes_) {
    all.push_back({.path = path,
                   .operation = node->operation,
                   .children = node->children,
                   .child_count = node->child_count,
                   .flags = node->flags & (YFW_FLAG_OPERATION_CHANGED | YFW_FLAG_SUBTREE)});
  }
  return all;
}

std::string NodeFields::text() const {
  return path + ": operation " + std::to_string(operation) + ", children " + (children == nullptr ? "none" : "there") +
         ", count " + std::to_string(child_count) + ", flags " + std::to_string(flags);
}

}  // namespace support
