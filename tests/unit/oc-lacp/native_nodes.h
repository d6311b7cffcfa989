// The native nodes and what serves them: what the tests of the native tables go by. The rows are written here once
// more, from the models, and not taken from the module.
#pragma once

#include <string>
#include <vector>

#include "oclacp/native_config.h"
#include "oclacp/native_oper.h"
#include "support/platform.h"
#include "unit/oc-lacp/nodes.h"

namespace nodes {

// A container or list entry. It is reached from an exported walker, the entry, whose own node is the first of the path.
struct NativeInner {
  const char* path;
  NodeFunction entry;
  const char* ns;
  const char* walker;   // under which name it is walked
  const char* handler;  // of the container or list
  const char* augments;
  std::vector<const char*> children;  // in the order in which their tags are tested
  std::vector<const char*> keys = {};
};

// A leaf, with the OpenConfig leaves that it is reported to in a read of operational state.
struct NativeLeaf {
  const char* path;
  Named<NodeFunction> handler;
  const char* converter;  // null: the handler does it itself
  std::vector<const char*> targets;
  int list_flag = 0;
  int last_flag = 0;
};

// clang-format off

inline const NativeInner kNativeInner[] = {
    {.path = "/interface-configurations",
        .entry = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations, .ns = support::kIfmgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations",
        .handler = "ymap_qo_oclacp_talvobrinqdifmgrcfg_cont_lvla_interfaceconfigurations",
        .augments = "ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_parse_augments",
        .children = {"interface-configuration"}},
    {.path = "/interface-configurations/interface-configuration",
        .entry = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations, .ns = support::kIfmgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration",
        .handler = "ymap_qo_oclacp_talvobrinqdifmgrcfg_list_lvla_interfaceconfigurations_interfaceconfiguration",
        .augments = "ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_parse_augments",
        .children = {"dampening", "mtus", "encapsulation", "interface-name"}, .keys = {"active", "interface-name"}},
    {.path = "/interface-configurations/interface-configuration/dampening",
        .entry = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations, .ns = support::kIfmgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_dampening",
        .handler = "ymap_qo_oclacp_talvobrinqdifmgrcfg_duck_map_container",
        .augments = "ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_dampening_parse_augments",
        .children = {}},
    {.path = "/interface-configurations/interface-configuration/mtus",
        .entry = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations, .ns = support::kIfmgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_mtus",
        .handler = "ymap_qo_oclacp_talvobrinqdifmgrcfg_duck_map_container",
        .augments = "ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_mtus_parse_augments",
        .children = {"mtu"}},
    {.path = "/interface-configurations/interface-configuration/mtus/mtu",
        .entry = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations, .ns = support::kIfmgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_mtus_mtu",
        .handler = "ymap_qo_oclacp_talvobrinqdifmgrcfg_duck_map_list",
        .augments = "ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_mtus_mtu_parse_augments",
        .children = {}, .keys = {"owner"}},
    {.path = "/interface-configurations/interface-configuration/encapsulation",
        .entry = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations, .ns = support::kIfmgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_encapsulation",
        .handler = "ymap_qo_oclacp_talvobrinqdifmgrcfg_duck_map_container",
        .augments = "ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_encapsulation_parse_augments",
        .children = {}},
    {.path = "/global-interface-configuration",
        .entry = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_globalinterfaceconfiguration, .ns = support::kIfmgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_globalinterfaceconfiguration",
        .handler = "ymap_qo_oclacp_talvobrinqdifmgrcfg_duck_map_container",
        .augments = "ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_globalinterfaceconfiguration_parse_augments",
        .children = {}},
    {.path = "/lacp",
        .entry = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp, .ns = support::kBundlemgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_cont_lvla_lacp",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp_parse_augments",
        .children = {"system-priority"}},
    {.path = "/interface-configurations/interface-configuration/lacp",
        .entry = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations, .ns = support::kBundlemgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlb_lacp",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_cont_lvlb_lacp",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlb_lacp_parse_augments",
        .children = {"mode", "period", "system-priority", "system-mac", "talvo-extensions", "timeout"}},
    {.path = "/interface-configurations/interface-configuration/lacp/talvo-extensions",
        .entry = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations, .ns = support::kBundlemgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp_talvoextensions",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp_talvoextensions_parse_augments",
        .children = {}},
    {.path = "/interface-configurations/interface-configuration/lacp/timeout",
        .entry = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations, .ns = support::kBundlemgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp_timeout",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp_timeout_parse_augments",
        .children = {}},
    {.path = "/interface-configurations/interface-configuration/bundle",
        .entry = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations, .ns = support::kBundlemgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlb_bundle",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlb_bundle_parse_augments",
        .children = {"minimum-active", "maximum-active", "bundle-load-balancing"}},
    {.path = "/interface-configurations/interface-configuration/bundle/minimum-active",
        .entry = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations, .ns = support::kBundlemgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_minimumactive",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_minimumactive_parse_augments",
        .children = {"bandwidth"}},
    {.path = "/interface-configurations/interface-configuration/bundle/minimum-active/bandwidth",
        .entry = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations, .ns = support::kBundlemgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_minimumactive_bandwidth",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_minimumactive_bandwidth_parse_augments",
        .children = {}},
    {.path = "/interface-configurations/interface-configuration/bundle/maximum-active",
        .entry = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations, .ns = support::kBundlemgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_maximumactive",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_maximumactive_parse_augments",
        .children = {"links"}},
    {.path = "/interface-configurations/interface-configuration/bundle/maximum-active/links",
        .entry = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations, .ns = support::kBundlemgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_maximumactive_links",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_maximumactive_links_parse_augments",
        .children = {}},
    {.path = "/interface-configurations/interface-configuration/bundle/bundle-load-balancing",
        .entry = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations, .ns = support::kBundlemgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_bundleloadbalancing",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_bundleloadbalancing_parse_augments",
        .children = {"hash-function"}},
    {.path = "/interface-configurations/interface-configuration/bundle/bundle-load-balancing/hash-function",
        .entry = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations, .ns = support::kBundlemgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_bundleloadbalancing_hashfunction",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_bundleloadbalancing_hashfunction_parse_augments",
        .children = {}},
    {.path = "/interface-configurations/interface-configuration/bundle-member",
        .entry = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations, .ns = support::kBundlemgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundlemember",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundlemember_parse_augments",
        .children = {"id"}},
    {.path = "/interface-configurations/interface-configuration/bundle-member/id",
        .entry = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations, .ns = support::kBundlemgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundlemember_id",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundlemember_id_parse_augments",
        .children = {}},
    {.path = "/bfd",
        .entry = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvla_interface_configuration, .ns = support::kBundlemgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_parse_augments",
        .children = {"address-family"}},
    {.path = "/bfd/address-family",
        .entry = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvla_interface_configuration, .ns = support::kBundlemgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_addressfamily",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_addressfamily_parse_augments",
        .children = {"ipv4", "ipv6"}},
    {.path = "/bfd/address-family/ipv4",
        .entry = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvla_interface_configuration, .ns = support::kBundlemgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_addressfamily_ipv4",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_addressfamily_ipv4_parse_augments",
        .children = {"echo", "timers"}},
    {.path = "/bfd/address-family/ipv4/echo",
        .entry = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvla_interface_configuration, .ns = support::kBundlemgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_ipv4_echo",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_ipv4_echo_parse_augments",
        .children = {}},
    {.path = "/bfd/address-family/ipv4/timers",
        .entry = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvla_interface_configuration, .ns = support::kBundlemgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_ipv4_timers",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_ipv4_timers_parse_augments",
        .children = {}},
    {.path = "/bfd/address-family/ipv6",
        .entry = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvla_interface_configuration, .ns = support::kBundlemgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_addressfamily_ipv6",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_addressfamily_ipv6_parse_augments",
        .children = {"ipv6-timers"}},
    {.path = "/bfd/address-family/ipv6/ipv6-timers",
        .entry = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvla_interface_configuration, .ns = support::kBundlemgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_ipv6_ipv6timers",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_ipv6_ipv6timers_parse_augments",
        .children = {}},
    {.path = "/mlacp",
        .entry = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvle_interface_configuration, .ns = support::kBundlemgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_mlacp",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_mlacp_parse_augments",
        .children = {"maximize"}},
    {.path = "/mlacp/maximize",
        .entry = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvle_interface_configuration, .ns = support::kBundlemgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_mlacp_maximize",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_mlacp_maximize_parse_augments",
        .children = {}},
    {.path = "/mlacp",
        .entry = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvla_iccp_group, .ns = support::kBundlemgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlb_mlacp",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlb_mlacp_parse_augments",
        .children = {}},
    {.path = "/bundle",
        .entry = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle, .ns = support::kBundlemgrCfg,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_parse_augments",
        .children = {"lacp-delay"}},
    {.path = "/lacp-bundles",
        .entry = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles, .ns = support::kBundlemgrOper,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_parse_augments",
        .children = {"bundles"}},
    {.path = "/lacp-bundles/bundles",
        .entry = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles, .ns = support::kBundlemgrOper,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundles",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_bundles",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundles_parse_augments",
        .children = {"bundle"}},
    {.path = "/lacp-bundles/bundles/bundle",
        .entry = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles, .ns = support::kBundlemgrOper,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundles_bundle",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgroper_list_lvla_lacpbundles_bundles_bundle",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundles_bundle_parse_augments",
        .children = {"data", "members", "bundle-interface"}, .keys = {"bundle-interface"}},
    {.path = "/lacp-bundles/bundles/bundle/data",
        .entry = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles, .ns = support::kBundlemgrOper,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundle_data",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_bundle_data",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundle_data_parse_augments",
        .children = {"bundle-system-id", "applied-lacp-mode"}},
    {.path = "/lacp-bundles/bundles/bundle/data/bundle-system-id",
        .entry = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles, .ns = support::kBundlemgrOper,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_data_bundlesystemid",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_data_bundlesystemid",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_data_bundlesystemid_parse_augments",
        .children = {"system-mac-addr", "system-prio"}},
    {.path = "/lacp-bundles/bundles/bundle/data/bundle-system-id/system-mac-addr",
        .entry = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles, .ns = support::kBundlemgrOper,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundlesystemid_systemmacaddr",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_bundlesystemid_systemmacaddr",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundlesystemid_systemmacaddr_parse_augments",
        .children = {"macaddr"}},
    {.path = "/lacp-bundles/bundles/bundle/members",
        .entry = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles, .ns = support::kBundlemgrOper,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundle_members",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_bundle_members",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundle_members_parse_augments",
        .children = {"member"}},
    {.path = "/lacp-bundles/bundles/bundle/members/member",
        .entry = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles, .ns = support::kBundlemgrOper,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_members_member",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgroper_list_lvla_lacpbundles_members_member",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_members_member_parse_augments",
        .children = {"member-interface", "counters", "link-data"}, .keys = {"member-interface"}},
    {.path = "/lacp-bundles/bundles/bundle/members/member/counters",
        .entry = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles, .ns = support::kBundlemgrOper,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_member_counters",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_member_counters",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_member_counters_parse_augments",
        .children = {"lacpd-us-received", "lacpd-us-transmitted", "illegal-packets-received", "excess-lacpd-us-received", "last-change", "lacp-timeout-transitions"}},
    {.path = "/lacp-bundles/bundles/bundle/members/member/link-data",
        .entry = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles, .ns = support::kBundlemgrOper,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_member_linkdata",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_member_linkdata",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_member_linkdata_parse_augments",
        .children = {"actor-system-mac-address", "actor-operational-key", "partner-system-mac-address", "partner-operational-key", "actor-port-id", "partner-port-id", "actor-port-state"}},
    {.path = "/lacp-data",
        .entry = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata, .ns = support::kBundlemgrOper,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_parse_augments",
        .children = {"global"}},
    {.path = "/lacp-data/global",
        .entry = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata, .ns = support::kBundlemgrOper,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_global",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata_global",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_global_parse_augments",
        .children = {"system-id"}},
    {.path = "/lacp-data/global/system-id",
        .entry = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata, .ns = support::kBundlemgrOper,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_global_systemid",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata_global_systemid",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_global_systemid_parse_augments",
        .children = {"system-id"}},
    {.path = "/lacp-data/global/system-id/system-id",
        .entry = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata, .ns = support::kBundlemgrOper,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_systemid_systemid",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata_systemid_systemid",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_systemid_systemid_parse_augments",
        .children = {"system-mac-addr", "system-prio"}},
    {.path = "/lacp-data/global/system-id/system-id/system-mac-addr",
        .entry = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata, .ns = support::kBundlemgrOper,
        .walker = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_systemid_systemmacaddr",
        .handler = "ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata_systemid_systemmacaddr",
        .augments = "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_systemid_systemmacaddr_parse_augments",
        .children = {"macaddr"}},
};

inline const NativeLeaf kNativeLeaves[] = {
    {"/interface-configurations/interface-configuration/interface-name",
        NODES_NAMED(ymap_qo_oclacp_talvobrinqdifmgrcfg_leaf_lvla_interfaceconfigurations_interfaceconfiguration_interfacename),
        nullptr, {"/lacp/interfaces/interface/name",
            "/lacp/interfaces/interface/state/name"}},
    {"/lacp/system-priority",
        NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_leaf_lvla_lacp_systempriority),
        nullptr, {"/lacp/config/system-priority"}},
    {"/interface-configurations/interface-configuration/lacp/mode",
        NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_leaf_lvla_lacp_mode),
        "qd2oc_cfglacpmode", {"/lacp/interfaces/interface/config/lacp-mode"}},
    {"/interface-configurations/interface-configuration/lacp/period",
        NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_leaf_lvla_lacp_period),
        "qd2oc_cfginterval", {"/lacp/interfaces/interface/config/interval"}},
    {"/interface-configurations/interface-configuration/lacp/system-priority",
        NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_leaf_lvlb_lacp_systempriority),
        "qd2oc_intfcfgsystempriority", {"/lacp/interfaces/interface/config/system-priority"}},
    {"/interface-configurations/interface-configuration/lacp/system-mac",
        NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_leaf_lvlb_lacp_systemmac),
        "qd2oc_cfgsystemidmac", {"/lacp/interfaces/interface/config/system-id-mac"}},
    {"/bundle/lacp-delay",
        NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_leaf_lvla_bundle_lacpdelay),
        nullptr, {}},
    {"/lacp-bundles/bundles/bundle/bundle-interface",
        NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_bundle_bundleinterface),
        nullptr, {"/lacp/interfaces/interface/state/name"}},
    {"/lacp-bundles/bundles/bundle/data/bundle-system-id/system-mac-addr/macaddr",
        NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_systemmacaddr_macaddr),
        "qd2oc_statesystemidmac", {"/lacp/interfaces/interface/state/system-id-mac"}},
    {"/lacp-bundles/bundles/bundle/data/bundle-system-id/system-prio",
        NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_bundlesystemid_systemprio),
        "qd2oc_intfstatesystempriority", {"/lacp/interfaces/interface/state/system-priority"}},
    {"/lacp-bundles/bundles/bundle/data/applied-lacp-mode",
        NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_data_appliedlacpmode),
        "qd2oc_lacpmode", {"/lacp/interfaces/interface/state/lacp-mode"}},
    {"/lacp-bundles/bundles/bundle/members/member/member-interface",
        NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_member_memberinterface),
        nullptr, {"/lacp/interfaces/interface/members/member/interface",
            "/lacp/interfaces/interface/members/member/state/interface"}, 1, 1},
    {"/lacp-bundles/bundles/bundle/members/member/counters/lacpd-us-received",
        NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_counters_lacpdusreceived),
        nullptr, {"/lacp/interfaces/interface/members/member/state/counters/lacp-in-pkts"}},
    {"/lacp-bundles/bundles/bundle/members/member/counters/lacpd-us-transmitted",
        NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_counters_lacpdustransmitted),
        nullptr, {"/lacp/interfaces/interface/members/member/state/counters/lacp-out-pkts"}},
    {"/lacp-bundles/bundles/bundle/members/member/counters/illegal-packets-received",
        NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_counters_illegalpacketsreceived),
        nullptr, {"/lacp/interfaces/interface/members/member/state/counters/lacp-errors",
            "/lacp/interfaces/interface/members/member/state/counters/lacp-unknown-errors"}},
    {"/lacp-bundles/bundles/bundle/members/member/counters/excess-lacpd-us-received",
        NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_counters_excesslacpdusreceived),
        nullptr, {"/lacp/interfaces/interface/members/member/state/counters/lacp-rx-errors"}},
    {"/lacp-bundles/bundles/bundle/members/member/counters/last-change",
        NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_counters_lastchange),
        nullptr, {"/lacp/interfaces/interface/members/member/state/last-change"}},
    {"/lacp-bundles/bundles/bundle/members/member/counters/lacp-timeout-transitions",
        NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_counters_lacptimeouttransitions),
        nullptr, {"/lacp/interfaces/interface/members/member/state/counters/lacp-timeout-transitions"}},
    {"/lacp-bundles/bundles/bundle/members/member/link-data/actor-system-mac-address",
        NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_linkdata_actorsystemmacaddress),
        nullptr, {"/lacp/interfaces/interface/members/member/state/system-id"}},
    {"/lacp-bundles/bundles/bundle/members/member/link-data/actor-operational-key",
        NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_linkdata_actoroperationalkey),
        nullptr, {"/lacp/interfaces/interface/members/member/state/oper-key"}},
    {"/lacp-bundles/bundles/bundle/members/member/link-data/partner-system-mac-address",
        NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_linkdata_partnersystemmacaddress),
        nullptr, {"/lacp/interfaces/interface/members/member/state/partner-id"}},
    {"/lacp-bundles/bundles/bundle/members/member/link-data/partner-operational-key",
        NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_linkdata_partneroperationalkey),
        nullptr, {"/lacp/interfaces/interface/members/member/state/partner-key"}},
    {"/lacp-bundles/bundles/bundle/members/member/link-data/actor-port-id",
        NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_linkdata_actorportid),
        nullptr, {"/lacp/interfaces/interface/members/member/state/port-num"}},
    {"/lacp-bundles/bundles/bundle/members/member/link-data/partner-port-id",
        NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_linkdata_partnerportid),
        nullptr, {"/lacp/interfaces/interface/members/member/state/partner-port-num"}},
    {"/lacp-bundles/bundles/bundle/members/member/link-data/actor-port-state",
        NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_linkdata_actorportstate),
        nullptr, {"/lacp/interfaces/interface/members/member/state/activity",
            "/lacp/interfaces/interface/members/member/state/timeout",
            "/lacp/interfaces/interface/members/member/state/synchronization",
            "/lacp/interfaces/interface/members/member/state/aggregatable",
            "/lacp/interfaces/interface/members/member/state/collecting",
            "/lacp/interfaces/interface/members/member/state/distributing"}, 0, 1},
    {"/lacp-data/global/system-id/system-id/system-prio",
        NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpdata_systemid_systemprio),
        nullptr, {"/lacp/state/system-priority"}},
    {"/lacp-data/global/system-id/system-id/system-mac-addr/macaddr",
        NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpdata_systemmacaddr_macaddr),
        nullptr, {}},
};

// clang-format on

inline bool is_operational(const NativeInner& inner) {
  return inner.ns == std::string(support::kBundlemgrOper);
}

// The name of the function that serves a child of a node, be it a leaf or not.
inline const char* function_of_child(const NativeInner& parent, const char* child) {
  const std::string path = std::string(parent.path) + "/" + child;
  for (const NativeInner& inner : kNativeInner) {
    if (inner.path == path && inner.entry == parent.entry) return inner.walker;
  }
  for (const NativeLeaf& leaf : kNativeLeaves) {
    if (leaf.path == path) return leaf.handler.name;
  }
  return "no such node";
}

// The namespace of the node that a native path ends at.
inline const char* namespace_at(const std::string& path) {
  constexpr std::string_view kEntry = "/interface-configurations/interface-configuration/";
  if (path.compare(0, 6, "/lacp-") == 0) return support::kBundlemgrOper;
  const bool is_augment = path.compare(0, kEntry.size(), kEntry) == 0;
  const std::string tag = is_augment ? path.substr(kEntry.size(), path.find('/', kEntry.size()) - kEntry.size())
                                     : path.substr(1, path.find('/', 1) - 1);
  for (const char* added : {"bundle", "lacp", "bundle-member", "bfd", "mlacp"}) {
    if (tag == added) return support::kBundlemgrCfg;
  }
  return support::kIfmgrCfg;
}

// The tree from the root of a path to the node that it ends at; list entries have their keys, first.
inline support::Node tree_to(const std::string& path, std::vector<support::Node> children) {
  using support::leaf;
  const std::string tag = tag_of(path);
  std::vector<support::Node> all;
  if (tag == "interface-configuration") all = {leaf("active", "act"), leaf("interface-name", "Bundle-Ether1")};
  if (tag == "mtu") all = {leaf("owner", "ethernet")};
  if (tag == "bundle" && path.compare(0, 6, "/lacp-") == 0) all = {leaf("bundle-interface", "Bundle-Ether1")};
  if (tag == "member") all = {leaf("member-interface", "GigabitEthernet0/0/0/0")};
  all.insert(all.end(), children.begin(), children.end());
  support::Node node = support::container(tag, std::move(all)).in(namespace_at(path));
  const std::size_t parent = path.rfind('/');
  return parent == 0 ? node : tree_to(path.substr(0, parent), {std::move(node)});
}

}  // namespace nodes
