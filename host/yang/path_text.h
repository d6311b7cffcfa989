// Paths as people and YANG tools write them.
#pragma once

#include <libyang/libyang.h>

#include <string>
#include <string_view>

namespace oclacp::host {

// Appends "/name", with the module's prefix when the node above is of another module.
inline void append_step(std::string& path, const lysc_node& schema, const lys_module* module_above) {
  path += '/';
  if (schema.module != module_above) {
    path += schema.module->name;
    path += ':';
  }
  path += schema.name;
}

// Appends "[key='value']".
inline void append_predicate(std::string& path, std::string_view key, std::string_view value) {
  const char quote = value.find('\'') == std::string_view::npos ? '\'' : '"';
  path.append("[").append(key).append("=").append(1, quote).append(value).append(1, quote).append("]");
}

}  // namespace oclacp::host
