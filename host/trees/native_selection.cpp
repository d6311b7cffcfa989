#include "host/trees/native_selection.h"

#include <span>

#include "host/trees/node_key.h"

namespace oclacp::host {

NativeSelection::NativeSelection(const OutputLog& asked) {
  for (const OutputLog::Addition& addition : asked.additions()) {
    // The entries of the lists around the target, innermost last.
    std::vector<const OutputLog::Entry*> entries(addition.target->lists.size());
    int entry = addition.entry;
    for (auto place = entries.rbegin(); place != entries.rend(); ++place) {
      *place = &asked.entries()[static_cast<size_t>(entry)];
      entry = (*place)->parent;
    }
    Node* node = &root_;
    auto next_entry = entries.begin();
    for (const lysc_node* schema : addition.target->chain) {
      // A key only selects the entry.
      if (!lysc_is_key(schema)) {
        node = find_or_add(node, schema, schema->nodetype == LYS_LIST ? *next_entry++ : nullptr);
      }
    }
    if (!addition.target->is_list() && !addition.target->is_key()) {
      node->is_whole = true;
    }
  }
}

NativeSelection::Node* NativeSelection::find_or_add(Node* above, const lysc_node* schema,
                                                    const OutputLog::Entry* entry) {
  const std::span<const std::string_view> keys =
      entry == nullptr ? std::span<const std::string_view>() : std::span(entry->keys);
  const auto [place, is_new] = by_key_.emplace(node_key(above, schema, keys), nullptr);
  if (is_new) {
    place->second = &nodes_.emplace_back();
    place->second->schema = schema;
    place->second->keys.assign(keys.begin(), keys.end());
    above->children.push_back(place->second);
  }
  return place->second;
}

}  // namespace oclacp::host
