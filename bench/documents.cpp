#include "documents.h"

namespace bench {
namespace {

// So many entries, `mark` standing for the number of each.
std::string entries(std::size_t count, const std::string& entry, char mark = '#') {
  std::string text;
  for (std::size_t i = 1; i <= count; ++i) {
    if (i > 1) text += ',';
    for (const char character : entry) {
      if (character == mark) {
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

std::string operational_state(std::size_t bundles) {
  // '@' stands for the number of a member.
  const std::string member =
      R"({"member-interface": "GigabitEthernet0/0/#/@", "counters": {"lacpd-us-received": "12#",)"
      R"( "lacpd-us-transmitted": "34#", "illegal-packets-received": "0", "excess-lacpd-us-received": "#",)"
      R"( "last-change": "1763640000000000000", "lacp-timeout-transitions": "1"},)"
      R"( "link-data": {"actor-system-mac-address": "00:11:22:33:44:55", "actor-operational-key": #,)"
      R"( "partner-system-mac-address": "02:00:5e:10:20:30", "partner-operational-key": 7,)"
      R"( "actor-port-id": @, "partner-port-id": @, "actor-port-state": 61}})";
  return R"({"Talvo-Brin-QD-bundlemgr-oper:lacp-bundles": {"bundles": {"bundle": [)" +
         entries(bundles, R"({"bundle-interface": "Bundle-Ether#", "data": {"bundle-system-id": {)"
                          R"("system-mac-addr": {"macaddr": "00:11:22:33:44:55"}, "system-prio": 100},)"
                          R"( "applied-lacp-mode": "bmd-mode-active"}, "members": {"member": [)" +
                              entries(16, member, '@') + "]}}") +
         "]}}}";
}

}  // namespace bench
