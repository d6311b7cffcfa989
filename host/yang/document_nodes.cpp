#include "host/yang/document_nodes.h"

#include <algorithm>

#include "host/yang/path_text.h"

namespace oclacp::host {
namespace {

// Where a key stands among those of its list; they come first in the schema.
size_t key_index(const lysc_node* key) {
  size_t index = 0;
  for (const lysc_node* before = lysc_node_child(key->parent); before != key; before = before->next) {
    ++index;
  }
  return index;
}

size_t key_count(const lysc_node* list) {
  size_t count = 0;
  for (const lysc_node* key = lysc_node_child(list); key != nullptr && lysc_is_key(key); key = key->next) {
    ++count;
  }
  return count;
}

}  // namespace

const lysc_node* DocumentNodes::find_child(const lys_module* module, std::string_view name) const {
  if (module == nullptr || name.empty() || (depth_ > 0 && current() == nullptr)) {
    return nullptr;
  }
  return lys_find_child(current(), module, name.data(), name.size(), 0, 0);
}

const lysc_node* DocumentNodes::find_json_child(std::string_view name) const {
  const size_t colon = name.find(':');
  if (colon == std::string_view::npos) {
    return current() == nullptr ? nullptr : find_child(current()->module, name);
  }
  const std::string module(name.substr(0, colon));
  return find_child(ly_ctx_get_module_implemented(context_, module.c_str()), name.substr(colon + 1));
}

bool DocumentNodes::add(const lysc_node* child) {
  std::vector<const lysc_node*>& seen = frames_[depth_].seen;
  // A second key is for the mapping module to refuse.
  const auto allowed = lysc_is_key(child) ? 2 : 1;
  if (std::count(seen.begin(), seen.end(), child) >= allowed) {
    return false;
  }
  seen.push_back(child);
  return true;
}

void DocumentNodes::enter(const lysc_node* node) {
  if (++depth_ == frames_.size()) {
    frames_.emplace_back();
  }
  Frame& frame = frames_[depth_];
  frame.schema = node;
  frame.seen.clear();
  frame.entries.clear();
  frame.keys.clear();
  frame.is_known = false;
}

void DocumentNodes::leave() {
  --depth_;
}

bool DocumentNodes::set_key(const lysc_node* key, std::string_view value) {
  Frame& entry = frames_[depth_];
  if (entry.is_known) {
    return true;
  }
  entry.keys.resize(key_count(entry.schema));
  entry.keys[key_index(key)] = value;
  entry.is_known = std::all_of(entry.keys.begin(), entry.keys.end(), [](const auto& known) { return known; });
  if (!entry.is_known) {
    return true;
  }
  std::string all;
  for (const auto& known : entry.keys) {
    all.append(*known).push_back('\0');
  }
  std::vector<Entries>& lists = frames_[depth_ - 1].entries;
  auto list =
      std::find_if(lists.begin(), lists.end(), [&entry](const Entries& other) { return other.list == entry.schema; });
  if (list == lists.end()) {
    list = lists.insert(lists.end(), {entry.schema, {}});
  }
  return list->keys.insert(std::move(all)).second;
}

std::string DocumentNodes::path() const {
  std::string path;
  const lys_module* module_above = nullptr;
  for (size_t level = 1; level <= depth_; ++level) {
    const Frame& frame = frames_[level];
    append_step(path, *frame.schema, module_above);
    module_above = frame.schema->module;
    const lysc_node* key = lysc_node_child(frame.schema);
    for (const auto& value : frame.keys) {
      if (value) {
        append_predicate(path, key->name, *value);
      }
      key = key->next;
    }
  }
  return path;
}

}  // namespace oclacp::host
