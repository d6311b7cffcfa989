// The built module, loaded as a framework loads it. Loading it again after it was unloaded gives it fresh variables.
#pragma once

#include <string>

#include "yfw/context.h"
#include "yfw/datatree.h"

namespace support {

using NodeFunction = cerrno (*)(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

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

  // An exported function. A missing one ends the process.
  [[nodiscard]] NodeFunction function(const char* name) const;

 private:
  std::string file_;
  void* handle_;
};

}  // namespace support
