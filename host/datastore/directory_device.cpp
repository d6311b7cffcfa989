#include "host/datastore/directory_device.h"

#include <cstring>
#include <filesystem>
#include <string_view>

#include "host/refusal.h"
#include "host/text_file.h"

namespace oclacp::host {
namespace {

TreePtr read_tree(const ly_ctx* context, const std::string& file) {
  const std::string text = read_text_file(file);
  lyd_node* tree = nullptr;
  if (lyd_parse_data_mem(context, text.c_str(), LYD_JSON, LYD_PARSE_STRICT, LYD_VALIDATE_NO_STATE, &tree) !=
      LY_SUCCESS) {
    throw Refusal(file + ": " + last_complaint(context, "not usable"));
  }
  return TreePtr(tree);
}

InterfaceType interface_type(std::string_view text) {
  if (text == "physical") {
    return InterfaceType::kPhysical;
  }
  return text == "bundle" ? InterfaceType::kBundle : InterfaceType::kVirtual;
}

}  // namespace

DirectoryDevice::DirectoryDevice(const ly_ctx* native, const std::string& directory) {
  if (!std::filesystem::is_directory(directory)) {
    throw Refusal(directory + ": no such device directory");
  }
  read_platform(native, directory + "/platform.json");
  running_ = read_tree(native, directory + "/running.json");
}

void DirectoryDevice::read_platform(const ly_ctx* native, const std::string& file) {
  const TreePtr tree = read_tree(native, file);
  const lys_module* module = ly_ctx_get_module_implemented(native, "oclacp-platform");
  const lyd_node* platform = tree.get();
  while (platform != nullptr && platform->schema->module != module) {
    platform = platform->next;
  }
  if (platform == nullptr) {
    throw Refusal(file + ": describes no platform");
  }
  for (const lyd_node* child = lyd_child(platform); child != nullptr; child = child->next) {
    if (std::strcmp(child->schema->name, "router-type") == 0) {
      router_type_ = reinterpret_cast<const lyd_node_term*>(child)->value.uint32;
    } else {
      const lyd_node* name = lyd_child(child);
      interfaces_.push_back({lyd_get_value(name), interface_type(lyd_get_value(name->next))});
    }
  }
}

}  // namespace oclacp::host
