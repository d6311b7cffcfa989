#include "host/trees/edit_tree.h"

#include "host/trees/node_key.h"
#include "host/trees/operation.h"

namespace oclacp::host {
namespace {

bool is_leaf(const lysc_node* schema) {
  return (schema->nodetype & LYD_NODE_TERM) != 0;
}

}  // namespace

EditTree::EditTree(const OutputLog& log) : log_(log), node_of_entry_(log.entries().size()) {
  nodes_.emplace_back();
  std::vector<bool> is_counted(log.entries().size());
  for (const OutputLog::Addition& addition : log.additions()) {
    if (!is_dropped(addition.entry)) {
      apply(addition);
    } else if (const auto entry = static_cast<size_t>(addition.entry); !is_counted[entry]) {
      is_counted[entry] = true;
      ++dropped_;
    }
  }
}

bool EditTree::is_dropped(int entry) const {
  while (entry != OutputLog::kNoEntry) {
    const OutputLog::Entry& looked_at = log_.entries()[static_cast<size_t>(entry)];
    if (!looked_at.has_keys()) {
      return true;
    }
    entry = looked_at.parent;
  }
  return false;
}

void EditTree::apply(const OutputLog::Addition& addition) {
  if (deletes(addition.operation)) {
    erase(addition);
    return;
  }
  const bool only_names_entry = addition.target->is_list() || addition.target->is_key();
  if (only_names_entry && log_.entries()[static_cast<size_t>(addition.entry)].only_deletes) {
    return;  // the entry is a place in which something is deleted, and is not to be made for that
  }
  set(addition);
}

void EditTree::set(const OutputLog::Addition& addition) {
  EditNode* node = find(addition, true);
  node->source = addition.source;
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
  if (!addition.target->is_leaf() || addition.target->is_key()) {
    return;
  }
  if (!node->is_set && !was_deleted && !is_replaced_above) {
    node->operation = addition.operation;
  }
  node->is_set = true;
  node->value = addition.value;
}

void EditTree::erase(const OutputLog::Addition& addition) {
  EditNode* deepest = find(addition, false);
  EditNode* existing = deepest->schema == addition.target->schema ? deepest : nullptr;
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
  EditNode* node = find(addition, true);
  if (deletes(node->operation)) {
    return;
  }
  // What was set before is there when the delete is applied, so it must not fail for want of it.
  const bool was_set = node->is_set || !node->children.empty() || !node->entries.empty();
  clear(node);
  node->source = addition.source;
  node->operation = was_set ? uint32_t{YFW_OPERATION_REMOVE} : addition.operation;
}

// The node of an addition. Without `create`: the deepest node on the way to it that is there.
EditNode* EditTree::find(const OutputLog::Addition& addition, bool create) {
  EditNode* node = &nodes_.front();
  size_t inner_lists = addition.target->lists.size();
  for (const lysc_node* schema : addition.target->chain) {
    if (lysc_is_key(schema)) {
      break;  // keys belong to their entry's node
    }
    EditNode* next = nullptr;
    if (schema->nodetype == LYS_LIST) {
      int entry = addition.entry;
      for (size_t level = --inner_lists; level > 0; --level) {
        entry = log_.entries()[static_cast<size_t>(entry)].parent;
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
  const OutputLog::Entry& named = log_.entries()[static_cast<size_t>(entry)];
  EditNode*& same = node_of_keys_[node_key(above, named.list, named.keys)];
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
