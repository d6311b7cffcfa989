#include "host/yang/data_nodes.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <new>

namespace oclacp::host {

const lyd_node* child_named(const lyd_node* above, std::string_view name) {
  const lyd_node* child = lyd_child(above);
  while (child != nullptr && (child->schema == nullptr || name != child->schema->name)) {
    child = child->next;
  }
  return child;
}

std::string data_path(const lyd_node* node) {
  const std::unique_ptr<char, decltype(&std::free)> path(lyd_path(node, LYD_PATH_STD, nullptr, 0), &std::free);
  if (path == nullptr) {
    throw std::bad_alloc();
  }
  return path.get();
}

// By values and not by predicates, which cannot be written for a value with both sorts of quotes. libyang takes as many
// of the arguments as the list has keys.
LY_ERR make_list_entry(lyd_node* above, const lysc_node* list, std::span<const std::string_view> keys,
                       lyd_node*& made) {
  std::array<const char*, kMaxKeys> values{};
  if (keys.size() > values.size()) {
    return LY_EINVAL;
  }
  std::transform(keys.begin(), keys.end(), values.begin(), [](std::string_view key) { return key.data(); });
  static_assert(kMaxKeys == 8);
  return lyd_new_list(above, list->module, list->name, 0, &made, values[0], values[1], values[2], values[3], values[4],
                      values[5], values[6], values[7]);
}

}  // namespace oclacp::host
