// Tables of children, made at compile time. The rows of a model's nodes stand in the order of its tree; an inner node
// finds its children among them by their paths, in the order of their rows. What is wrong with the rows does not
// compile, and the compiler names the function below that says what it is.
#pragma once

#include <array>
#include <cstddef>
#include <initializer_list>
#include <string_view>

#include "frame/handler.h"

namespace ymap {

namespace row_error {
void two_rows_have_one_path();
void row_of_the_parent_is_missing();
void row_of_the_key_leaf_is_missing();
void row_of_the_augmenting_node_is_missing();
void expansion_is_not_of_the_children();
}  // namespace row_error

// A row of any kind, as the table of a model's nodes holds it. `Child` has a tag and a walk, and what else a walker
// knows of its children.
template <typename Child>
struct NodeEntry {
  const char* path;
  bool is_inner;  // a container or list
  Child child;    // as its parent knows it
};

constexpr std::string_view parent_of(const char* path) {
  const std::string_view whole = path;
  return whole.substr(0, whole.rfind('/'));
}

constexpr const char* tag_of(const char* path) {
  return path + parent_of(path).size() + 1;
}

// Whether a node is a child of `path` that its walker dispatches by tag; a list's key is not.
template <typename Child>
constexpr bool is_child(const NodeEntry<Child>& node, const char* path, const char* key) {
  return parent_of(node.path) == path && (key == nullptr || std::string_view(key) != node.child.tag);
}

template <typename Child, std::size_t Nodes>
consteval std::size_t count_children(const NodeEntry<Child> (&nodes)[Nodes], const char* path,
                                     const char* key = nullptr) {
  std::size_t count = 0;
  for (const NodeEntry<Child>& node : nodes) count += is_child(node, path, key) ? 1 : 0;
  return count;
}

// The children of an inner node. `Count` is what count_children() says of the same arguments.
template <std::size_t Count, typename Child, std::size_t Nodes>
consteval std::array<Child, Count> children_of(const NodeEntry<Child> (&nodes)[Nodes], const char* path,
                                               const char* key = nullptr) {
  std::array<Child, Count> children{};
  std::size_t at = 0;
  for (const NodeEntry<Child>& node : nodes) {
    if (is_child(node, path, key)) children[at++] = node.child;
  }
  return children;
}

// Where the node at a path stands; `Nodes` without one.
template <typename Child, std::size_t Nodes>
constexpr std::size_t find_node(const NodeEntry<Child> (&nodes)[Nodes], std::string_view path) {
  std::size_t at = 0;
  while (at < Nodes && path != nodes[at].path) ++at;
  return at;
}

// Checks that each node has one row, and its parent too. The parents of `augmenting` nodes are of another model.
template <typename Child, std::size_t Nodes>
consteval bool are_connected(const NodeEntry<Child> (&nodes)[Nodes],
                             std::initializer_list<const char*> augmenting = {}) {
  for (std::size_t i = 0; i < Nodes; ++i) {
    const char* const path = nodes[i].path;
    if (find_node(nodes, path) != i) row_error::two_rows_have_one_path();
    const std::size_t parent = find_node(nodes, parent_of(path));
    bool has_parent = parent < Nodes ? nodes[parent].is_inner : parent_of(path).empty();
    for (const char* const added : augmenting) has_parent = has_parent || std::string_view(added) == path;
    if (!has_parent) row_error::row_of_the_parent_is_missing();
  }
  return true;
}

}  // namespace ymap
