#include "host/yang/data_check.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "host/base/error.h"
#include "host/base/interface_names.h"

namespace oclacp::host {
namespace {

constexpr std::string_view kPlatformModule = "oclacp-platform";

[[noreturn]] void refuse(const lyd_node* node, const std::string& where, const std::string& reason) {
  const std::unique_ptr<char, decltype(&std::free)> path(lyd_path(node, LYD_PATH_STD, nullptr, 0), &std::free);
  throw Error(where + path.get() + ": " + reason);
}

bool names_interface(const lyd_node* node) {
  static constexpr std::array<std::string_view, 4> kNames = {"interface-name", "bundle-interface", "member-interface",
                                                             "name"};
  return lysc_is_key(node->schema) && std::find(kNames.begin(), kNames.end(), node->schema->name) != kNames.end();
}

void check_node(const lyd_node* node, const std::string& where) {
  if (node->meta != nullptr) {
    refuse(node, where, std::string("carries the attribute '") + node->meta->name + "', which data has not");
  }
  if (names_interface(node) && std::strlen(lyd_get_value(node)) > kMaxInterfaceName) {
    refuse(node, where, kNameTooLong);
  }
}

}  // namespace

void check_data(const lyd_node* top, DataKind kind, const std::string& where) {
  for (; top != nullptr; top = top->next) {
    const bool is_platform = top->schema->module->name == kPlatformModule;
    // libyang adds the empty containers of every model.
    if (is_platform != (kind == DataKind::kPlatform) && (top->flags & LYD_DEFAULT) == 0) {
      refuse(top, where, is_platform ? "is no configuration or state" : "is no part of the description of a device");
    }
    if (kind == DataKind::kState && (top->schema->flags & LYS_CONFIG_W) != 0 && (top->flags & LYD_DEFAULT) == 0) {
      refuse(top, where, "is configuration, which state does not hold");
    }
    const lyd_node* node = nullptr;
    LYD_TREE_DFS_BEGIN(top, node) {
      check_node(node, where);
      LYD_TREE_DFS_END(top, node);
    }
  }
}

}  // namespace oclacp::host
