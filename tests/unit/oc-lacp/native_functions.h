// The exported functions of the native side, by what holds for all of a kind.
#pragma once

#include <iterator>
#include <string>
#include <vector>

#include "unit/oc-lacp/native_nodes.h"

namespace nodes {

// clang-format off

// Functions that serve no node of the tables.
inline const Named<NodeFunction> kOtherNative[] = {
    NODES_NAMED(qd_to_oc_interface_name_leaf_cb),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvla_interface_configuration),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvlb_interface_configuration),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvlc_interface_configuration),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvld_interface_configuration),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvle_interface_configuration),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvla_iccp_group),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_interface_configuration_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlb_interface_configuration_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlc_interface_configuration_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvld_interface_configuration_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvle_interface_configuration_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_iccp_group_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_man_leaf_lvla_bundlemember_id_portactivity),
    NODES_NAMED(qd2oc_cfglacpmode),
    NODES_NAMED(qd2oc_cfginterval),
    NODES_NAMED(qd2oc_intfcfgsystempriority),
    NODES_NAMED(qd2oc_cfgsystemidmac),
    NODES_NAMED(qd2oc_actorportstate),
    NODES_NAMED(qd2oc_lacpmode),
    NODES_NAMED(qd2oc_statesystemidmac),
    NODES_NAMED(qd2oc_intfstatesystempriority),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundlemembers_data_actorportstate),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_man_leaf_lvla_lacpbundlemembers_member_memberinterface),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundlemembers_member_memberinterface),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_duck_map_list),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_duck_map_leaf),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdifmgrcfg_list_lvla_interfaceconfigurations_interfaceconfiguration),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_list_lvla_lacpbundles_bundles_bundle),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_list_lvla_lacpbundles_members_member),
};

// Handlers without a look at their arguments.
inline const Named<NodeFunction> kUncheckedNative[] = {
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdifmgrcfg_duck_map_list),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdifmgrcfg_duck_map_leaf),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_list),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_leaf),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_leaf_lvla_bundle_lacpdelay),
};

// Walkers that are exported.
inline const Named<NodeFunction> kNativeWalkers[] = {
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_globalinterfaceconfiguration),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlb_bundle),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata),
};

// Hooks for children of other modules: those of configuration, then those of operational data.
inline const Named<NodeFunction> kConfigHooks[] = {
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_dampening_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_mtus_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_mtus_mtu_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_encapsulation_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_globalinterfaceconfiguration_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlb_lacp_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp_talvoextensions_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp_timeout_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlb_bundle_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_minimumactive_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_minimumactive_bandwidth_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_maximumactive_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_maximumactive_links_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_bundleloadbalancing_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_bundleloadbalancing_hashfunction_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundlemember_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundlemember_id_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_addressfamily_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_addressfamily_ipv4_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_ipv4_echo_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_ipv4_timers_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_addressfamily_ipv6_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_ipv6_ipv6timers_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_mlacp_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_mlacp_maximize_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlb_mlacp_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_parse_augments),
};
inline const Named<NodeFunction> kOperHooks[] = {
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundles_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundles_bundle_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundle_data_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_data_bundlesystemid_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundlesystemid_systemmacaddr_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundle_members_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_members_member_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_member_counters_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_member_linkdata_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_global_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_global_systemid_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_systemid_systemid_parse_augments),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_systemid_systemmacaddr_parse_augments),
};
inline const Named<NodeFunction> kDispatcher = NODES_NAMED(ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_parse_augments);

inline const Named<ContainerFunction> kNativeContainers[] = {
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdifmgrcfg_cont_lvla_interfaceconfigurations),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdifmgrcfg_duck_map_container),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_cont_lvla_lacp),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_cont_lvlb_lacp),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_cont_lvla_bfd),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_bundles),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_bundle_data),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_data_bundlesystemid),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_bundlesystemid_systemmacaddr),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_bundle_members),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_member_counters),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_member_linkdata),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata_global),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata_global_systemid),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata_systemid_systemid),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata_systemid_systemmacaddr),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_cont_lvla_lacp_talvoextensions),
    NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_duck_map_container),
};

// clang-format on

// Every native function that checks its input node and output tree, and takes no child count.
inline std::vector<Named<NodeFunction>> native_functions() {
  std::vector<Named<NodeFunction>> functions(std::begin(kOtherNative), std::end(kOtherNative));
  functions.push_back(kDispatcher);
  functions.insert(functions.end(), std::begin(kNativeWalkers), std::end(kNativeWalkers));
  functions.insert(functions.end(), std::begin(kConfigHooks), std::end(kConfigHooks));
  functions.insert(functions.end(), std::begin(kOperHooks), std::end(kOperHooks));
  for (const NativeLeaf& leaf : kNativeLeaves) {
    if (leaf.path != std::string("/bundle/lacp-delay")) functions.push_back(leaf.handler);
  }
  return functions;
}

}  // namespace nodes
