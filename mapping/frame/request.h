// What the engines and handlers ask of the request state, and the scope objects that put its marks and the nodes'
// fields back on every path.
#pragma once

#include <cstdint>
#include <optional>

#include "yfw/context.h"
#include "yfw/map.h"

namespace ymap {

// The request's operation code, YFW_REQUEST_*.
inline std::uint32_t operation_of(yfw_map_ctx ctx) {
  return ctx->request->descriptor->operation;
}

inline bool is_read(yfw_map_ctx ctx) {
  const std::uint32_t operation = operation_of(ctx);
  return operation == YFW_REQUEST_READ_CONFIG || operation == YFW_REQUEST_READ_STATE;
}

// Replaces the request's error tag by a copy of `tag`, which may be null; the old one is freed. Without request state
// nothing is stored.
void store_error_tag(yfw_map_ctx ctx, const char* tag);

// The one place where an input node becomes writable: walkers mark nodes, and hide and restore what they found.
inline yfw_datatree& mutable_node(const yfw_datatree* node) {
  return *const_cast<yfw_datatree*>(node);
}

// Gives a node another edit operation and marks that it was changed.
inline void change_operation(yfw_datatree& node, std::uint32_t operation) {
  node.operation = operation;
  node.flags |= YFW_FLAG_OPERATION_CHANGED;
}

// Sets a mark of the request and puts back what it was.
class ScopedValue {
 public:
  ScopedValue(std::uint32_t& mark, std::uint32_t value) : mark_(mark), found_(mark) { mark = value; }
  ~ScopedValue() { mark_ = found_; }
  ScopedValue(const ScopedValue&) = delete;
  ScopedValue& operator=(const ScopedValue&) = delete;

 private:
  std::uint32_t& mark_;
  std::uint32_t found_;
};

// Puts a node's operation, and the flag that says that it was changed, back as they were.
class OperationScope {
 public:
  explicit OperationScope(yfw_datatree& node)
      : node_(node), operation_(node.operation), changed_(node.flags & YFW_FLAG_OPERATION_CHANGED) {}
  ~OperationScope() {
    node_.operation = operation_;
    node_.flags = (node_.flags & ~std::uint32_t{YFW_FLAG_OPERATION_CHANGED}) | changed_;
  }
  OperationScope(const OperationScope&) = delete;
  OperationScope& operator=(const OperationScope&) = delete;

 private:
  yfw_datatree& node_;
  std::uint32_t operation_;
  std::uint32_t changed_;
};

// Hides a node's children; they come back with show() or at the end of the scope.
class HiddenChildren {
 public:
  explicit HiddenChildren(yfw_datatree& node)
      : node_(node), children_(node.children), count_(node.child_count), subtree_(node.flags & YFW_FLAG_SUBTREE) {
    node.children = nullptr;
    node.child_count = 0;
    node.flags &= ~std::uint32_t{YFW_FLAG_SUBTREE};
  }
  ~HiddenChildren() { show(); }
  HiddenChildren(const HiddenChildren&) = delete;
  HiddenChildren& operator=(const HiddenChildren&) = delete;

  void show() {
    node_.children = children_;
    node_.child_count = count_;
    node_.flags |= subtree_;
  }

 private:
  yfw_datatree& node_;
  yfw_datatree* children_;
  unsigned int count_;
  std::uint32_t subtree_;
};

// A node on the hierarchy: marked as entered and taken off again at the end of the scope.
class HierarchyEntry {
 public:
  // `kind` is YFW_HIERARCHY_*, `node_kind` YFW_NODE_*.
  HierarchyEntry(yfw_map_ctx ctx, yfw_datatree& node, int kind, std::uint32_t node_kind) : ctx_(ctx), node_(node) {
    yfw_map_add_to_node_hierarchy(ctx, &node, kind);
    node.node_kind = node_kind;
    node.hierarchy_flags |= YFW_HIERARCHY_ENTERED;
  }
  ~HierarchyEntry() { yfw_map_remove_from_node_hierarchy(ctx_, &node_); }
  HierarchyEntry(const HierarchyEntry&) = delete;
  HierarchyEntry& operator=(const HierarchyEntry&) = delete;

 private:
  yfw_map_ctx ctx_;
  yfw_datatree& node_;
};

// How many children a node names; nothing when it claims children that are not there.
inline std::optional<unsigned int> child_count_of(const yfw_datatree& node) {
  if ((node.flags & YFW_FLAG_SUBTREE) == 0) return 0;
  if (node.children == nullptr && node.child_count != 0) return std::nullopt;
  return node.child_count;
}

}  // namespace ymap
