// A mapping module, loaded.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/base/contract.h"
#include "host/translation/module_manifest.h"
// Behind the contract, which it includes parts of.
#include "oclacp/leaves.h"

namespace oclacp::host {

// Loads a module's shared library, initialises it and takes its registrations; cleans it up and unloads it at the end.
// The module's imports are resolved against this library, so the host must be in the process's global scope (the
// program is linked with it). Made and destroyed on one thread.
class MappingModule {
 public:
  using RecordRegistration = cerrno();

  // Throws Error when it cannot be loaded, lacks a function that its manifest names, or does not start.
  explicit MappingModule(ModuleManifest manifest);

  [[nodiscard]] const ModuleManifest& manifest() const { return manifest_; }

  // Whether the module serves the platform type of the installed device (current_device.h).
  [[nodiscard]] bool is_offered() const;
  // Throws Error when it does not.
  void require_offer() const;

  // The entry walker for requests against a top node of a published model; null when the module serves no such node.
  [[nodiscard]] yfw_map_walker request_walker(std::string_view ns, std::string_view root) const;

  // The entry walker for the native tree below a top node; null when the module maps no such tree.
  [[nodiscard]] yfw_map_walker native_walker(std::string_view ns, std::string_view root) const;

  // The tables of its leaves, which live as long as this; nothing when the module has none.
  struct LeafTables {
    oclacp_leaf_table openconfig;
    oclacp_leaf_table native_configuration;
    oclacp_leaf_table native_operational;
  };
  [[nodiscard]] std::optional<LeafTables> leaf_tables() const;

  // Registers the module's records; null when it has none.
  [[nodiscard]] RecordRegistration* record_registration() const;

 private:
  struct Close {
    void operator()(void* library) const;
  };
  struct CleanUp {
    void operator()(void (*clean_up)()) const { clean_up(); }
  };

  // The function of a name in the manifest. Throws Error when the library has none.
  template <typename Function>
  Function* find(const std::string& name) const;

  ModuleManifest manifest_;
  // The cleanup function is called before the library is closed.
  std::unique_ptr<void, Close> library_;
  std::unique_ptr<void(), CleanUp> clean_up_;
  std::vector<yfw_map_registration> registrations_;
};

}  // namespace oclacp::host
