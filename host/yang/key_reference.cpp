#include "host/yang/key_reference.h"

namespace oclacp::host {
namespace {

bool is_inside(const lysc_node* node, const lysc_node* list) {
  while (node != nullptr && node != list) {
    node = node->parent;
  }
  return node != nullptr;
}

}  // namespace

const lysc_node* leaf_of_key(const lysc_node* key) {
  const lysc_type* type = reinterpret_cast<const lysc_node_leaf*>(key)->type;
  if (type->basetype != LY_TYPE_LEAFREF) {
    return nullptr;
  }
  ly_set* found = nullptr;
  const char* path = lyxp_get_expr(reinterpret_cast<const lysc_type_leafref*>(type)->path);
  if (lys_find_xpath(key->module->ctx, key, path, 0, &found) != LY_SUCCESS) {
    return nullptr;
  }
  // The set has the nodes on the way as well.
  const lysc_node* leaf = nullptr;
  for (uint32_t index = 0; index < found->count; ++index) {
    const lysc_node* node = found->snodes[index];
    if ((node->nodetype & LYD_NODE_TERM) != 0 && node != key && is_inside(node, key->parent)) {
      leaf = node;
    }
  }
  ly_set_free(found, nullptr);
  return leaf;
}

}  // namespace oclacp::host
