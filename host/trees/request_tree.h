// A request as the module walks it, made from libyang's tree.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "host/trees/node.h"
#include "host/yang/libyang_ptr.h"

namespace oclacp::host {

// Owns the nodes of one request, in breadth-first order, so that children stand side by side. Texts are borrowed from
// the libyang tree, which this owns too.
//
// The replace of a list entry is handed over as the replace of its `config` container, which is added when the request
// names none: a module deletes nothing for a list entry whose replace begins, since it does not see the entry's key
// then, while a replaced container it deletes first.
class RequestTree {
 public:
  // Takes `data`, a tree with one top node, read against `context`. Refuses what libyang let pass as opaque although
  // the schema does not know it, values that their types do not take, doubled nodes and list entries, attributes other
  // than the edit operation, interface names that the platform's buffers do not hold, and the delete of the leaf that a
  // key refers to, which goes with its entry. Throws Error.
  RequestTree(const ly_ctx* context, TreePtr data);

  RequestTree(const RequestTree&) = delete;
  RequestTree& operator=(const RequestTree&) = delete;
  RequestTree(RequestTree&&) = default;
  RequestTree& operator=(RequestTree&&) = default;
  ~RequestTree() = default;

  yfw_datatree* top() { return nodes_.data(); }
  std::vector<yfw_datatree>& nodes() { return nodes_; }

  // Gives a list entry without children those that its schema has besides the keys, without values. They are not among
  // nodes().
  void add_schema_children(yfw_datatree& entry);

  // Asks for a leaf that has a value in the request, which otherwise only says what the parts around it must hold. The
  // module is handed the leaf without its value, and so asks for it whatever it is.
  static void select(yfw_datatree& leaf);

  // How many nodes carry an edit operation of their own.
  [[nodiscard]] size_t operations() const { return operations_; }

 private:
  // Nodes that the request does not name; of a size that does not change.
  struct AddedNodes {
    std::vector<yfw_datatree> nodes;
    std::vector<NodeInfo> infos;
  };

  void append_children(size_t index);
  void move_replace_to_config(size_t index, size_t first_child);
  void append(yfw_datatree* parent, const lyd_node* data, const lysc_node* schema);
  void fill(size_t index);
  void fill_leaf(yfw_datatree& node, const NodeInfo& info);
  uint32_t operation_of(const yfw_datatree& node, const NodeInfo& info);

  const ly_ctx* context_;
  const lys_module* operation_module_;
  TreePtr data_;
  std::vector<yfw_datatree> nodes_;
  std::vector<NodeInfo> infos_;
  std::deque<AddedNodes> added_;
  size_t operations_ = 0;
};

}  // namespace oclacp::host
