#include "host/translation/mapping_module.h"

#include <dlfcn.h>

#include <algorithm>

#include "host/base/error.h"
#include "host/base/status_text.h"
#include "host/files/shared_library.h"
#include "host/services/current_device.h"

namespace oclacp::host {
namespace {

constexpr std::array kRegistrations = {"yfw_map_reg_oclacp_lacpbundles_conf", "yfw_map_reg_oclacp_lacpbundles_oper",
                                       "yfw_map_reg_oclacp_lacpbundles_global_conf",
                                       "yfw_map_reg_oclacp_lacpglobaldata_oper"};
constexpr const char* kRecordRegistration = "bag_register_all_bundlemgr_distrib_bags";

}  // namespace

void MappingModule::Close::operator()(void* library) const {
  dlclose(library);
}

// Null when the library has no such function.
template <typename Function>
Function* MappingModule::find(const char* name) const {
  return reinterpret_cast<Function*>(dlsym(library_.get(), name));
}

MappingModule::MappingModule(const std::string& file) {
  // A name without a slash would be searched in the system's folders.
  const std::string path = file.find('/') == std::string::npos ? "./" + file : file;
  check_shared_library_is_whole(path);
  library_.reset(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL));
  if (library_ == nullptr) {
    throw Error(ErrorKind::kOperationFailed, "the mapping module cannot be loaded: " + std::string(dlerror()),
                {.path = {}, .file = file});
  }
  auto* initialise = find<cerrno()>("yfw_oclacp_init");
  auto* clean_up = find<void()>("yfw_oclacp_cleanup");
  std::array<void (*)(yfw_map_registration*), kRegistrations.size()> fill{};
  std::transform(kRegistrations.begin(), kRegistrations.end(), fill.begin(),
                 [this](const char* name) { return find<void(yfw_map_registration*)>(name); });
  if (initialise == nullptr || clean_up == nullptr || std::find(fill.begin(), fill.end(), nullptr) != fill.end()) {
    throw file_error(ErrorKind::kOperationFailed, file, "is not a mapping module for openconfig-lacp");
  }
  // What was bound before an initialisation failed is unbound too.
  clean_up_.reset(clean_up);
  if (const cerrno status = initialise(); status != YFW_OK) {
    throw file_error(ErrorKind::kOperationFailed, file,
                     std::string("the mapping module does not start: ") + status_text(status));
  }
  for (size_t index = 0; index < fill.size(); ++index) {
    fill[index](&registrations_[index]);
  }
}

bool MappingModule::is_offered() const {
  return std::none_of(registrations_.begin(), registrations_.end(), [](const yfw_map_registration& registration) {
    return registration.disables_mapping != nullptr && registration.disables_mapping(registration.openconfig_ns) != 0;
  });
}

void MappingModule::require_offer() const {
  if (!is_offered()) {
    const CurrentDevice* current = CurrentDevice::current();
    throw Error(ErrorKind::kOperationNotSupported,
                "platform type " + std::to_string(current == nullptr ? 0 : current->device().router_type()) +
                    ": the mapping module does not offer openconfig-lacp on devices of this type");
  }
}

yfw_map_walker MappingModule::native_walker(std::string_view ns, std::string_view root) const {
  const auto found = std::find_if(registrations_.begin(), registrations_.end(), [&](const auto& registration) {
    return registration.native_ns == ns && registration.native_root == root;
  });
  return found == registrations_.end() ? nullptr : found->native_walker;
}

MappingModule::LeafTables MappingModule::leaf_tables() const {
  const auto table = [this](const char* accessor) {
    auto* tell = find<oclacp_leaf_table()>(accessor);
    if (tell == nullptr) {
      throw Error(ErrorKind::kOperationFailed,
                  std::string("the mapping module exports no leaf table: it has no ") + accessor);
    }
    return tell();
  };
  return {table("oclacp_openconfig_leaves"), table("oclacp_native_configuration_leaves"),
          table("oclacp_native_operational_leaves")};
}

MappingModule::RecordRegistration* MappingModule::record_registration() const {
  return find<RecordRegistration>(kRecordRegistration);
}

}  // namespace oclacp::host
