#include "host/translation/mapping_module.h"

#include <dlfcn.h>

#include <algorithm>
#include <utility>

#include "host/base/error.h"
#include "host/base/status_text.h"
#include "host/files/shared_library.h"
#include "host/services/current_device.h"

namespace oclacp::host {

void MappingModule::Close::operator()(void* library) const {
  dlclose(library);
}

template <typename Function>
Function* MappingModule::find(const std::string& name) const {
  auto* function = reinterpret_cast<Function*>(dlsym(library_.get(), name.c_str()));
  if (function == nullptr) {
    throw file_error(ErrorKind::kOperationFailed, manifest_.file,
                     "names the function " + name + ", which " + manifest_.library + " does not export");
  }
  return function;
}

MappingModule::MappingModule(ModuleManifest manifest) : manifest_(std::move(manifest)) {
  check_shared_library_is_whole(manifest_.library);
  library_.reset(dlopen(manifest_.library.c_str(), RTLD_NOW | RTLD_LOCAL));
  if (library_ == nullptr) {
    throw Error(ErrorKind::kOperationFailed, "the mapping module cannot be loaded: " + std::string(dlerror()),
                {.path = {}, .file = manifest_.library});
  }
  auto* initialise = find<cerrno()>(manifest_.initialisation);
  auto* clean_up = find<void()>(manifest_.cleanup);
  std::vector<void (*)(yfw_map_registration*)> fill;
  for (const std::string& name : manifest_.registrations) {
    fill.push_back(find<void(yfw_map_registration*)>(name));
  }
  // What was bound before an initialisation failed is unbound too.
  clean_up_.reset(clean_up);
  if (const cerrno status = initialise(); status != YFW_OK) {
    throw file_error(ErrorKind::kOperationFailed, manifest_.library,
                     std::string("the mapping module does not start: ") + status_text(status));
  }
  for (const auto& one : fill) {
    one(&registrations_.emplace_back());
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
                    ": the mapping module does not offer " + manifest_.schemas.published.front().name +
                    " on devices of this type");
  }
}

yfw_map_walker MappingModule::request_walker(std::string_view ns, std::string_view root) const {
  const auto found = std::find_if(registrations_.begin(), registrations_.end(), [&](const auto& registration) {
    return registration.openconfig_ns == ns && registration.openconfig_root == root;
  });
  return found == registrations_.end() ? nullptr : found->openconfig_walker;
}

yfw_map_walker MappingModule::native_walker(std::string_view ns, std::string_view root) const {
  const auto found = std::find_if(registrations_.begin(), registrations_.end(), [&](const auto& registration) {
    return registration.native_ns == ns && registration.native_root == root;
  });
  return found == registrations_.end() ? nullptr : found->native_walker;
}

std::optional<MappingModule::LeafTables> MappingModule::leaf_tables() const {
  if (!manifest_.leaf_tables) {
    return std::nullopt;
  }
  const auto table = [this](const std::string& name) { return find<oclacp_leaf_table()>(name)(); };
  return LeafTables{table(manifest_.leaf_tables->published), table(manifest_.leaf_tables->native_configuration),
                    table(manifest_.leaf_tables->native_state)};
}

MappingModule::RecordRegistration* MappingModule::record_registration() const {
  return manifest_.record_registration.empty() ? nullptr : find<RecordRegistration>(manifest_.record_registration);
}

}  // namespace oclacp::host
