#include "support/module.h"

#include <dlfcn.h>

#include <cstdlib>
#include <iostream>
#include <iterator>
#include <type_traits>
#include <vector>

#include "support/registrations.h"

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

void* Module::address(const char* name) const {
  void* const symbol = dlsym(handle_, name);
  if (symbol == nullptr) refuse(dlerror());
  return symbol;
}

yfw_map_walker Module::entry_walker(const Node& root) const {
  std::vector<RegistrationFunction> functions;
  functions.reserve(std::size(kRegistrations));
  for (const char* name : kRegistrations)
    functions.push_back(symbol<std::remove_pointer_t<RegistrationFunction>>(name));
  return support::entry_walker(registered(functions), root);
}

}  // namespace support
