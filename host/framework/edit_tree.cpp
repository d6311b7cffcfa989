#include "host/framework/edit_tree.h"

#include "host/framework/identity.h"
#include "host/framework/operation.h"

namespace oclacp::host {
namespace {

bool is_leaf(const lysc_node* schema) {
  return (schema->nodetype & LYD_NODE_TERM) != 0;
}

}  // namespace

EditTree::EditTree(const EditScript& script) : script_(script), node_of_entry_(script.entries().size()) {
  nodes_.emplace_back();
  for (size_t entry = 0; entry < script.entries().size(); ++entry) {
    dropped_ += is_dropped(static_cast<int>(entry)) ? 1 : 0;
  }
  for (const EditScript::Step& step : script.steps()) {
    if (!is_dropped(step.entry)) {
      apply(step);
    }
  }
}

bool EditTree::is_dropped(int entry) const {
  while (entry != EditScript::kNoEntry) {
    const EditScript::Entry& looked_at = script_.entries()[static_cast<size_t>(entry)];
    if (!looked_at.has_keys()) {
      return true;
    }
    entry = looked_at.parent;
  }
  return false;
}

void EditTree::apply(const EditScript::Step& step) {
  if (deletes(step.operation)) {
    erase(step);
    return;
  }
  const bool only_names_entry = step.target->is_list() || step.target->is_key();
  if (only_names_entry && script_.entries()[static_cast<size_t>(step.entry)].only_deletes) {
    return;  // the entry is a place in which something is deleted, and is not to be made for that
  }
  set(step);
}

void EditTree::set(const EditScript::Step& step) {
  EditNode* node = find(step, true);
  node->source = step.source;
  bool is_replaced_above = false;
  for (EditNode* above = node->parent; above != nullptr; above = above->parent) {
    if (deletes(above->operation)) {
      above->operation = YFW_OPERATION_REPLACE;
    }
    is_replaced_above |= above->operation == YFW_OPERATION_REPLACE;
  }
  const bool was_deleted = deletes(node->operation);
  if (was_deleted) {
    node->operation = is_leaf(node->schema) ? YFW_OPERATION_NONE : YFW_OPERATION_REPLACE;
  }
  if (!step.target->is_leaf() || step.target->is_key()) {
    return;
  }
  if (!node->is_set && !was_deleted && !is_replaced_above) {
    node->operation = step.operation;
  }
  node->is_set = true;
  node->value = step.value;
}

void EditTree::erase(const EditScript::Step& step) {
  EditNode* deepest = find(step, false);
  EditNode* existing = deepest->schema == step.target->schema ? deepest : nullptr;
  for (const EditNode* above = existing == nullptr ? deepest : existing->parent; above != nullptr;
       above = above->parent) {
    if (deletes(above->operation)) {
      return;
    }
    if (above->operation == YFW_OPERATION_REPLACE) {
      if (existing != nullptr) {
        detach(existing);
      }
      return;
    }
  }
  EditNode* node = find(step, true);
  if (deletes(node->operation)) {
    return;
  }
  // What was set before is there when the delete is applied, so it must not fail for want of it.
  const bool was_set = node->is_set || !node->children.empty() || !node->entries.empty();
  clear(node);
  node->source = step.source;
  node->operation = was_set ? uint32_t{YFW_OPERATION_REMOVE} : step.operation;
}

// The node of a step. Without `create`: the deepest node on the way to it that is there.
EditNode* EditTree::find(const EditScript::Step& step, bool create) {
  EditNode* node = &nodes_.front();
  size_t inner_lists = step.target->lists.size();
  for (const lysc_node* schema : step.target->chain) {
    if (lysc_is_key(schema)) {
      break;  // keys belong to their entry's node
    }
    EditNode* next = nullptr;
    if (schema->nodetype == LYS_LIST) {
      int entry = step.entry;
      for (size_t level = --inner_lists; level > 0; --level) {
        entry = script_.entries()[static_cast<size_t>(entry)].parent;
      }
      next = entry_node(node, entry, create);
    } else {
      next = child_node(node, schema, create);
    }
    if (next == nullptr) {
      break;
    }
    node = next;
  }
  return node;
}

EditNode* EditTree::entry_node(EditNode* above, int entry, bool create) {
  EditNode*& node = node_of_entry_[static_cast<size_t>(entry)];
  if (node != nullptr && node->parent != nullptr) {
    return node;
  }
  const EditScript::Entry& named = script_.entries()[static_cast<size_t>(entry)];
  EditNode*& same = node_of_keys_[identity_of(above, named.list, named.keys)];
  if (same == nullptr || same->parent == nullptr) {
    if (!create) {
      return nullptr;
    }
    same = add_child(above, named.list);
    same->keys = named.keys;
  }
  node = same;
  return node;
}

EditNode* EditTree::child_node(EditNode* above, const lysc_node* schema, bool create) {
  for (EditNode* child : above->children) {
    if (child != nullptr && child->schema == schema) {
      return child;
    }
  }
  return create ? add_child(above, schema) : nullptr;
}

EditNode* EditTree::add_child(EditNode* above, const lysc_node* schema) {
  EditNode* node = &nodes_.emplace_back();
  auto& siblings = schema->nodetype == LYS_LIST ? above->entries : above->children;
  node->schema = schema;
  node->parent = above;
  node->slot = siblings.size();
  siblings.push_back(node);
  return node;
}

void EditTree::detach(EditNode* node) {
  clear(node);
  auto& siblings = node->schema->nodetype == LYS_LIST ? node->parent->entries : node->parent->children;
  siblings[node->slot] = nullptr;
  node->parent = nullptr;
}

// Takes everything out of a node.
void EditTree::clear(EditNode* node) {
  std::vector<EditNode*> cleared{node};
  while (!cleared.empty()) {
    EditNode* next = cleared.back();
    cleared.pop_back();
    for (auto* below : {&next->children, &next->entries}) {
      for (EditNode* child : *below) {
        if (child != nullptr) {
          child->parent = nullptr;
          cleared.push_back(child);
        }
      }
      below->clear();
    }
  }
  node->is_set = false;
}

}  // namespace oclacp::host
