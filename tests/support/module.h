// The built module, loaded as a framework loads it. Loading it again after it was unloaded gives it fresh variables.
#pragma once

#include <string>

#include "support/request.h"
#include "yfw/registration.h"

namespace support {

// The entry walker of requests against /lacp.
inline constexpr char kEntryWalker[] = "ymap_oq_oclacp_openconfiglacp_lvla_lacp";

class Module {
 public:
  // A file that cannot be loaded ends the process with the reason on stderr.
  explicit Module(const std::string& file);
  // Ends the process when something keeps the module loaded.
  ~Module();
  Module(const Module&) = delete;
  Module& operator=(const Module&) = delete;

  // An exported function or variable, by its address. A missing one ends the process.
  template <typename Type>
  [[nodiscard]] Type* symbol(const char* name) const {
    return reinterpret_cast<Type*>(address(name));
  }

  // The walker that the module registers for trees with this root. A root of no registration ends the process; there
  // must be no Platform yet.
  [[nodiscard]] yfw_map_walker entry_walker(const Node& root) const;

 private:
  [[nodiscard]] void* address(const char* name) const;

  std::string file_;
  void* handle_;
};

}  // namespace support
