#include "host/devices/directory_device.h"

#include <cstring>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "host/base/error.h"
#include "host/files/read_file.h"
#include "host/yang/data_check.h"
#include "host/yang/document_check.h"

namespace oclacp::host {
namespace {

// Why a text is not taken. While libyang reads a text it names a node without what is around it yet, if it complains of
// more than the node itself; of a tree that it has read as it is, it knows all.
std::string complaint_of(const ly_ctx* context, const std::string& text, uint32_t validation) {
  std::string complaint = last_complaint(context, "not usable");
  lyd_node* tree = nullptr;
  if (lyd_parse_data_mem(context, text.c_str(), LYD_JSON, LYD_PARSE_STRICT | LYD_PARSE_ONLY, 0, &tree) == LY_SUCCESS &&
      lyd_validate_all(&tree, context, validation, nullptr) != LY_SUCCESS) {
    complaint = last_complaint(context, "not usable");
  }
  lyd_free_all(tree);
  return complaint;
}

// `validation`: libyang's options for it.
TreePtr parse_tree(const ly_ctx* context, const std::string& file, const std::string& text, uint32_t validation,
                   DataKind kind) {
  // libyang takes an empty file for an empty configuration and does not look behind the end of a document.
  check_json_document(text, file);
  lyd_node* tree = nullptr;
  if (lyd_parse_data_mem(context, text.c_str(), LYD_JSON, LYD_PARSE_STRICT, validation, &tree) != LY_SUCCESS) {
    throw Error(file + ": " + complaint_of(context, text, validation));
  }
  TreePtr data(tree);
  check_data(tree, kind, file + ": ");
  return data;
}

TreePtr read_configuration(const ly_ctx* context, const std::string& file, DataKind kind) {
  return parse_tree(context, file, read_regular_file(file), LYD_VALIDATE_NO_STATE, kind);
}

InterfaceType interface_type(std::string_view text) {
  if (text == "physical") {
    return InterfaceType::kPhysical;
  }
  return text == "bundle" ? InterfaceType::kBundle : InterfaceType::kVirtual;
}

}  // namespace

DirectoryDevice::DirectoryDevice(const ly_ctx* native, const std::string& directory)
    : native_(native), directory_(directory) {
  std::error_code trouble;
  if (!std::filesystem::is_directory(directory, trouble)) {
    const bool is_hidden = trouble == std::errc::permission_denied;
    throw Error(directory + (is_hidden ? ": " + trouble.message() : ": no such device directory"));
  }
  read_platform(native, directory + "/platform.json");
  running_ = read_configuration(native, directory + "/running.json", DataKind::kNative);
}

const lyd_node* DirectoryDevice::operational() const {
  if (!operational_) {
    const std::string file = directory_ + "/operational.json";
    operational_ = parse_tree(native_, file, read_stable_file(file), LYD_VALIDATE_PRESENT, DataKind::kState);
  }
  return operational_->get();
}

std::string DirectoryDevice::normalized_value(const lysc_node& leaf, std::string_view value) const {
  const bool is_period =
      std::strcmp(leaf.module->name, "Talvo-Brin-QD-bundlemgr-cfg") == 0 && std::strcmp(leaf.name, "period") == 0;
  return has_canonical_period_ && is_period && value == "1" ? "true" : std::string(value);
}

void DirectoryDevice::read_platform(const ly_ctx* native, const std::string& file) {
  const TreePtr tree = read_configuration(native, file, DataKind::kPlatform);
  const lys_module* module = ly_ctx_get_module_implemented(native, "oclacp-platform");
  const lyd_node* platform = tree.get();
  while (platform != nullptr && platform->schema->module != module) {
    platform = platform->next;
  }
  if (platform == nullptr) {
    throw Error(file + ": describes no platform");
  }
  for (const lyd_node* child = lyd_child(platform); child != nullptr; child = child->next) {
    const std::string_view tag = child->schema->name;
    if (tag == "router-type") {
      router_type_ = reinterpret_cast<const lyd_node_term*>(child)->value.uint32;
    } else if (tag == "period") {
      has_canonical_period_ = std::strcmp(lyd_get_value(child), "canonical") == 0;
    } else {
      const lyd_node* name = lyd_child(child);
      interfaces_.push_back({lyd_get_value(name), interface_type(lyd_get_value(name->next))});
    }
  }
}

}  // namespace oclacp::host
