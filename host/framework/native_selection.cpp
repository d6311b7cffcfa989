#include "host/framework/native_selection.h"

#include <span>

#include "host/framework/identity.h"

namespace oclacp::host {

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
  const std::span<const std::string_view> keys =
      entry == nullptr ? std::span<const std::string_view>() : std::span(entry->keys);
  const auto [place, is_new] = by_identity_.emplace(identity_of(above, schema, keys), nullptr);
  if (is_new) {
    place->second = &nodes_.emplace_back();
    place->second->schema = schema;
    place->second->keys.assign(keys.begin(), keys.end());
    above->children.push_back(place->second);
  }
  return place->second;
}

}  // namespace oclacp::host
