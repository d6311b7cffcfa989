#include "host/yang/piece_check.h"

#include <algorithm>
#include <functional>
#include <string_view>
#include <vector>

namespace oclacp::host {
namespace {

bool is_counted(const lysc_node* node) {
  if (node->nodetype == LYS_LEAFLIST) {
    const auto* list = reinterpret_cast<const lysc_node_leaflist*>(node);
    return list->min != 0 || list->max != UINT32_MAX;
  }
  const auto* list = reinterpret_cast<const lysc_node_list*>(node);
  return list->min != 0 || list->max != UINT32_MAX || list->uniques != nullptr;
}

bool is_plain(const lysc_node* node) {
  if (node->exts != nullptr || ((node->flags & LYS_MAND_TRUE) != 0 && !lysc_is_key(node))) {
    return false;
  }
  switch (node->nodetype) {
    case LYS_CONTAINER:
      return true;
    case LYS_LEAF:
      return reinterpret_cast<const lysc_node_leaf*>(node)->dflt == nullptr;
    case LYS_LEAFLIST:
      return reinterpret_cast<const lysc_node_leaflist*>(node)->dflts == nullptr && !is_counted(node);
    case LYS_LIST:
      return !is_counted(node);
    default:
      return false;
  }
}

LY_ERR find_other(lysc_node* node, void* found, ly_bool* /*skips_children*/) {
  *static_cast<bool*>(found) |= !is_plain(node);
  return LY_SUCCESS;
}

// Whether some of the entries from `first` on, of its list and beside each other, may have the same keys.
bool may_share_keys(const lyd_node* first) {
  if ((first->schema->flags & LYS_KEYLESS) != 0 || first->next == nullptr || first->next->schema != first->schema) {
    return false;
  }
  std::vector<size_t> hashes;
  for (const lyd_node* entry = first; entry != nullptr && entry->schema == first->schema; entry = entry->next) {
    hashes.push_back(hash_keys(entry));
  }
  return has_equal(hashes);
}

}  // namespace

bool is_valid_when_parsed(const lysc_node* list) {
  bool has_other = false;
  lysc_tree_dfs_full(list, find_other, &has_other);
  return !has_other;
}

size_t hash_keys(const lyd_node* entry) {
  size_t hash = 0;
  for (const lyd_node* key = lyd_child(entry); key != nullptr && lysc_is_key(key->schema); key = key->next) {
    hash = hash * 31 + std::hash<std::string_view>{}(lyd_get_value(key));
  }
  return hash;
}

bool has_equal(std::vector<size_t>& hashes) {
  std::sort(hashes.begin(), hashes.end());
  return std::adjacent_find(hashes.begin(), hashes.end()) != hashes.end();
}

bool may_be_doubled(const lyd_node* tops) {
  const lyd_node* before = nullptr;
  for (const lyd_node* node = tops; node != nullptr; node = node->next) {
    const bool is_first = before == nullptr || before->schema != node->schema;
    before = node;
    // A leaf-list of state may hold a value twice (RFC 7950, 7.7).
    const bool is_doubled = node->schema->nodetype == LYS_LIST ? is_first && may_share_keys(node)
                                                               : !is_first && node->schema->nodetype != LYS_LEAFLIST;
    if (is_doubled || may_be_doubled(lyd_child(node))) {
      return true;
    }
  }
  return false;
}

}  // namespace oclacp::host
