// Native data as the module walks it, made from libyang's tree.
#pragma once

#include <functional>
#include <span>
#include <vector>

#include "host/base/contract.h"
#include "host/trees/native_selection.h"
#include "host/trees/node.h"
#include "host/trees/request_tree.h"
#include "host/yang/libyang_ptr.h"

namespace oclacp::host {

// A node of native data and what is selected of it.
struct NativeBranch {
  const lyd_node* data;
  const NativeSelection::Node* selected;  // null: with all that is in it
};

// The nodes of one native top node, or of what is selected of it, in breadth-first order, so that children stand side
// by side; the keys of a list entry come first, in the schema's order. Borrows texts and nodes from libyang's tree.
class NativeTree {
 public:
  // `data` is valid data. `selected` is the selection's node for it; null for all of it.
  NativeTree(const lyd_node* data, const NativeSelection::Node* selected);

  NativeTree(const NativeTree&) = delete;
  NativeTree& operator=(const NativeTree&) = delete;
  NativeTree(NativeTree&&) = default;
  NativeTree& operator=(NativeTree&&) = default;
  ~NativeTree() = default;

  yfw_datatree* top() { return nodes_.data(); }

 private:
  friend class NativeParts;

  struct Item {
    NativeBranch branch;
    size_t parent;
    size_t first_child;
    size_t child_count;
  };

  // The nodes of `trunk` below each other, and the branches below the last one.
  NativeTree(std::span<const lyd_node* const> trunk, std::span<const NativeBranch> branches);

  void add(const NativeBranch& branch, size_t parent);
  void build();

  std::vector<Item> items_;
  std::vector<yfw_datatree> nodes_;
  std::vector<NodeInfo> infos_;
};

// A native top node in parts, each of them a tree from the top node down. The data is cut where it branches first on
// the way down: between the entries of a list, whether they stand directly below the top node or deeper.
class NativeParts {
 public:
  // As for NativeTree.
  NativeParts(const lyd_node* data, const NativeSelection::Node* selected);

  [[nodiscard]] const std::vector<NativeBranch>& branches() const { return branches_; }

  // Forgets the branches of which `is_dropped` says so; it is asked for each in turn, by number.
  void drop_if(const std::function<bool(size_t branch)>& is_dropped);

  static constexpr size_t kAll = static_cast<size_t>(-1);

  // The tree with `count` branches, or as many as there are, from number `first` on.
  [[nodiscard]] NativeTree part(size_t first, size_t count) const;
  // The tree with one branch, which is a list entry, and of this its keys alone.
  [[nodiscard]] NativeTree keys_of(size_t branch) const;

 private:
  std::vector<const lyd_node*> trunk_;
  std::vector<NativeBranch> branches_;
};

}  // namespace oclacp::host
