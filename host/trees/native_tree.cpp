#include "host/trees/native_tree.h"

#include <algorithm>
#include <cstring>

#include "host/yang/data_nodes.h"
#include "host/yang/path_text.h"

namespace oclacp::host {
namespace {

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

// The one entry that has all of the keys; null when there is none. By libyang's hash, unless a key cannot be written as
// a predicate.
const lyd_node* find_entry(const lyd_node* siblings, const NativeSelection::Node& selected) {
  if (std::any_of(selected.keys.begin(), selected.keys.end(), has_both_quotes)) {
    while (siblings != nullptr && (siblings->schema != selected.schema || !has_known_keys(siblings, selected.keys))) {
      siblings = siblings->next;
    }
    return siblings;
  }
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

// Native configuration knows an interface once in each class of configuration; the one in force is what is read.
bool is_active(const lyd_node* entry) {
  const lyd_node* first_key = lyd_child(entry);
  return std::strcmp(first_key->schema->name, "active") != 0 || std::strcmp(lyd_get_value(first_key), "act") == 0;
}

void append_entries(const lyd_node* siblings, const NativeSelection::Node& selected,
                    std::vector<NativeBranch>& branches) {
  if (knows_all_keys(selected)) {
    if (const lyd_node* entry = find_entry(siblings, selected); entry != nullptr) {
      branches.push_back({entry, &selected});
    }
    return;
  }
  for (const lyd_node* child = siblings; child != nullptr; child = child->next) {
    if (child->schema == selected.schema && has_known_keys(child, selected.keys) && is_active(child)) {
      branches.push_back({child, &selected});
    }
  }
}

void append_selected(const lyd_node* siblings, const NativeSelection::Node& selected,
                     std::vector<NativeBranch>& branches) {
  for (const lyd_node* key = siblings; key != nullptr && lysc_is_key(key->schema); key = key->next) {
    branches.push_back({key, nullptr});
  }
  for (const NativeSelection::Node* wanted : selected.children) {
    if (wanted->schema->nodetype == LYS_LIST) {
      append_entries(siblings, *wanted, branches);
      continue;
    }
    // In the few children of a node this is sooner done than by libyang's hashes.
    const lyd_node* found = siblings;
    while (found != nullptr && found->schema != wanted->schema) {
      found = found->next;
    }
    if (found != nullptr && is_explicit(found)) {
      branches.push_back({found, wanted});
    }
  }
}

// What stands below a node, or of it what is selected.
void append_children(const NativeBranch& node, std::vector<NativeBranch>& branches) {
  const lyd_node* first = lyd_child(node.data);
  if (node.selected != nullptr && !node.selected->is_whole) {
    append_selected(first, *node.selected, branches);
    return;
  }
  for (const lyd_node* child = first; child != nullptr; child = child->next) {
    if (is_explicit(child)) {
      branches.push_back({child, nullptr});
    }
  }
}

}  // namespace

NativeTree::NativeTree(const lyd_node* data, const NativeSelection::Node* selected)
    : NativeTree(NativeParts(data, selected).part(0, NativeParts::kAll)) {}

NativeTree::NativeTree(std::span<const lyd_node* const> trunk, std::span<const NativeBranch> branches) {
  for (size_t index = 0; index < trunk.size(); ++index) {
    const bool is_last = index + 1 == trunk.size();
    items_.push_back({{trunk[index], nullptr}, index - 1, index + 1, is_last ? branches.size() : 1});
  }
  for (const NativeBranch& branch : branches) {
    add(branch, trunk.size() - 1);
  }
  std::vector<NativeBranch> children;
  for (size_t index = trunk.size(); index < items_.size(); ++index) {
    children.clear();
    append_children(items_[index].branch, children);
    items_[index].first_child = items_.size();
    items_[index].child_count = children.size();
    for (const NativeBranch& child : children) {
      add(child, index);
    }
  }
  build();
}

void NativeTree::add(const NativeBranch& branch, size_t parent) {
  items_.push_back({branch, parent, 0, 0});
}

void NativeTree::build() {
  nodes_.resize(items_.size());
  infos_.resize(items_.size());
  for (size_t index = 0; index < items_.size(); ++index) {
    const Item& item = items_[index];
    const lysc_node* schema = item.branch.data->schema;
    infos_[index] = {index == 0 ? nullptr : &nodes_[item.parent], item.branch.data, schema};
    yfw_datatree& node = nodes_[index];
    node.framework = &infos_[index];
    node.tag = schema->name;
    node.ns = schema->module->ns;
    if (item.child_count != 0) {
      node.children = &nodes_[item.first_child];
      node.child_count = static_cast<unsigned>(item.child_count);
      node.flags |= YFW_FLAG_SUBTREE;
    }
    const char* value = (schema->nodetype & LYD_NODE_TERM) == 0 ? nullptr : lyd_get_value(item.branch.data);
    if (value != nullptr && value[0] != '\0') {
      node.value = value;
      node.flags |= YFW_FLAG_VALUE;
    }
  }
  items_ = {};
}

NativeParts::NativeParts(const lyd_node* data, const NativeSelection::Node* selected) : trunk_{data} {
  append_children({data, selected}, branches_);
  while (branches_.size() == 1 && branches_.front().data->schema->nodetype == LYS_CONTAINER) {
    const NativeBranch only = branches_.front();
    trunk_.push_back(only.data);
    branches_.clear();
    append_children(only, branches_);
  }
}

void NativeParts::drop_if(const std::function<bool(size_t branch)>& is_dropped) {
  std::vector<NativeBranch> kept;
  for (size_t branch = 0; branch < branches_.size(); ++branch) {
    if (!is_dropped(branch)) {
      kept.push_back(branches_[branch]);
    }
  }
  branches_ = std::move(kept);
}

NativeTree NativeParts::part(size_t first, size_t count) const {
  return NativeTree(trunk_, std::span(branches_).subspan(first, std::min(count, branches_.size() - first)));
}

NativeTree NativeParts::keys_of(size_t branch) const {
  const NativeSelection::Node nothing{.schema = branches_[branch].data->schema, .keys = {}, .children = {}};
  const NativeBranch keys = {branches_[branch].data, &nothing};
  return NativeTree(trunk_, std::span(&keys, 1));
}

}  // namespace oclacp::host
