#include "host/trees/schema_index.h"

#include <cstdint>
#include <utility>

namespace oclacp::host {
namespace {

// Whether a node can stand in data at all; choices, cases and operations cannot.
const lysc_node* find_in(const lysc_node* above, const lys_module* module, std::string_view name) {
  return module->implemented == 0 ? nullptr : lys_find_child(above, module, name.data(), name.size(), 0, 0);
}

}  // namespace

unsigned key_count(const lysc_node* list) {
  unsigned count = 0;
  for (const lysc_node* child = lysc_node_child(list); child != nullptr && lysc_is_key(child); child = child->next) {
    ++count;
  }
  return count;
}

const Target* SchemaIndex::find(std::string_view path, std::string_view ns) {
  const auto address = reinterpret_cast<std::uintptr_t>(path.data());
  Recent& recent = recent_[(address ^ (address >> 8)) % recent_.size()];
  if (recent.target == nullptr || recent.path != path || recent.target->schema->module->ns != ns) {
    recent = {std::string(path), look_up(path, ns)};
  }
  return recent.target;
}

const Target* SchemaIndex::look_up(std::string_view path, std::string_view ns) {
  while (path.ends_with('/')) {
    path.remove_suffix(1);
  }
  if (const auto found = by_path_.find(path); found != by_path_.end()) {
    for (const Target* target : found->second) {
      if (target->schema->module->ns == ns) {
        return target;
      }
    }
  }
  const Target* target = resolve(path, ns);
  if (target != nullptr) {
    by_path_[std::string(path)].push_back(target);
  }
  return target;
}

const Target* SchemaIndex::resolve(std::string_view path, std::string_view ns) {
  const lys_module* preferred = ly_ctx_get_module_implemented_ns(context_, std::string(ns).c_str());
  if (preferred == nullptr || !path.starts_with('/')) {
    return nullptr;
  }
  Target target{};
  const lysc_node* node = nullptr;
  while (!path.empty()) {
    path.remove_prefix(1);
    const std::string_view name = path.substr(0, path.find('/'));
    path.remove_prefix(name.size());
    node = find_below(node, name, preferred);
    if (node == nullptr) {
      return nullptr;
    }
    target.chain.push_back(node);
    if (node->nodetype == LYS_LIST) {
      target.lists.push_back(node);
    }
  }
  if (node == nullptr || node->module != preferred) {
    return nullptr;
  }
  target.schema = node;
  if (lysc_is_key(node)) {
    target.key_index = 0;
    for (const lysc_node* key = lysc_node_child(target.lists.back()); key != node; key = key->next) {
      ++target.key_index;
    }
  }
  target.number = targets_.size();
  return &targets_.emplace_back(std::move(target));
}

const lysc_node* SchemaIndex::find_below(const lysc_node* above, std::string_view name,
                                         const lys_module* preferred) const {
  if (const lysc_node* node = find_in(above, preferred, name); node != nullptr) {
    return node;
  }
  if (above != nullptr) {
    if (const lysc_node* node = find_in(above, above->module, name); node != nullptr) {
      return node;
    }
  }
  uint32_t index = 0;
  for (const lys_module* module = ly_ctx_get_module_iter(context_, &index); module != nullptr;
       module = ly_ctx_get_module_iter(context_, &index)) {
    if (const lysc_node* node = find_in(above, module, name); node != nullptr) {
      return node;
    }
  }
  return nullptr;
}

}  // namespace oclacp::host
