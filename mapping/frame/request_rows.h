// The rows of an OpenConfig model's inner nodes, and the walkers that they define.
#pragma once

#include <optional>
#include <span>

#include "frame/node_table.h"
#include "frame/request_walker.h"

namespace ymap {

struct RequestContainerRow {
  const char* path;
  ContainerHandler* handler;
  NodeHandler* parse_augments;  // gets children of other namespaces
  Availability availability = Availability::kAlways;
  bool refuses_delete_with_subtree = false;
  std::optional<const char*> expansion[4] =
      {};  // the children's tags in the order of an expansion; none: the order of their rows
};

struct RequestListRow {
  const char* path;
  const char* key;  // the key leaf's tag
  NodeHandler* handler;
  NodeHandler* parse_augments;
};

using RequestEntry = NodeEntry<RequestChild>;

consteval RequestEntry node_entry(const RequestContainerRow& row, NodeHandler* walker) {
  return {row.path, true, {.tag = tag_of(row.path), .walk = walker, .availability = row.availability}};
}

consteval RequestEntry node_entry(const RequestListRow& row, NodeHandler* walker) {
  return {row.path, true, {.tag = tag_of(row.path), .walk = walker}};
}

consteval RequestEntry request_leaf_entry(const char* path, NodeHandler* walker) {
  return {path, false, {.tag = tag_of(path), .walk = walker}};
}

consteval std::size_t count_expansion(const RequestContainerRow& row) {
  std::size_t count = 0;
  for (const std::optional<const char*>& tag : row.expansion) count += tag.has_value() ? 1 : 0;
  return count;
}

// The children in the order of a row's expansion, which names each once. Empty for a row that states none.
template <std::size_t Count, std::size_t Children>
consteval std::array<RequestChild, Count> expansion_of(const RequestContainerRow& row,
                                                       const std::array<RequestChild, Children>& children) {
  if (Count != 0 && Count != Children) row_error::expansion_is_not_of_the_children();
  std::array<RequestChild, Count> expansion{};
  std::size_t at = 0;
  for (RequestChild& next : expansion) {
    const std::string_view tag = *row.expansion[at++];
    bool found = false;
    for (const RequestChild& child : children) {
      if (tag != child.tag) continue;
      next = child;
      found = true;
    }
    if (!found) row_error::expansion_is_not_of_the_children();
  }
  return expansion;
}

consteval RequestContainer container(const RequestContainerRow& row, const char* ns,
                                     std::span<const RequestChild> children, std::span<const RequestChild> expansion) {
  return {.node = {.ns = ns,
                   .children = children,
                   .parse_augments = row.parse_augments,
                   .expansion = expansion.empty() ? children : expansion},
          .handler = row.handler,
          .refuses_delete_with_subtree = row.refuses_delete_with_subtree};
}

template <std::size_t Nodes>
consteval NodeHandler* key_leaf_of(const RequestListRow& row, const RequestEntry (&nodes)[Nodes]) {
  for (const RequestEntry& node : nodes) {
    if (parent_of(node.path) == row.path && std::string_view(row.key) == node.child.tag) return node.child.walk;
  }
  row_error::row_of_the_key_leaf_is_missing();
  return nullptr;
}

template <std::size_t Nodes>
consteval RequestList list(const RequestListRow& row, const char* ns, std::span<const RequestChild> children,
                           const RequestEntry (&nodes)[Nodes]) {
  return {.node = {.ns = ns, .children = children, .parse_augments = row.parse_augments},
          .path = row.path,
          .key = row.key,
          .handler = row.handler,
          .key_leaf = key_leaf_of(row, nodes)};
}

}  // namespace ymap

// Define the walker of a container, or of the entries of a list, by its row. NODES is the table of the model's nodes,
// NS its namespace.
#define YMAP_DEFINE_REQUEST_CONTAINER(NAME, NODES, NS, ...)                                                           \
  cerrno NAME(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {                                           \
    YMAP_HANDLER_IDENTITY(NAME, YMAP_NODE_PROTOTYPE(NAME));                                                           \
    static constexpr ymap::RequestContainerRow stated __VA_ARGS__;                                                    \
    static constexpr auto children = ymap::children_of<ymap::count_children(NODES, stated.path)>(NODES, stated.path); \
    static constexpr auto expansion = ymap::expansion_of<ymap::count_expansion(stated)>(stated, children);            \
    static constexpr ymap::RequestContainer row = ymap::container(stated, NS, children, expansion);                   \
    return ymap::walk_container(handler, row, ctx, in, out);                                                          \
  }

#define YMAP_DEFINE_REQUEST_LIST(NAME, NODES, NS, ...)                                                           \
  cerrno NAME(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {                                      \
    YMAP_HANDLER_IDENTITY(NAME, YMAP_NODE_PROTOTYPE(NAME));                                                      \
    static constexpr ymap::RequestListRow stated __VA_ARGS__;                                                    \
    static constexpr auto children =                                                                             \
        ymap::children_of<ymap::count_children(NODES, stated.path, stated.key)>(NODES, stated.path, stated.key); \
    static constexpr ymap::RequestList row = ymap::list(stated, NS, children, NODES);                            \
    return ymap::walk_list_entry(handler, row, ctx, in, out);                                                    \
  }
