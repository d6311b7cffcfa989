// The walkers of the native bundle and LACP configuration: the global containers, and the nodes that the model adds to
// each interface configuration. Only LACP produces anything; the rest is stepped through.
#include <span>

#include "frame/native_handlers.h"
#include "frame/native_walker.h"
#include "frame/request_handlers.h"
#include "models.h"
#include "oclacp/native_config.h"

using ymap::NativeAugment;
using ymap::NativeChild;
using ymap::NativeContainer;
using ymap::NativeTree;

// clang-format off

// /lacp
static constexpr NativeChild kLacpChildren[] = {
    {.tag = "system-priority", .walk = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_leaf_lvla_lacp_systempriority, .is_leaf = true},
};
YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrCfg, .tree = NativeTree::kConfiguration, .children = kLacpChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_cont_lvla_lacp})

// /bundle: no registration leads here
static constexpr NativeChild kBundleChildren[] = {
    {.tag = "lacp-delay", .walk = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_leaf_lvla_bundle_lacpdelay, .is_leaf = true},
};
YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrCfg, .tree = NativeTree::kConfiguration, .children = kBundleChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container})

// /interface-configurations/interface-configuration/lacp/talvo-extensions
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp_talvoextensions, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrCfg, .tree = NativeTree::kConfiguration, .children = {}, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp_talvoextensions_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container})

// /interface-configurations/interface-configuration/lacp/timeout
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp_timeout, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrCfg, .tree = NativeTree::kConfiguration, .children = {}, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp_timeout_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container})

// /interface-configurations/interface-configuration/lacp
static constexpr NativeChild kBLacpChildren[] = {
    {.tag = "mode", .walk = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_leaf_lvla_lacp_mode, .is_leaf = true},
    {.tag = "period", .walk = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_leaf_lvla_lacp_period, .is_leaf = true},
    {.tag = "system-priority", .walk = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_leaf_lvlb_lacp_systempriority, .is_leaf = true},
    {.tag = "system-mac", .walk = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_leaf_lvlb_lacp_systemmac, .is_leaf = true},
    {.tag = "talvo-extensions", .walk = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp_talvoextensions},
    {.tag = "timeout", .walk = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp_timeout},
};
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlb_lacp, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrCfg, .tree = NativeTree::kConfiguration, .children = kBLacpChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlb_lacp_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_cont_lvlb_lacp})

// /interface-configurations/interface-configuration/bundle/minimum-active/bandwidth
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_minimumactive_bandwidth, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrCfg, .tree = NativeTree::kConfiguration, .children = {}, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_minimumactive_bandwidth_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container})

// /interface-configurations/interface-configuration/bundle/minimum-active
static constexpr NativeChild kBundleMinimumactiveChildren[] = {
    {.tag = "bandwidth", .walk = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_minimumactive_bandwidth},
};
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_minimumactive, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrCfg, .tree = NativeTree::kConfiguration, .children = kBundleMinimumactiveChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_minimumactive_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container})

// /interface-configurations/interface-configuration/bundle/maximum-active/links
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_maximumactive_links, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrCfg, .tree = NativeTree::kConfiguration, .children = {}, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_maximumactive_links_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container})

// /interface-configurations/interface-configuration/bundle/maximum-active
static constexpr NativeChild kBundleMaximumactiveChildren[] = {
    {.tag = "links", .walk = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_maximumactive_links},
};
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_maximumactive, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrCfg, .tree = NativeTree::kConfiguration, .children = kBundleMaximumactiveChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_maximumactive_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container})

// /interface-configurations/interface-configuration/bundle/bundle-load-balancing/hash-function
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_bundleloadbalancing_hashfunction, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrCfg, .tree = NativeTree::kConfiguration, .children = {}, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_bundleloadbalancing_hashfunction_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container})

// /interface-configurations/interface-configuration/bundle/bundle-load-balancing
static constexpr NativeChild kBundleBundleloadbalancingChildren[] = {
    {.tag = "hash-function", .walk = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_bundleloadbalancing_hashfunction},
};
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_bundleloadbalancing, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrCfg, .tree = NativeTree::kConfiguration, .children = kBundleBundleloadbalancingChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_bundleloadbalancing_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container})

// /interface-configurations/interface-configuration/bundle
static constexpr NativeChild kBBundleChildren[] = {
    {.tag = "minimum-active", .walk = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_minimumactive},
    {.tag = "maximum-active", .walk = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_maximumactive},
    {.tag = "bundle-load-balancing", .walk = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_bundleloadbalancing},
};
YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlb_bundle, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrCfg, .tree = NativeTree::kConfiguration, .children = kBBundleChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlb_bundle_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container})

// /interface-configurations/interface-configuration/bundle-member/id
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundlemember_id, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrCfg, .tree = NativeTree::kConfiguration, .children = {}, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundlemember_id_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container})

// /interface-configurations/interface-configuration/bundle-member
static constexpr NativeChild kBundlememberChildren[] = {
    {.tag = "id", .walk = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundlemember_id},
};
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundlemember, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrCfg, .tree = NativeTree::kConfiguration, .children = kBundlememberChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundlemember_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container})

// /interface-configurations/interface-configuration/bfd/address-family/ipv4/echo
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_ipv4_echo, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrCfg, .tree = NativeTree::kConfiguration, .children = {}, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_ipv4_echo_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container})

// /interface-configurations/interface-configuration/bfd/address-family/ipv4/timers
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_ipv4_timers, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrCfg, .tree = NativeTree::kConfiguration, .children = {}, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_ipv4_timers_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container})

// /interface-configurations/interface-configuration/bfd/address-family/ipv4
static constexpr NativeChild kBfdAddressfamilyIpv4Children[] = {
    {.tag = "echo", .walk = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_ipv4_echo},
    {.tag = "timers", .walk = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_ipv4_timers},
};
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_addressfamily_ipv4, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrCfg, .tree = NativeTree::kConfiguration, .children = kBfdAddressfamilyIpv4Children, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_addressfamily_ipv4_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container})

// /interface-configurations/interface-configuration/bfd/address-family/ipv6/ipv6-timers
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_ipv6_ipv6timers, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrCfg, .tree = NativeTree::kConfiguration, .children = {}, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_ipv6_ipv6timers_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container})

// /interface-configurations/interface-configuration/bfd/address-family/ipv6
static constexpr NativeChild kBfdAddressfamilyIpv6Children[] = {
    {.tag = "ipv6-timers", .walk = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_ipv6_ipv6timers},
};
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_addressfamily_ipv6, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrCfg, .tree = NativeTree::kConfiguration, .children = kBfdAddressfamilyIpv6Children, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_addressfamily_ipv6_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container})

// /interface-configurations/interface-configuration/bfd/address-family
static constexpr NativeChild kBfdAddressfamilyChildren[] = {
    {.tag = "ipv4", .walk = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_addressfamily_ipv4},
    {.tag = "ipv6", .walk = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_addressfamily_ipv6},
};
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_addressfamily, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrCfg, .tree = NativeTree::kConfiguration, .children = kBfdAddressfamilyChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_addressfamily_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container})

// /interface-configurations/interface-configuration/bfd
static constexpr NativeChild kBfdChildren[] = {
    {.tag = "address-family", .walk = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_addressfamily},
};
YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrCfg, .tree = NativeTree::kConfiguration, .children = kBfdChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container})

// /interface-configurations/interface-configuration/mlacp/maximize
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_mlacp_maximize, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrCfg, .tree = NativeTree::kConfiguration, .children = {}, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_mlacp_maximize_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container})

// /interface-configurations/interface-configuration/mlacp
static constexpr NativeChild kMlacpChildren[] = {
    {.tag = "maximize", .walk = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_mlacp_maximize},
};
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_mlacp, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrCfg, .tree = NativeTree::kConfiguration, .children = kMlacpChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_mlacp_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container})

// mlacp under the group node of another model: nothing leads here
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlb_mlacp, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrCfg, .tree = NativeTree::kConfiguration, .children = {}, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlb_mlacp_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container})

// The nodes that augment an interface's configuration: the one tag that each walker expects. bfd, mlacp and the group's
// mlacp are never reached.
YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvla_interface_configuration, ymap::walk_native_augment, NativeAugment{
    .ns = oclacp::kBundlemgrCfg, .tag = "bfd", .walk = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd,
    .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_interface_configuration_parse_augments})
YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvlb_interface_configuration, ymap::walk_native_augment, NativeAugment{
    .ns = oclacp::kBundlemgrCfg, .tag = "bundle", .walk = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlb_bundle,
    .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlb_interface_configuration_parse_augments})
YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvlc_interface_configuration, ymap::walk_native_augment, NativeAugment{
    .ns = oclacp::kBundlemgrCfg, .tag = "lacp", .walk = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlb_lacp,
    .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlc_interface_configuration_parse_augments})
YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvld_interface_configuration, ymap::walk_native_augment, NativeAugment{
    .ns = oclacp::kBundlemgrCfg, .tag = "bundle-member", .walk = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundlemember,
    .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvld_interface_configuration_parse_augments})
YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvle_interface_configuration, ymap::walk_native_augment, NativeAugment{
    .ns = oclacp::kBundlemgrCfg, .tag = "mlacp", .walk = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_mlacp,
    .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvle_interface_configuration_parse_augments})
YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvla_iccp_group, ymap::walk_native_augment, NativeAugment{
    .ns = oclacp::kBundlemgrCfg, .tag = "mlacp", .walk = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlb_mlacp,
    .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_iccp_group_parse_augments})

    // clang-format on
