// A mapping module, loaded.
#pragma once

#include <memory>
#include <string>

#include "host/contract.h"

namespace oclacp::host {

// Loads a module's shared library for as long as this lives. The module's imports are resolved against this library, so
// the host must be in the process's global scope (the program is linked with it).
class Module {
 public:
  using Walker = cerrno(yfw_map_ctx ctx, const yfw_datatree* input, yfw_datatree* output);
  using RecordRegistration = cerrno();

  // `file` is a path. Throws Refusal when it cannot be loaded or is no such module.
  explicit Module(const std::string& file);

  // The entry walker for requests against /openconfig-lacp:lacp.
  [[nodiscard]] Walker* request_walker() const { return request_walker_; }

  // Registers the module's records; null when it has none.
  [[nodiscard]] RecordRegistration* record_registration() const;

 private:
  struct Close {
    void operator()(void* library) const;
  };

  std::unique_ptr<void, Close> library_;
  Walker* request_walker_;
};

}  // namespace oclacp::host
