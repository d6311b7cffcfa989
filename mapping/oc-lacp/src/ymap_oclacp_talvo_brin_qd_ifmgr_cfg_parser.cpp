// The walkers of the native interface configuration. Most of it has no counterpart in openconfig-lacp and is only
// stepped through; a container that is walked from its parent alone has a walker of this file.
#include <span>

#include "frame/native_handlers.h"
#include "frame/native_walker.h"
#include "frame/request_handlers.h"
#include "models.h"
#include "oclacp/native_config.h"

using ymap::NativeChild;
using ymap::NativeContainer;
using ymap::NativeList;
using ymap::NativeTree;

// clang-format off

// /interface-configurations/interface-configuration/dampening
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_dampening, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kIfmgrCfg, .tree = NativeTree::kConfiguration, .children = {}, .parse_augments = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_dampening_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdifmgrcfg_duck_map_container})

// /interface-configurations/interface-configuration/mtus/mtu
static constexpr const char* kInterfaceconfigurationsMtusMtuKeys[] = {"owner"};
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_mtus_mtu, ymap::walk_native_list_entry, NativeList{
    .node = {.ns = oclacp::kIfmgrCfg, .tree = NativeTree::kConfiguration, .children = {}, .parse_augments = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_mtus_mtu_parse_augments},
    .path = "/interface-configurations/interface-configuration/mtus/mtu",
    .keys = kInterfaceconfigurationsMtusMtuKeys,
    .handler = ymap_qo_oclacp_talvobrinqdifmgrcfg_duck_map_list})

// /interface-configurations/interface-configuration/mtus
static constexpr NativeChild kInterfaceconfigurationsInterfaceconfigurationMtusChildren[] = {
    {.tag = "mtu", .walk = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_mtus_mtu},
};
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_mtus, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kIfmgrCfg, .tree = NativeTree::kConfiguration, .children = kInterfaceconfigurationsInterfaceconfigurationMtusChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_mtus_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdifmgrcfg_duck_map_container})

// /interface-configurations/interface-configuration/encapsulation
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_encapsulation, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kIfmgrCfg, .tree = NativeTree::kConfiguration, .children = {}, .parse_augments = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_encapsulation_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdifmgrcfg_duck_map_container})

// /interface-configurations/interface-configuration
static constexpr NativeChild kInterfaceconfigurationsInterfaceconfigurationChildren[] = {
    {.tag = "dampening", .walk = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_dampening},
    {.tag = "mtus", .walk = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_mtus},
    {.tag = "encapsulation", .walk = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_encapsulation},
    {.tag = "interface-name", .walk = ymap_qo_oclacp_talvobrinqdifmgrcfg_leaf_lvla_interfaceconfigurations_interfaceconfiguration_interfacename, .is_leaf = true},
};
static constexpr const char* kInterfaceconfigurationsInterfaceconfigurationKeys[] = {"active", "interface-name"};
YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration, ymap::walk_native_list_entry, NativeList{
    .node = {.ns = oclacp::kIfmgrCfg, .tree = NativeTree::kConfiguration, .children = kInterfaceconfigurationsInterfaceconfigurationChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_parse_augments},
    .path = "/interface-configurations/interface-configuration",
    .keys = kInterfaceconfigurationsInterfaceconfigurationKeys,
    .handler = ymap_qo_oclacp_talvobrinqdifmgrcfg_list_lvla_interfaceconfigurations_interfaceconfiguration,
    .restores_list_slot = true,
    .clears_interface_name = true})

// /interface-configurations
static constexpr NativeChild kInterfaceconfigurationsChildren[] = {
    {.tag = "interface-configuration", .walk = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration, .may_skip = true},
};
YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kIfmgrCfg, .tree = NativeTree::kConfiguration, .children = kInterfaceconfigurationsChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdifmgrcfg_cont_lvla_interfaceconfigurations})

// /global-interface-configuration: no registration leads here
YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_globalinterfaceconfiguration, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kIfmgrCfg, .tree = NativeTree::kConfiguration, .children = {}, .parse_augments = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_globalinterfaceconfiguration_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdifmgrcfg_duck_map_container})

// clang-format on
