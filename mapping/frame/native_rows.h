// The rows of a native model's inner nodes, and the walkers that they define.
#pragma once

#include <optional>
#include <span>

#include "frame/native_walker.h"
#include "frame/node_table.h"

namespace ymap {

// What the rows of a model share.
struct NativeModel {
  const char* ns;
  NativeTree tree;
  ContainerHandler* container_handler;  // of containers whose row names none
  NodeHandler* list_handler;            // of lists whose row names none
};

struct NativeContainerRow {
  const char* path;
  std::optional<ContainerHandler*> handler = {};  // none: the model's
  NodeHandler* parse_augments;                    // gets children of other namespaces
};

struct NativeListRow {
  const char* path;
  std::optional<const char*> keys[2];        // the key leaves' tags
  std::optional<NodeHandler*> handler = {};  // none: the model's
  NodeHandler* parse_augments;
  bool may_skip = false;            // see NativeChild
  bool restores_list_slot = false;  // for this and the next see NativeList
  bool clears_interface_name = false;
};

struct NativeAugmentRow {
  const char* node;             // the path of the node that is expected
  NodeHandler* parse_augments;  // gets nodes of other namespaces
};

using NativeEntry = NodeEntry<NativeChild>;

consteval NativeEntry node_entry(const NativeContainerRow& row, NodeHandler* walker) {
  return {row.path, true, {.tag = tag_of(row.path), .walk = walker}};
}

consteval NativeEntry node_entry(const NativeListRow& row, NodeHandler* walker) {
  return {row.path, true, {.tag = tag_of(row.path), .walk = walker, .may_skip = row.may_skip}};
}

consteval NativeEntry native_leaf_entry(const char* path, NodeHandler* handler) {
  return {path, false, {.tag = tag_of(path), .walk = handler, .is_leaf = true}};
}

consteval NativeContainer container(const NativeContainerRow& row, const NativeModel& model,
                                    std::span<const NativeChild> children) {
  return {.node = {.ns = model.ns, .tree = model.tree, .children = children, .parse_augments = row.parse_augments},
          .handler = row.handler.value_or(model.container_handler)};
}

consteval std::size_t count_keys(const NativeListRow& row) {
  return row.keys[1] ? 2 : 1;
}

template <std::size_t Count>
consteval std::array<const char*, Count> keys_of(const NativeListRow& row) {
  std::array<const char*, Count> keys{};
  for (std::size_t i = 0; i < Count; ++i) keys[i] = *row.keys[i];
  return keys;
}

consteval NativeList list(const NativeListRow& row, const NativeModel& model, std::span<const NativeChild> children,
                          std::span<const char* const> keys) {
  return {.node = {.ns = model.ns, .tree = model.tree, .children = children, .parse_augments = row.parse_augments},
          .path = row.path,
          .keys = keys,
          .handler = row.handler.value_or(model.list_handler),
          .restores_list_slot = row.restores_list_slot,
          .clears_interface_name = row.clears_interface_name};
}

template <std::size_t Nodes>
consteval NativeAugment augment(const NativeAugmentRow& row, const NativeModel& model,
                                const NativeEntry (&nodes)[Nodes]) {
  const std::size_t at = find_node(nodes, row.node);
  if (at == Nodes) row_error::row_of_the_augmenting_node_is_missing();
  const NativeChild& node = nodes[at].child;
  return {.ns = model.ns, .tag = node.tag, .walk = node.walk, .parse_augments = row.parse_augments};
}

}  // namespace ymap

// Define the walker of a container, of the entries of a list, or of a node that augments another model, by its row.
// NODES is the table of the model's nodes, MODEL what they share.
#define YMAP_DEFINE_NATIVE_CONTAINER(NAME, NODES, MODEL, ...)                                                         \
  cerrno NAME(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {                                           \
    YMAP_HANDLER_IDENTITY(NAME, YMAP_NODE_PROTOTYPE(NAME));                                                           \
    static constexpr ymap::NativeContainerRow stated __VA_ARGS__;                                                     \
    static constexpr auto children = ymap::children_of<ymap::count_children(NODES, stated.path)>(NODES, stated.path); \
    static constexpr ymap::NativeContainer row = ymap::container(stated, MODEL, children);                            \
    return ymap::walk_native_container(handler, row, ctx, in, out);                                                   \
  }

#define YMAP_DEFINE_NATIVE_LIST(NAME, NODES, MODEL, ...)                                                              \
  cerrno NAME(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {                                           \
    YMAP_HANDLER_IDENTITY(NAME, YMAP_NODE_PROTOTYPE(NAME));                                                           \
    static constexpr ymap::NativeListRow stated __VA_ARGS__;                                                          \
    static constexpr auto children = ymap::children_of<ymap::count_children(NODES, stated.path)>(NODES, stated.path); \
    static constexpr auto keys = ymap::keys_of<ymap::count_keys(stated)>(stated);                                     \
    static constexpr ymap::NativeList row = ymap::list(stated, MODEL, children, keys);                                \
    return ymap::walk_native_list_entry(handler, row, ctx, in, out);                                                  \
  }

#define YMAP_DEFINE_NATIVE_AUGMENT(NAME, NODES, MODEL, ...)                         \
  cerrno NAME(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {         \
    YMAP_HANDLER_IDENTITY(NAME, YMAP_NODE_PROTOTYPE(NAME));                         \
    static constexpr ymap::NativeAugmentRow stated __VA_ARGS__;                     \
    static constexpr ymap::NativeAugment row = ymap::augment(stated, MODEL, NODES); \
    return ymap::walk_native_augment(handler, row, ctx, in, out);                   \
  }
