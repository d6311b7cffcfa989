// The same edit written by libyang, to compare with.
#pragma once

#include <string>
#include <utility>

#include "host/trees/edit_nodes.h"
#include "host/trees/edit_tree.h"
#include "host/yang/libyang_ptr.h"
#include "host/yang/schemas.h"
#include "host/yang/tree_printer.h"

namespace oclacp::host {

inline const char* operation_name(uint32_t operation) {
  static constexpr const char* kNames[] = {nullptr, "replace", "create", "delete", "remove"};
  return kNames[operation];
}

// Makes libyang's tree of an edit, depth first.
class EditByLibyang {
 public:
  EditByLibyang(const ly_ctx* context, LYD_FORMAT format)
      : context_(context), format_(format), operation_module_(operation_module(context)) {}

  // What stands below `node` goes below `parent`, or to the top.
  void add_below(const EditNode& node, lyd_node* parent) {
    for (const auto* below : {&node.children, &node.entries}) {
      for (const EditNode* child : *below) {
        if (child != nullptr) {
          add(*child, parent);
        }
      }
    }
  }

  TreePtr take() { return std::move(top_); }

 private:
  void add(const EditNode& node, lyd_node* parent) {
    lyd_node* made = nullptr;
    const bool is_leaf = (node.schema->nodetype & LYD_NODE_TERM) != 0;
    if (is_leaf && !node.is_set) {
      made = make_bare_leaf(node, parent);
    } else {
      check(make_native_node(node, node.value.data(), parent, made), node);
      if (node.operation != YFW_OPERATION_NONE) {
        // An empty container is printed only when it is not taken for a default.
        const ly_bool is_no_default = 1;
        check(lyd_new_meta(context_, made, operation_module_, "operation", operation_name(node.operation),
                           is_no_default, nullptr),
              node);
      }
    }
    if (parent == nullptr) {
      lyd_node* first = top_.release();
      lyd_insert_sibling(first, made, &first);
      top_.reset(first);
    }
    add_below(node, made);
  }

  // A leaf without value. libyang keeps such a node without its schema, in the form of one text format.
  lyd_node* make_bare_leaf(const EditNode& node, lyd_node* parent) {
    lyd_node* made = nullptr;
    const lys_module* module = node.schema->module;
    const char* operation = operation_name(node.operation);
    if (format_ == LYD_XML) {
      check(lyd_new_opaq2(parent, context_, node.schema->name, nullptr, nullptr, module->ns, &made), node);
      check(lyd_new_attr2(made, operation_module_->ns, "nc:operation", operation, nullptr), node);
    } else {
      check(lyd_new_opaq(parent, context_, node.schema->name, nullptr, nullptr, module->name, &made), node);
      check(lyd_new_attr(made, operation_module_->name, "ietf-netconf:operation", operation, nullptr), node);
      // Printed as [null], as RFC 7951 writes a leaf without value.
      reinterpret_cast<lyd_node_opaq*>(made)->hints = LYD_VALHINT_EMPTY;
    }
    return made;
  }

  void check(LY_ERR status, const EditNode& node) const {
    if (status != LY_SUCCESS) {
      refuse_native(context_, node);
    }
  }

  const ly_ctx* context_;
  LYD_FORMAT format_;
  const lys_module* operation_module_;
  TreePtr top_;
};

inline std::string print_by_libyang(const ly_ctx* context, const EditTree& edit, LYD_FORMAT format) {
  EditByLibyang builder(context, format);
  builder.add_below(edit.root(), nullptr);
  const TreePtr tree = builder.take();
  return print_tree(context, tree.get(), format);
}

}  // namespace oclacp::host
