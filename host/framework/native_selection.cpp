#include "host/framework/native_selection.h"

namespace oclacp::host {
namespace {

// A key that is not known differs from every text.
void append_key(std::string& identity, std::string_view key) {
  identity += key.data() == nullptr ? '\0' : '\1';
  identity.append(std::to_string(key.size())).append(":").append(key);
}

template <typename Pointer>
void append_pointer(std::string& identity, const Pointer* pointer) {
  identity.append(reinterpret_cast<const char*>(&pointer), sizeof pointer);
}

}  // namespace

NativeSelection::NativeSelection(const EditScript& asked) {
  for (const EditScript::Step& step : asked.steps()) {
    // The entries of the lists around the target, innermost last.
    std::vector<const EditScript::Entry*> entries(step.target->lists.size());
    int entry = step.entry;
    for (auto place = entries.rbegin(); place != entries.rend(); ++place) {
      *place = &asked.entries()[static_cast<size_t>(entry)];
      entry = (*place)->parent;
    }
    Node* node = &root_;
    auto next_entry = entries.begin();
    for (const lysc_node* schema : step.target->chain) {
      // A key only says which entry is meant.
      if (!lysc_is_key(schema)) {
        node = find_or_add(node, schema, schema->nodetype == LYS_LIST ? *next_entry++ : nullptr);
      }
    }
    if (!step.target->is_list() && !step.target->is_key()) {
      node->is_whole = true;
    }
  }
}

NativeSelection::Node* NativeSelection::find_or_add(Node* above, const lysc_node* schema,
                                                    const EditScript::Entry* entry) {
  std::string identity;
  append_pointer(identity, above);
  append_pointer(identity, schema);
  if (entry != nullptr) {
    for (const std::string_view key : entry->keys) {
      append_key(identity, key);
    }
  }
  const auto [place, is_new] = by_identity_.emplace(std::move(identity), nullptr);
  if (is_new) {
    place->second = &nodes_.emplace_back();
    place->second->schema = schema;
    if (entry != nullptr) {
      place->second->keys = entry->keys;
    }
    above->children.push_back(place->second);
  }
  return place->second;
}

}  // namespace oclacp::host
