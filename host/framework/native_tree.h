// Native data as the module walks it, made from libyang's tree.
#pragma once

#include <vector>

#include "host/contract.h"
#include "host/framework/native_selection.h"
#include "host/framework/request_tree.h"
#include "host/yang/libyang.h"

namespace oclacp::host {

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
  struct Item {
    const lyd_node* data;
    const NativeSelection::Node* selected;  // null: with all that is in it
    size_t parent;
    size_t first_child;
    size_t child_count;
  };

  void add_children(size_t index);
  void add_selected(size_t index, const NativeSelection::Node& selected);
  void add_entries(size_t index, const NativeSelection::Node& selected);
  void add(const lyd_node* data, const NativeSelection::Node* selected, size_t parent);
  void build();

  std::vector<Item> items_;
  std::vector<yfw_datatree> nodes_;
  std::vector<NodeInfo> infos_;
};

}  // namespace oclacp::host
