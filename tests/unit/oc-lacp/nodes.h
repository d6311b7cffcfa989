// The nodes of openconfig-lacp and what serves them: what the tests of the tables go by. The rows are written here once
// more, from the models, and not taken from the module.
#pragma once

#include <string>
#include <vector>

#include "oclacp/openconfig_lacp.h"
#include "support/platform.h"

namespace nodes {

using NodeFunction = cerrno (*)(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
using ContainerFunction = cerrno (*)(yfw_map_ctx ctx, const yfw_datatree* in, unsigned int child_count,
                                     yfw_datatree* out);

// An exported function and its name.
template <typename Pointer>
struct Named {
  const char* name;
  Pointer function;
};

#define NODES_NAMED(NAME) \
  { #NAME, NAME }

enum class Kind {
  kConfig,       // copied to its target in an edit, asked for in a read
  kConfigValue,  // the same through a converter
  kState,        // asked for in a read
  kIgnored,      // nothing is done
  kUnsupported,  // refused
  kKey           // the key of an interface: several targets
};

struct Leaf {
  const char* path;
  Named<NodeFunction> walker;
  Named<NodeFunction> handler;
  Kind kind;
  const char* converter;  // null: the handler does it itself
  const char* target;     // null: none
  const char* ns;
  int last_flag;
};

// A container or list, with its children in the order in which their tags are tested; of a list, the key comes first.
struct Inner {
  const char* path;
  Named<NodeFunction> walker;
  Named<ContainerFunction> handler;
  Named<NodeFunction> augments;
  std::vector<const char*> children;
  const char* key = nullptr;
  bool refuses_delete_with_subtree = false;
};

// clang-format off

inline const Leaf kLeaves[] = {
    {"/lacp/config/system-priority", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_config_systempriority),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_config_systempriority), Kind::kConfig, nullptr,
        "/lacp/system-priority", support::kBundlemgrCfg, 0},
    {"/lacp/state/system-priority", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_systempriority),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_systempriority), Kind::kState, nullptr,
        "/lacp-data/global/system-id/system-id/system-prio", support::kBundlemgrOper, 0},
    {"/lacp/interfaces/interface/name", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_name),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_interface_name), Kind::kKey, nullptr,
        "/interface-configurations/interface-configuration/interface-name", support::kIfmgrCfg, 0},
    {"/lacp/interfaces/interface/config/name", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_config_name),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_config_name), Kind::kIgnored, "oc2qd_config_name_ignore",
        nullptr, nullptr, 0},
    {"/lacp/interfaces/interface/config/interval", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_config_interval),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_config_interval), Kind::kConfigValue, "oc2qd_cfginterval",
        "/interface-configurations/interface-configuration/lacp/period", support::kBundlemgrCfg, 1},
    {"/lacp/interfaces/interface/config/lacp-mode", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_config_lacpmode),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_config_lacpmode), Kind::kConfigValue, "oc2qd_cfglacpmode",
        "/interface-configurations/interface-configuration/lacp/mode", support::kBundlemgrCfg, 1},
    {"/lacp/interfaces/interface/config/system-id-mac", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_config_systemidmac),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_config_systemidmac), Kind::kConfigValue, "oc2qd_cfgsystemidmac",
        "/interface-configurations/interface-configuration/lacp/system-mac", support::kBundlemgrCfg, 1},
    {"/lacp/interfaces/interface/config/system-priority", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvlb_lacp_config_systempriority),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvlb_lacp_config_systempriority), Kind::kConfigValue, "oc2qd_intfcfgsystempriority",
        "/interface-configurations/interface-configuration/lacp/system-priority", support::kBundlemgrCfg, 1},
    {"/lacp/interfaces/interface/state/name", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_name),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_name), Kind::kState, nullptr,
        "/lacp-bundles/bundles/bundle/bundle-interface", support::kBundlemgrOper, 0},
    {"/lacp/interfaces/interface/state/interval", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_interval),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_interval), Kind::kUnsupported, nullptr,
        nullptr, nullptr, 0},
    {"/lacp/interfaces/interface/state/lacp-mode", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_lacpmode),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_lacpmode), Kind::kState, "oc2qd_appliedlacpmode",
        "/lacp-bundles/bundles/bundle/data/applied-lacp-mode", support::kBundlemgrOper, 1},
    {"/lacp/interfaces/interface/state/system-id-mac", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_systemidmac),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_systemidmac), Kind::kState, "oc2qd_statesystemidmac",
        "/lacp-bundles/bundles/bundle/data/bundle-system-id/system-mac-addr/macaddr", support::kBundlemgrOper, 0},
    {"/lacp/interfaces/interface/state/system-priority", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvlb_lacp_state_systempriority),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvlb_lacp_state_systempriority), Kind::kState, "oc2qd_intfstatesystempriority",
        "/lacp-bundles/bundles/bundle/data/bundle-system-id/system-prio", support::kBundlemgrOper, 0},
    {"/lacp/interfaces/interface/members/member/interface", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_member_interface),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_member_interface), Kind::kState, nullptr,
        "/lacp-bundles/bundles/bundle/members/member/member-interface", support::kBundlemgrOper, 0},
    {"/lacp/interfaces/interface/members/member/state/interface", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_interface),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_interface), Kind::kState, nullptr,
        "/lacp-bundles/bundles/bundle/members/member/member-interface", support::kBundlemgrOper, 0},
    {"/lacp/interfaces/interface/members/member/state/activity", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_activity),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_activity), Kind::kState, "oc2qd_actorportstate",
        "/lacp-bundles/bundles/bundle/members/member/link-data/actor-port-state", support::kBundlemgrOper, 0},
    {"/lacp/interfaces/interface/members/member/state/timeout", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_timeout),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_timeout), Kind::kState, "oc2qd_actorportstate",
        "/lacp-bundles/bundles/bundle/members/member/link-data/actor-port-state", support::kBundlemgrOper, 0},
    {"/lacp/interfaces/interface/members/member/state/synchronization", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_synchronization),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_synchronization), Kind::kState, "oc2qd_actorportstate",
        "/lacp-bundles/bundles/bundle/members/member/link-data/actor-port-state", support::kBundlemgrOper, 0},
    {"/lacp/interfaces/interface/members/member/state/aggregatable", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_aggregatable),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_aggregatable), Kind::kState, "oc2qd_actorportstate",
        "/lacp-bundles/bundles/bundle/members/member/link-data/actor-port-state", support::kBundlemgrOper, 0},
    {"/lacp/interfaces/interface/members/member/state/collecting", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_collecting),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_collecting), Kind::kState, "oc2qd_actorportstate",
        "/lacp-bundles/bundles/bundle/members/member/link-data/actor-port-state", support::kBundlemgrOper, 0},
    {"/lacp/interfaces/interface/members/member/state/distributing", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_distributing),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_distributing), Kind::kState, "oc2qd_actorportstate",
        "/lacp-bundles/bundles/bundle/members/member/link-data/actor-port-state", support::kBundlemgrOper, 0},
    {"/lacp/interfaces/interface/members/member/state/system-id", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_systemid),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_systemid), Kind::kState, nullptr,
        "/lacp-bundles/bundles/bundle/members/member/link-data/actor-system-mac-address", support::kBundlemgrOper, 0},
    {"/lacp/interfaces/interface/members/member/state/oper-key", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_operkey),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_operkey), Kind::kState, nullptr,
        "/lacp-bundles/bundles/bundle/members/member/link-data/actor-operational-key", support::kBundlemgrOper, 0},
    {"/lacp/interfaces/interface/members/member/state/partner-id", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_partnerid),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_partnerid), Kind::kState, nullptr,
        "/lacp-bundles/bundles/bundle/members/member/link-data/partner-system-mac-address", support::kBundlemgrOper, 0},
    {"/lacp/interfaces/interface/members/member/state/partner-key", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_partnerkey),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_partnerkey), Kind::kState, nullptr,
        "/lacp-bundles/bundles/bundle/members/member/link-data/partner-operational-key", support::kBundlemgrOper, 0},
    {"/lacp/interfaces/interface/members/member/state/port-num", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_portnum),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_portnum), Kind::kState, nullptr,
        "/lacp-bundles/bundles/bundle/members/member/link-data/actor-port-id", support::kBundlemgrOper, 0},
    {"/lacp/interfaces/interface/members/member/state/partner-port-num", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_partnerportnum),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_partnerportnum), Kind::kState, nullptr,
        "/lacp-bundles/bundles/bundle/members/member/link-data/partner-port-id", support::kBundlemgrOper, 0},
    {"/lacp/interfaces/interface/members/member/state/last-change", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_lastchange),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_lastchange), Kind::kState, nullptr,
        "/lacp-bundles/bundles/bundle/members/member/counters/last-change", support::kBundlemgrOper, 0},
    {"/lacp/interfaces/interface/members/member/state/counters/lacp-in-pkts", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_counters_lacpinpkts),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_counters_lacpinpkts), Kind::kState, nullptr,
        "/lacp-bundles/bundles/bundle/members/member/counters/lacpd-us-received", support::kBundlemgrOper, 0},
    {"/lacp/interfaces/interface/members/member/state/counters/lacp-out-pkts", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_counters_lacpoutpkts),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_counters_lacpoutpkts), Kind::kState, nullptr,
        "/lacp-bundles/bundles/bundle/members/member/counters/lacpd-us-transmitted", support::kBundlemgrOper, 0},
    {"/lacp/interfaces/interface/members/member/state/counters/lacp-rx-errors", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_counters_lacprxerrors),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_counters_lacprxerrors), Kind::kState, nullptr,
        "/lacp-bundles/bundles/bundle/members/member/counters/excess-lacpd-us-received", support::kBundlemgrOper, 0},
    {"/lacp/interfaces/interface/members/member/state/counters/lacp-tx-errors", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_counters_lacptxerrors),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_counters_lacptxerrors), Kind::kUnsupported, nullptr,
        nullptr, nullptr, 0},
    {"/lacp/interfaces/interface/members/member/state/counters/lacp-unknown-errors", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_counters_lacpunknownerrors),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_counters_lacpunknownerrors), Kind::kState, nullptr,
        "/lacp-bundles/bundles/bundle/members/member/counters/illegal-packets-received", support::kBundlemgrOper, 0},
    {"/lacp/interfaces/interface/members/member/state/counters/lacp-errors", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_counters_lacperrors),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_counters_lacperrors), Kind::kState, nullptr,
        "/lacp-bundles/bundles/bundle/members/member/counters/illegal-packets-received", support::kBundlemgrOper, 0},
    {"/lacp/interfaces/interface/members/member/state/counters/lacp-timeout-transitions", NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_counters_lacptimeouttransitions),
        NODES_NAMED(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_counters_lacptimeouttransitions), Kind::kState, nullptr,
        "/lacp-bundles/bundles/bundle/members/member/counters/lacp-timeout-transitions", support::kBundlemgrOper, 0},
};

inline const Inner kInner[] = {
    {.path = "/lacp",
        .walker = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp),
        .handler = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp),
        .augments = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_parse_augments),
        .children = {"config", "state", "interfaces"},
        .refuses_delete_with_subtree = true},
    {.path = "/lacp/config",
        .walker = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_config),
        .handler = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_config),
        .augments = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_config_parse_augments),
        .children = {"system-priority"},
        .refuses_delete_with_subtree = true},
    {.path = "/lacp/state",
        .walker = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state),
        .handler = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_state),
        .augments = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_parse_augments),
        .children = {"system-priority"}},
    {.path = "/lacp/interfaces",
        .walker = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_interfaces),
        .handler = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_interfaces),
        .augments = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_interfaces_parse_augments),
        .children = {"interface"},
        .refuses_delete_with_subtree = true},
    {.path = "/lacp/interfaces/interface",
        .walker = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_interfaces_interface),
        .handler = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_interfaces_interface),
        .augments = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_interfaces_interface_parse_augments),
        .children = {"name", "config", "state", "members"},
        .key = "name"},
    {.path = "/lacp/interfaces/interface/config",
        .walker = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_config),
        .handler = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_interface_config),
        .augments = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_config_parse_augments),
        .children = {"name", "interval", "lacp-mode", "system-id-mac", "system-priority"},
        .refuses_delete_with_subtree = true},
    {.path = "/lacp/interfaces/interface/state",
        .walker = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_state),
        .handler = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_interface_state),
        .augments = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_state_parse_augments),
        .children = {"name", "interval", "lacp-mode", "system-id-mac", "system-priority"}},
    {.path = "/lacp/interfaces/interface/members",
        .walker = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_members),
        .handler = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_interface_members),
        .augments = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_members_parse_augments),
        .children = {"member"}},
    {.path = "/lacp/interfaces/interface/members/member",
        .walker = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_members_member),
        .handler = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_members_member),
        .augments = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_members_member_parse_augments),
        .children = {"interface", "state"},
        .key = "interface"},
    {.path = "/lacp/interfaces/interface/members/member/state",
        .walker = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_member_state),
        .handler = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_member_state),
        .augments = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_member_state_parse_augments),
        .children = {"interface", "activity", "timeout", "synchronization", "aggregatable", "collecting",
            "distributing", "system-id", "oper-key", "partner-id", "partner-key", "port-num",
            "partner-port-num", "last-change", "counters"}},
    {.path = "/lacp/interfaces/interface/members/member/state/counters",
        .walker = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_counters),
        .handler = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_state_counters),
        .augments = NODES_NAMED(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_counters_parse_augments),
        .children = {"lacp-in-pkts", "lacp-out-pkts", "lacp-rx-errors", "lacp-tx-errors", "lacp-unknown-errors",
            "lacp-errors", "lacp-timeout-transitions"}},
};

// Functions that serve no node of their own, or more than one.
inline const Named<NodeFunction> kOthers[] = {
    NODES_NAMED(ymap_oq_oclacp_openconfiglacp_list_lvla_lacp_interfaces_interface),
    NODES_NAMED(ymap_oq_oclacp_openconfiglacp_list_lvla_lacp_members_member),
    NODES_NAMED(ymap_oq_oclacp_openconfiglacp_duck_map_leaf),
    NODES_NAMED(oc2qd_cfglacpmode),
    NODES_NAMED(oc2qd_cfginterval),
    NODES_NAMED(oc2qd_cfgsystemidmac),
    NODES_NAMED(oc2qd_intfcfgsystempriority),
    NODES_NAMED(oc2qd_config_name_ignore),
    NODES_NAMED(oc2qd_appliedlacpmode),
    NODES_NAMED(oc2qd_statesystemidmac),
    NODES_NAMED(oc2qd_intfstatesystempriority),
    NODES_NAMED(oc2qd_actorportstate),
    NODES_NAMED(oc_to_qd_all_lacp_cfg_delete),
    NODES_NAMED(delete_global_lacp),
    NODES_NAMED(oclacp_to_qd_bundle_lacp_config_delete),
};

// clang-format on

// Every function that checks its input node and output tree, and takes no child count.
inline std::vector<Named<NodeFunction>> node_functions() {
  std::vector<Named<NodeFunction>> functions(std::begin(kOthers), std::end(kOthers));
  for (const Leaf& leaf : kLeaves) functions.insert(functions.end(), {leaf.walker, leaf.handler});
  for (const Inner& inner : kInner) functions.insert(functions.end(), {inner.walker, inner.augments});
  return functions;
}

// Every function that also takes a child count.
inline std::vector<Named<ContainerFunction>> container_functions() {
  std::vector<Named<ContainerFunction>> functions = {NODES_NAMED(ymap_oq_oclacp_openconfiglacp_duck_map_container)};
  for (const Inner& inner : kInner) functions.push_back(inner.handler);
  return functions;
}

inline const Leaf* leaf_at(const std::string& path) {
  for (const Leaf& leaf : kLeaves) {
    if (leaf.path == path) return &leaf;
  }
  return nullptr;
}

// The walker of a node, be it a leaf or not.
inline const char* walker_at(const std::string& path) {
  if (const Leaf* leaf = leaf_at(path)) return leaf->walker.name;
  for (const Inner& inner : kInner) {
    if (inner.path == path) return inner.walker.name;
  }
  return "no such node";
}

// The last word of a path.
inline std::string tag_of(const std::string& path) {
  return path.substr(path.rfind('/') + 1);
}

}  // namespace nodes
