// A mapping module, loaded.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "host/base/contract.h"
// Behind the contract, which it includes parts of.
#include "oclacp/leaves.h"

namespace oclacp::host {

// Loads a module's shared library, initialises it and takes its registrations; cleans it up and unloads it at the end.
// The module's imports are resolved against this library, so the host must be in the process's global scope (the
// program is linked with it). Made and destroyed on one thread.
class MappingModule {
 public:
  using RecordRegistration = cerrno();

  // `file` is a path. Throws Error when it cannot be loaded, is no such module, or does not start.
  explicit MappingModule(const std::string& file);

  // Whether the module serves the platform type of the installed device (current_device.h).
  [[nodiscard]] bool is_offered() const;
  // Throws Error when it does not.
  void require_offer() const;

  // The entry walker for requests against /openconfig-lacp:lacp.
  [[nodiscard]] yfw_map_walker request_walker() const { return registrations_.front().openconfig_walker; }

  // The entry walker for the native tree below a top node; null when the module maps no such tree.
  [[nodiscard]] yfw_map_walker native_walker(std::string_view ns, std::string_view root) const;

  // The tables of its leaves; they live as long as this. Throws Error when the module has none.
  struct LeafTables {
    oclacp_leaf_table openconfig;
    oclacp_leaf_table native_configuration;
    oclacp_leaf_table native_operational;
  };
  [[nodiscard]] LeafTables leaf_tables() const;

  // Registers the module's records; null when it has none.
  [[nodiscard]] RecordRegistration* record_registration() const;

 private:
  struct Close {
    void operator()(void* library) const;
  };
  struct CleanUp {
    void operator()(void (*clean_up)()) const { clean_up(); }
  };

  template <typename Function>
  Function* find(const char* name) const;

  // The cleanup function is called before the library is closed.
  std::unique_ptr<void, Close> library_;
  std::unique_ptr<void(), CleanUp> clean_up_;
  std::array<yfw_map_registration, 4> registrations_{};
};

}  // namespace oclacp::host
