#include "host/yang/data_check.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "host/base/error.h"
#include "host/base/interface_names.h"
#include "host/yang/data_nodes.h"

namespace oclacp::host {
namespace {

constexpr std::string_view kPlatformModule = "oclacp-platform";

[[noreturn]] void refuse(ErrorKind kind, const lyd_node* node, const std::string& file, const std::string& reason) {
  throw Error(kind, (file.empty() ? "" : file + ": ") + data_path(node) + ": " + reason,
              {.path = data_path(node), .file = file});
}

bool names_interface(const lyd_node* node) {
  static constexpr std::array<std::string_view, 4> kNames = {"interface-name", "bundle-interface", "member-interface",
                                                             "name"};
  return lysc_is_key(node->schema) && std::find(kNames.begin(), kNames.end(), node->schema->name) != kNames.end();
}

void check_node(const lyd_node* node, const std::string& file) {
  if (node->meta != nullptr) {
    refuse(ErrorKind::kUnknownAttribute, node, file,
           std::string("carries the attribute '") + node->meta->name + "', which data has not");
  }
  if (names_interface(node) && std::strlen(lyd_get_value(node)) > kMaxInterfaceName) {
    refuse(ErrorKind::kInvalidValue, node, file, kNameTooLong);
  }
}

}  // namespace

void check_data(const lyd_node* top, DataKind kind, const std::string& file) {
  for (; top != nullptr; top = top->next) {
    const bool is_platform = top->schema->module->name == kPlatformModule;
    // libyang adds the empty containers of every model.
    if (is_platform != (kind == DataKind::kPlatform) && is_explicit(top)) {
      refuse(ErrorKind::kBadElement, top, file,
             is_platform ? "is neither configuration nor state" : "is not part of the description of a device");
    }
    if (kind == DataKind::kState && (top->schema->flags & LYS_CONFIG_W) != 0 && is_explicit(top)) {
      refuse(ErrorKind::kBadElement, top, file, "is configuration, which state does not hold");
    }
    const lyd_node* node = nullptr;
    LYD_TREE_DFS_BEGIN(top, node) {
      check_node(node, file);
      LYD_TREE_DFS_END(top, node);
    }
  }
}

}  // namespace oclacp::host
