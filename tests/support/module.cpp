#include "support/module.h"

#include <dlfcn.h>

#include <cstdlib>
#include <iostream>

namespace support {
namespace {

[[noreturn]] void refuse(const char* reason) {
  std::cerr << reason << "\n";
  std::exit(2);
}

}  // namespace

Module::Module(const std::string& file) : file_(file), handle_(dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL)) {
  if (handle_ == nullptr) refuse(dlerror());
}

Module::~Module() {
  dlclose(handle_);
  if (dlopen(file_.c_str(), RTLD_NOW | RTLD_NOLOAD) != nullptr) refuse("the module stays loaded");
}

NodeFunction Module::function(const char* name) const {
  void* const symbol = dlsym(handle_, name);
  if (symbol == nullptr) refuse(dlerror());
  return reinterpret_cast<NodeFunction>(symbol);
}

}  // namespace support
