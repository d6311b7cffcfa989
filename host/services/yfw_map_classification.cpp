// What a module asks about nodes of a request.
#include <cstring>

#include "host/base/contract.h"
#include "host/base/status_text.h"
#include "host/services/mapping_context.h"
#include "host/trees/operation.h"
#include "host/trees/request_tree.h"

using oclacp::host::deletes;
using oclacp::host::info_of;
using oclacp::host::MappingContext;

namespace {

const yfw_datatree* find_child(const yfw_datatree* node, const char* tag) {
  for (unsigned index = 0; index < node->child_count; ++index) {
    if (std::strcmp(node->children[index].tag, tag) == 0) {
      return &node->children[index];
    }
  }
  return nullptr;
}

// The value as the request has it: the key of an entry that is deleted is handed over as an element of the data store.
const char* text_of(const yfw_datatree* leaf) {
  return lyd_get_value(info_of(leaf).data);
}

}  // namespace

int yfw_map_do_these_match(const char* one, const char* other) {
  return one != nullptr && other != nullptr && std::strcmp(one, other) == 0 ? 1 : 0;
}

// The nearest operation decides, from the node upwards.
int yfw_map_is_request_delete(const yfw_datatree* node) {
  while (node != nullptr && node->operation == YFW_OPERATION_NONE) {
    node = info_of(node).parent;
  }
  return node != nullptr && deletes(node->operation) ? 1 : 0;
}

int yfw_map_is_request_add(yfw_map_ctx ctx, const yfw_datatree* node) {
  return MappingContext::of(ctx).is_edit() && yfw_map_is_request_delete(node) == 0 ? 1 : 0;
}

void yfw_oc_error_path(yfw_map_ctx ctx) {
  MappingContext::of(ctx).mark_error();
}

// The leaf that a key refers to stands in the same entry. Natively the name is kept once, so the target exists as soon
// as the entry does, and only a leaf that names something else is wrong.
cerrno yfw_map_check_oc_leafref(yfw_map_ctx ctx, const char* /*list_path*/, const char* container, const char* key,
                                const yfw_datatree* entry) {
  const yfw_datatree* key_leaf = find_child(entry, key);
  const yfw_datatree* around = find_child(entry, container);
  const yfw_datatree* target = around == nullptr ? nullptr : find_child(around, key);
  if (key_leaf == nullptr || target == nullptr || key_leaf->value == nullptr || target->value == nullptr ||
      std::strcmp(text_of(key_leaf), target->value) == 0) {
    return YFW_OK;
  }
  MappingContext::of(ctx).refuse(target,
                                 std::string("'") + target->value + "' differs from the list key that refers to it");
  return oclacp::host::kKeyDisagrees;
}
