#include "host/framework/native_tree.h"

#include <algorithm>

#include "host/framework/path_text.h"

namespace oclacp::host {
namespace {

// Containers that libyang adds because the schema has them hold nothing.
bool is_there(const lyd_node* node) {
  return (node->flags & LYD_DEFAULT) == 0;
}

bool has_known_keys(const lyd_node* entry, const std::vector<std::string_view>& keys) {
  const lyd_node* key = lyd_child(entry);
  for (const std::string_view wanted : keys) {
    if (wanted.data() != nullptr && wanted != lyd_get_value(key)) {
      return false;
    }
    key = key->next;
  }
  return true;
}

// The one entry that has all of the keys; null when there is none. By libyang's hash.
const lyd_node* find_entry(const lyd_node* siblings, const NativeSelection::Node& selected) {
  std::string predicates;
  const lysc_node* key = lysc_node_child(selected.schema);
  for (const std::string_view value : selected.keys) {
    append_predicate(predicates, key->name, value);
    key = key->next;
  }
  lyd_node* found = nullptr;
  lyd_find_sibling_val(siblings, selected.schema, predicates.c_str(), predicates.size(), &found);
  return found;
}

bool knows_all_keys(const NativeSelection::Node& selected) {
  return std::all_of(selected.keys.begin(), selected.keys.end(),
                     [](std::string_view key) { return key.data() != nullptr; });
}

}  // namespace

NativeTree::NativeTree(const lyd_node* data, const NativeSelection::Node* selected) {
  add(data, selected, 0);
  for (size_t index = 0; index < items_.size(); ++index) {
    add_children(index);
  }
  build();
}

void NativeTree::add(const lyd_node* data, const NativeSelection::Node* selected, size_t parent) {
  items_.push_back({data, selected == nullptr || selected->is_whole ? nullptr : selected, parent, 0, 0});
}

void NativeTree::add_children(size_t index) {
  items_[index].first_child = items_.size();
  const lyd_node* first = lyd_child(items_[index].data);
  if (items_[index].selected != nullptr) {
    add_selected(index, *items_[index].selected);
  } else {
    for (const lyd_node* child = first; child != nullptr; child = child->next) {
      if (is_there(child)) {
        add(child, nullptr, index);
      }
    }
  }
  items_[index].child_count = items_.size() - items_[index].first_child;
}

void NativeTree::add_selected(size_t index, const NativeSelection::Node& selected) {
  const lyd_node* first = lyd_child(items_[index].data);
  for (const lyd_node* key = first; key != nullptr && lysc_is_key(key->schema); key = key->next) {
    add(key, nullptr, index);
  }
  for (const NativeSelection::Node* wanted : selected.children) {
    if (wanted->schema->nodetype == LYS_LIST) {
      add_entries(index, *wanted);
      continue;
    }
    lyd_node* found = nullptr;
    lyd_find_sibling_val(first, wanted->schema, nullptr, 0, &found);
    if (found != nullptr && is_there(found)) {
      add(found, wanted, index);
    }
  }
}

void NativeTree::add_entries(size_t index, const NativeSelection::Node& selected) {
  const lyd_node* first = lyd_child(items_[index].data);
  if (knows_all_keys(selected)) {
    if (const lyd_node* entry = find_entry(first, selected); entry != nullptr) {
      add(entry, &selected, index);
    }
    return;
  }
  for (const lyd_node* child = first; child != nullptr; child = child->next) {
    if (child->schema == selected.schema && has_known_keys(child, selected.keys)) {
      add(child, &selected, index);
    }
  }
}

void NativeTree::build() {
  nodes_.resize(items_.size());
  infos_.resize(items_.size());
  for (size_t index = 0; index < items_.size(); ++index) {
    const Item& item = items_[index];
    const lysc_node* schema = item.data->schema;
    infos_[index] = {index == 0 ? nullptr : &nodes_[item.parent], item.data, schema};
    yfw_datatree& node = nodes_[index];
    node.framework = &infos_[index];
    node.tag = schema->name;
    node.ns = schema->module->ns;
    if (item.child_count != 0) {
      node.children = &nodes_[item.first_child];
      node.child_count = static_cast<unsigned>(item.child_count);
      node.flags |= YFW_FLAG_SUBTREE;
    }
    const char* value = (schema->nodetype & LYD_NODE_TERM) == 0 ? nullptr : lyd_get_value(item.data);
    if (value != nullptr && value[0] != '\0') {
      node.value = value;
      node.flags |= YFW_FLAG_VALUE;
    }
  }
  items_ = {};
}

}  // namespace oclacp::host
