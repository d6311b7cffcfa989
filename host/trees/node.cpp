#include "host/trees/node.h"

#include <cstring>
#include <vector>

#include "host/base/error.h"
#include "host/trees/opaque_nodes.h"
#include "host/trees/operation.h"
#include "host/yang/path_text.h"

namespace oclacp::host {
namespace {

// The value of a key of an entry as the data has it; null when it has none.
const char* value_of_key(const lyd_node* entry, const lysc_node* key) {
  const lyd_node* child = lyd_child(entry);
  while (child != nullptr && std::strcmp(name_of(child), key->name) != 0) {
    child = child->next;
  }
  const char* value = child == nullptr ? nullptr : lyd_get_value(child);
  return value == nullptr || value[0] == '\0' ? nullptr : value;
}

void append_entry_keys(std::string& path, const NodeInfo& info) {
  const size_t bare = path.size();
  for (const lysc_node* key = lysc_node_child(info.schema); key != nullptr && lysc_is_key(key); key = key->next) {
    const char* value = value_of_key(info.data, key);
    if (value == nullptr) {
      path.resize(bare);
      return;
    }
    append_predicate(path, key->name, value);
  }
}

}  // namespace

const char* requested_value(const yfw_datatree* leaf) {
  const lyd_node* data = info_of(leaf).data;
  const char* value = data == nullptr ? nullptr : lyd_get_value(data);
  return value == nullptr || value[0] == '\0' ? nullptr : value;
}

const char* key_value(const yfw_datatree* entry) {
  const lysc_node* key = lysc_node_child(info_of(entry).schema);
  return lysc_is_key(key) ? value_of_key(info_of(entry).data, key) : nullptr;
}

bool is_key_or_key_target(const yfw_datatree* leaf) {
  const lysc_node* schema = info_of(leaf).schema;
  const lysc_node* entry = schema->parent == nullptr ? nullptr : schema->parent->parent;
  if (lysc_is_key(schema) || entry == nullptr || entry->nodetype != LYS_LIST) {
    return lysc_is_key(schema);
  }
  const lysc_node* key = lys_find_child(entry, entry->module, schema->name, 0, 0, 0);
  return key != nullptr && lysc_is_key(key);
}

void refuse_delete_of_name(const yfw_datatree* leaf) {
  throw node_error(ErrorKind::kOperationNotSupported, node_path(leaf),
                   "goes with its list entry, and cannot be deleted alone");
}

std::string node_path(const yfw_datatree* node) {
  std::vector<const NodeInfo*> chain;
  for (; node != nullptr; node = info_of(node).parent) {
    chain.push_back(&info_of(node));
  }
  std::string path;
  const lys_module* module = nullptr;
  for (auto info = chain.rbegin(); info != chain.rend(); ++info) {
    append_step(path, *(*info)->schema, module);
    module = (*info)->schema->module;
    if ((*info)->schema->nodetype == LYS_LIST) {
      append_entry_keys(path, **info);
    }
  }
  return path;
}

bool is_deleted(const yfw_datatree* node) {
  while (node != nullptr && node->operation == YFW_OPERATION_NONE) {
    node = info_of(node).parent;
  }
  return node != nullptr && deletes(node->operation);
}

}  // namespace oclacp::host
