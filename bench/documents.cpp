#include "documents.h"

namespace bench {
namespace {

// One entry for each interface, '#' standing for its number.
std::string entries(std::size_t interfaces, const std::string& entry) {
  std::string text;
  for (std::size_t i = 1; i <= interfaces; ++i) {
    if (i > 1) text += ',';
    for (const char character : entry) {
      if (character == '#') {
        text += std::to_string(i);
      } else {
        text += character;
      }
    }
  }
  return text;
}

}  // namespace

std::string create_request(std::size_t interfaces) {
  return R"({"openconfig-lacp:lacp": {"interfaces": {"interface": [)" +
         entries(interfaces, R"({"name": "Bundle-Ether#", "config": {"name": "Bundle-Ether#", "interval": "FAST",)"
                             R"( "lacp-mode": "ACTIVE", "system-id-mac": "00:11:22:33:44:55",)"
                             R"( "system-priority": 100}})") +
         "]}}}";
}

std::string delete_request() {
  return R"({"openconfig-lacp:lacp": {"@": {"ietf-netconf:operation": "delete"}}})";
}

std::string running_configuration(std::size_t interfaces) {
  return R"({"Talvo-Brin-QD-ifmgr-cfg:interface-configurations": {"interface-configuration": [)" +
         entries(interfaces, R"({"active": "act", "interface-name": "Bundle-Ether#", "interface-virtual": [null],)"
                             R"( "Talvo-Brin-QD-bundlemgr-cfg:lacp": {"mode": "active", "period": 1000}})") +
         "]}}";
}

std::string full_running_configuration(std::size_t interfaces) {
  return R"({"Talvo-Brin-QD-ifmgr-cfg:interface-configurations": {"interface-configuration": [)" +
         entries(interfaces, R"({"active": "act", "interface-name": "Bundle-Ether#", "interface-virtual": [null],)"
                             R"( "Talvo-Brin-QD-bundlemgr-cfg:lacp": {"mode": "active", "period": 1000,)"
                             R"( "system-priority": 100, "system-mac": "00:11:22:33:44:55"}})") +
         "]}}";
}

}  // namespace bench
