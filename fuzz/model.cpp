#include "model.h"

#include <algorithm>
#include <string_view>

#include "support/platform.h"

using support::kBundlemgrCfg;
using support::kBundlemgrOper;
using support::kIfmgrCfg;
using support::kOpenconfigLacp;

namespace fuzz {
namespace {

// Longer than the buffers for a name, the interface-name scratch buffer and a trace record.
constexpr char kLongValue[] =
    "a value that is longer than every buffer of the module, the sixty-four bytes of a name, the two hundred of the "
    "scratch buffer and the two hundred and fifty of a trace record, whichever of them it should ever be copied into; "
    "it goes on for a while, and then it ends here, somewhat later than that";

// 63 characters fit into the interface manager's buffers, 64 and more do not.
constexpr const char* kOpenconfigValues[] = {nullptr,
                                             "",
                                             "FAST",
                                             "SLOW",
                                             "ACTIVE",
                                             "PASSIVE",
                                             "100",
                                             "00:11:22:33:44:55",
                                             "Bundle-Ether1",
                                             "Bundle-Ether10",
                                             "GigabitEthernet0/0/0/1",
                                             "Bundle-Ether1.100",
                                             "%s%n%p",
                                             "////////////////////////////////////////////////////////////////",
                                             "GigabitEthernet0/0/0/0123456789012345678901234567890123456789012",
                                             kLongValue};

constexpr const char* kNativeValues[] = {nullptr,
                                         "",
                                         "act",
                                         "pre",
                                         "on",
                                         "active",
                                         "true",
                                         "1000",
                                         "30000",
                                         "200",
                                         "bmd-mode-active",
                                         "bmd-mode-passive",
                                         "61",
                                         "-99999999999999999999",
                                         "00:11:22:33:44:55",
                                         "Bundle-Ether1",
                                         "GigabitEthernet0/0/0/1",
                                         "Bundle-Ether1.100",
                                         "MgmtEth0/0/0/0",
                                         "%s%n%p",
                                         kLongValue};

}  // namespace

const ModelNode* Model::find(const char* tag) const {
  const auto found = std::find_if(nodes.begin(), nodes.end(), [tag](const ModelNode& node) {
    return tag != nullptr && std::string_view(node.tag) == tag;
  });
  return found == nodes.end() ? nullptr : &*found;
}

const Model& openconfig_model() {
  static const Model model = {
      .root = "lacp",
      .ns = kOpenconfigLacp,
      .nodes = {{"lacp", kOpenconfigLacp, {"config", "state", "interfaces"}},
                {"interfaces", kOpenconfigLacp, {"interface"}},
                {"interface", kOpenconfigLacp, {"name", "config", "state", "members"}},
                {"config", kOpenconfigLacp, {"name", "interval", "lacp-mode", "system-id-mac", "system-priority"}},
                {"members", kOpenconfigLacp, {"member"}},
                {"member", kOpenconfigLacp, {"interface", "state"}},
                {"state",
                 kOpenconfigLacp,
                 {"name",        "interval",     "lacp-mode",        "system-id-mac",   "system-priority",
                  "interface",   "activity",     "timeout",          "synchronization", "aggregatable",
                  "collecting",  "distributing", "system-id",        "oper-key",        "partner-id",
                  "partner-key", "port-num",     "partner-port-num", "last-change",     "counters"}},
                {"counters",
                 kOpenconfigLacp,
                 {"lacp-in-pkts", "lacp-out-pkts", "lacp-rx-errors", "lacp-tx-errors", "lacp-unknown-errors",
                  "lacp-errors", "lacp-timeout-transitions"}}},
      .values = kOpenconfigValues};
  return model;
}

const Model& interface_configuration_model() {
  static const Model model = {
      .root = "interface-configurations",
      .ns = kIfmgrCfg,
      .nodes = {{"interface-configurations", kIfmgrCfg, {"interface-configuration"}},
                {"interface-configuration",
                 kIfmgrCfg,
                 {"active", "interface-name", "lacp", "bundle", "mtus", "dampening", "encapsulation", "bundle-member",
                  "bfd", "mlacp", "description"}},
                {"mtus", kIfmgrCfg, {"mtu"}},
                {"mtu", kIfmgrCfg, {"owner", "mtu"}},
                {"dampening", kIfmgrCfg, {"half-life"}},
                {"encapsulation", kIfmgrCfg, {"encapsulation"}},
                {"lacp",
                 kBundlemgrCfg,
                 {"mode", "period", "system-priority", "system-mac", "talvo-extensions", "timeout"}},
                {"talvo-extensions", kBundlemgrCfg, {"enable"}},
                {"timeout", kBundlemgrCfg, {"expected"}},
                {"bundle", kBundlemgrCfg, {"minimum-active", "maximum-active", "bundle-load-balancing"}},
                {"minimum-active", kBundlemgrCfg, {"bandwidth", "links"}},
                {"maximum-active", kBundlemgrCfg, {"links"}},
                {"bundle-load-balancing", kBundlemgrCfg, {"hash-function"}},
                {"hash-function", kBundlemgrCfg, {"hash-type"}},
                {"bundle-member", kBundlemgrCfg, {"id"}},
                {"id", kBundlemgrCfg, {"bundle-id", "port-activity"}},
                {"bfd", kBundlemgrCfg, {"address-family"}},
                {"mlacp", kBundlemgrCfg, {"maximize"}}},
      .values = kNativeValues};
  return model;
}

const Model& global_configuration_model() {
  static const Model model = {.root = "lacp",
                              .ns = kBundlemgrCfg,
                              .nodes = {{"lacp", kBundlemgrCfg, {"system-priority", "other"}}},
                              .values = kNativeValues};
  return model;
}

const Model& bundles_model() {
  static const Model model = {
      .root = "lacp-bundles",
      .ns = kBundlemgrOper,
      .nodes = {{"lacp-bundles", kBundlemgrOper, {"bundles"}},
                {"bundles", kBundlemgrOper, {"bundle"}},
                {"bundle", kBundlemgrOper, {"bundle-interface", "data", "members"}},
                {"data", kBundlemgrOper, {"applied-lacp-mode", "bundle-system-id"}},
                {"bundle-system-id", kBundlemgrOper, {"system-mac-addr", "system-prio"}},
                {"system-mac-addr", kBundlemgrOper, {"macaddr"}},
                {"members", kBundlemgrOper, {"member"}},
                {"member", kBundlemgrOper, {"member-interface", "counters", "link-data"}},
                {"counters",
                 kBundlemgrOper,
                 {"lacpd-us-received", "lacpd-us-transmitted", "illegal-packets-received", "excess-lacpd-us-received",
                  "last-change", "lacp-timeout-transitions"}},
                {"link-data",
                 kBundlemgrOper,
                 {"actor-system-mac-address", "actor-operational-key", "partner-system-mac-address",
                  "partner-operational-key", "actor-port-id", "partner-port-id", "actor-port-state"}}},
      .values = kNativeValues};
  return model;
}

const Model& device_identity_model() {
  static const Model model = {.root = "lacp-data",
                              .ns = kBundlemgrOper,
                              .nodes = {{"lacp-data", kBundlemgrOper, {"global"}},
                                        {"global", kBundlemgrOper, {"system-id"}},
                                        {"system-id", kBundlemgrOper, {"system-id", "system-mac-addr", "system-prio"}},
                                        {"system-mac-addr", kBundlemgrOper, {"macaddr"}}},
                              .values = kNativeValues};
  return model;
}

}  // namespace fuzz
