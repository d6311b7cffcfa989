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

inline bool has_both_quotes(std::string_view value) {
  return value.find('\'') != std::string_view::npos && value.find('"') != std::string_view::npos;
}

// Appends "[key='value']". XPath 1.0 has no escapes: a value with both quotes is put together, "concat('a', "'",
// '"b')".
void append_predicate(std::string& path, std::string_view key, std::string_view value);

}  // namespace oclacp::host
