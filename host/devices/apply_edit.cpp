#include "host/devices/apply_edit.h"

#include <algorithm>
#include <cstring>

#include "host/base/error.h"
#include "host/trees/edit_nodes.h"
#include "host/trees/node.h"
#include "host/trees/operation.h"
#include "host/trees/request_tree.h"
#include "host/yang/data_nodes.h"
#include "host/yang/libyang_error.h"

namespace oclacp::host {
namespace {

bool is_leaf(const EditNode& node) {
  return (node.schema->nodetype & LYD_NODE_TERM) != 0;
}

// Whether a node originates from no more than the key of an entry of the request, as the mark of a virtual interface
// does.
bool stems_from_key(const EditNode& node) {
  return node.source != nullptr && lysc_is_key(info_of(node.source).schema);
}

// What an edit does at and below a node.
struct Effect {
  bool adds = false;
  bool removes = false;
  const EditNode* strict_delete = nullptr;  // the first node that must be there to be deleted
};

void collect_effect(const EditNode& node, Effect& effect) {
  if (deletes(node.operation)) {
    effect.removes = true;
    if (node.operation == YFW_OPERATION_DELETE && effect.strict_delete == nullptr) {
      effect.strict_delete = &node;
    }
    return;
  }
  effect.adds |= node.operation != YFW_OPERATION_NONE || (is_leaf(node) && node.is_set && !stems_from_key(node));
  for (const auto* below : {&node.children, &node.entries}) {
    for (const EditNode* child : *below) {
      if (child != nullptr) {
        collect_effect(*child, effect);
      }
    }
  }
}

class Application {
 public:
  Application(const ly_ctx* native, const DeviceSnapshot& device) : native_(native), device_(device) {
    if (device.running() == nullptr) {
      return;
    }
    lyd_node* copy = nullptr;
    if (lyd_dup_siblings(device.running(), nullptr, LYD_DUP_RECURSIVE | LYD_DUP_WITH_FLAGS, &copy) != LY_SUCCESS) {
      throw libyang_error(native_, "the running configuration");
    }
    tree_.reset(copy);
  }

  void apply_below(const EditNode& above, lyd_node* parent) {
    for (const auto* below : {&above.children, &above.entries}) {
      for (const EditNode* child : *below) {
        if (child != nullptr) {
          apply(*child, parent);
        }
      }
    }
  }

  TreePtr take_valid() {
    lyd_node* tree = tree_.release();
    const LY_ERR status = lyd_validate_all(&tree, native_, LYD_VALIDATE_NO_STATE, nullptr);
    tree_.reset(tree);
    if (status != LY_SUCCESS) {
      throw libyang_error(native_, "the edited configuration", "native ");
    }
    return std::move(tree_);
  }

 private:
  void apply(const EditNode& node, lyd_node* parent) {
    lyd_node* existing = find(node, parent);
    switch (node.operation) {
      case YFW_OPERATION_DELETE:
      case YFW_OPERATION_REMOVE:
        remove(node, existing);
        return;
      case YFW_OPERATION_CREATE:
        if (existing != nullptr) {
          refuse_native(ErrorKind::kDataExists, node, "is there already");
        }
        break;
      case YFW_OPERATION_REPLACE:
        if (existing != nullptr) {
          free(existing);
          existing = nullptr;
        }
        break;
      default:
        break;
    }
    if (is_leaf(node)) {
      set(node, existing, parent);
      return;
    }
    if (existing == nullptr && !is_made(node)) {
      return;
    }
    apply_below(node, existing == nullptr ? make(node, nullptr, parent) : existing);
  }

  // Whether a list entry or container that is not there is to be made.
  static bool is_made(const EditNode& node) {
    Effect effect;
    collect_effect(node, effect);
    if (effect.adds || !effect.removes) {
      return true;
    }
    if (effect.strict_delete != nullptr) {
      refuse_missing(*effect.strict_delete);
    }
    return false;
  }

  void set(const EditNode& node, lyd_node* existing, lyd_node* parent) {
    const std::string value = device_.normalized_value(*node.schema, node.value);
    if (existing == nullptr) {
      make(node, value.c_str(), parent);
      return;
    }
    const LY_ERR status = lyd_change_term(existing, value.c_str());
    // It may have had this value before, explicitly or as a default.
    if (status != LY_SUCCESS && status != LY_ENOT && status != LY_EEXIST) {
      refuse_native(native_, node);
    }
  }

  void remove(const EditNode& node, lyd_node* existing) {
    // A container that libyang adds because the schema has it holds nothing.
    const bool exists = existing != nullptr && is_explicit(existing);
    if (!exists && node.operation == YFW_OPERATION_DELETE) {
      refuse_missing(node);
    }
    if (exists) {
      free(existing);
    }
  }

  [[noreturn]] static void refuse_missing(const EditNode& node) {
    refuse_native(ErrorKind::kDataMissing, node, "cannot be deleted, the device has no such configuration");
  }

  lyd_node* find(const EditNode& node, lyd_node* parent) {
    const lyd_node* siblings = parent == nullptr ? tree_.get() : lyd_child(parent);
    lyd_node* found = nullptr;
    if (siblings == nullptr) {
      return nullptr;
    }
    if (node.schema->nodetype != LYS_LIST) {
      static_cast<void>(lyd_find_sibling_val(siblings, node.schema, nullptr, 0, &found));
      return found;
    }
    // An entry with the same keys is looked for, which has to stand somewhere.
    lyd_node* around = nullptr;
    lyd_node* wanted = nullptr;
    if (parent != nullptr && lyd_dup_single(parent, nullptr, LYD_DUP_NO_META, &around) != LY_SUCCESS) {
      refuse_native(native_, node);
    }
    TreePtr owner(around);
    if (make_native_node(node, nullptr, around, wanted) != LY_SUCCESS) {
      refuse_native(native_, node);
    }
    if (around == nullptr) {
      owner.reset(wanted);
    }
    static_cast<void>(lyd_find_sibling_first(siblings, wanted, &found));
    return found;
  }

  lyd_node* make(const EditNode& node, const char* value, lyd_node* parent) {
    lyd_node* made = nullptr;
    if (make_native_node(node, value, parent, made) != LY_SUCCESS) {
      refuse_native(native_, node);
    }
    if (parent == nullptr) {
      lyd_node* first = tree_.release();
      lyd_insert_sibling(first, made, &first);
      tree_.reset(first);
    }
    return made;
  }

  void free(lyd_node* node) {
    if (node == tree_.get()) {
      static_cast<void>(tree_.release());
      tree_.reset(node->next);
    }
    lyd_free_tree(node);
  }

  const ly_ctx* native_;
  const DeviceSnapshot& device_;
  TreePtr tree_;
};

}  // namespace

TreePtr apply_edit(const ly_ctx* native, const EditTree& edit, const DeviceSnapshot& device) {
  Application application(native, device);
  application.apply_below(edit.root(), nullptr);
  return application.take_valid();
}

}  // namespace oclacp::host
