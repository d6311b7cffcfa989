#include "host/module.h"

#include <dlfcn.h>

#include "host/refusal.h"

namespace oclacp::host {
namespace {

constexpr const char* kRequestWalker = "ymap_oq_oclacp_openconfiglacp_lvla_lacp";
constexpr const char* kRecordRegistration = "bag_register_all_bundlemgr_distrib_bags";

}  // namespace

void Module::Close::operator()(void* library) const {
  dlclose(library);
}

Module::Module(const std::string& file) {
  // A name without a slash would be searched in the system's folders.
  const std::string path = file.find('/') == std::string::npos ? "./" + file : file;
  library_.reset(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL));
  if (library_ == nullptr) {
    throw Refusal("the mapping module cannot be loaded: " + std::string(dlerror()));
  }
  request_walker_ = reinterpret_cast<Walker*>(dlsym(library_.get(), kRequestWalker));
  if (request_walker_ == nullptr) {
    throw Refusal(file + ": is no mapping module for openconfig-lacp");
  }
}

Module::RecordRegistration* Module::record_registration() const {
  return reinterpret_cast<RecordRegistration*>(dlsym(library_.get(), kRecordRegistration));
}

}  // namespace oclacp::host
