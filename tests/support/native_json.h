// Native configuration of interfaces in JSON.
#pragma once

#include <string>

namespace support {

// An entry with LACP; `lacp` are the members of its container, `more` those of the entry.
inline std::string native_entry(const std::string& name, const std::string& lacp, const std::string& more = "") {
  return R"({"active": "act", "interface-name": ")" + name + "\"" + (more.empty() ? "" : ", " + more) +
         R"(, "Talvo-Brin-QD-bundlemgr-cfg:lacp": {)" + lacp + "}}";
}

// A document; `entries` are those of its list, `more` further top nodes with a comma in front.
inline std::string native_interfaces(const std::string& entries, const std::string& more = "") {
  return R"({"Talvo-Brin-QD-ifmgr-cfg:interface-configurations": {"interface-configuration": [)" + entries + "]}" +
         more + "}";
}

}  // namespace support
