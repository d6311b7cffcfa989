/*
 * The native configuration side of the module: interface and LACP configuration become openconfig-lacp configuration.
 *
 * Conventions: those of oclacp/openconfig_lacp.h; names begin ymap_qo_oclacp_ and the model's word. Unknown native
 * nodes are never errors. YFW_SKIP_SUBTREE of an entry's walker means that the entry is not reported; the walker above
 * it goes on with the next.
 */
#ifndef OCLACP_NATIVE_CONFIG_H
#define OCLACP_NATIVE_CONFIG_H

#include <stdint.h>

#include "oclacp/export.h"
#include "yfw/context.h"
#include "yfw/datatree.h"
#include "yfw/status.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Interface configuration ---- */

/* The entry walker of interface-configurations, and the walker of one entry. */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations(yfw_map_ctx ctx,
                                                                                     const yfw_datatree* in,
                                                                                     yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/* Unreached: no registration leads to the global interface configuration. */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_globalinterfaceconfiguration(yfw_map_ctx ctx,
                                                                                          const yfw_datatree* in,
                                                                                          yfw_datatree* out);

OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdifmgrcfg_cont_lvla_interfaceconfigurations(yfw_map_ctx ctx,
                                                                                          const yfw_datatree* in,
                                                                                          unsigned int child_count,
                                                                                          yfw_datatree* out);

/*
 * Creates the OpenConfig entry of an interface, or marks it as deleted. Skips pre-configuration; does nothing for a
 * sub-interface or an interface without LACP. YFW_UNSUPPORTED_NODE when the interface has no name.
 */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdifmgrcfg_list_lvla_interfaceconfigurations_interfaceconfiguration(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/* Reports an interface's name, and in a read of operational state its state/name as well; the same under two names. */
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdifmgrcfg_leaf_lvla_interfaceconfigurations_interfaceconfiguration_interfacename(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno qd_to_oc_interface_name_leaf_cb(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/* Hands the nodes that augment an entry to their walkers. */
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/* Default handlers and hooks for nodes of other namespaces: they answer 0. */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdifmgrcfg_duck_map_container(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                           unsigned int child_count, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdifmgrcfg_duck_map_list(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                      yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdifmgrcfg_duck_map_leaf(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                      yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_dampening_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_mtus_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_mtus_mtu_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_encapsulation_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_globalinterfaceconfiguration_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/* The name of the interface whose configuration is walked; owned by the framework. Records nothing. */
OCLACP_EXPORT cerrno get_intf_name_from_tree(yfw_map_ctx ctx, const char** name);

/* ---- Bundle and LACP configuration ---- */

/* The entry walker of the global lacp container. */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                      yfw_datatree* out);

/* The nodes that augment an interface configuration, each with the one tag that it expects. */
/* bfd */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvla_interface_configuration(yfw_map_ctx ctx,
                                                                                                 const yfw_datatree* in,
                                                                                                 yfw_datatree* out);
/* bundle */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvlb_interface_configuration(yfw_map_ctx ctx,
                                                                                                 const yfw_datatree* in,
                                                                                                 yfw_datatree* out);
/* lacp */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvlc_interface_configuration(yfw_map_ctx ctx,
                                                                                                 const yfw_datatree* in,
                                                                                                 yfw_datatree* out);
/* bundle-member */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvld_interface_configuration(yfw_map_ctx ctx,
                                                                                                 const yfw_datatree* in,
                                                                                                 yfw_datatree* out);
/* mlacp */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvle_interface_configuration(yfw_map_ctx ctx,
                                                                                                 const yfw_datatree* in,
                                                                                                 yfw_datatree* out);
/* mlacp, under the group node of another model */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvla_iccp_group(yfw_map_ctx ctx,
                                                                                    const yfw_datatree* in,
                                                                                    yfw_datatree* out);

OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlb_bundle(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                        yfw_datatree* out);

/* Unreached. */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                        yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                     yfw_datatree* out);

/* Container handlers, default handlers and hooks: they answer 0. */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_cont_lvla_lacp(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                           unsigned int child_count, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_cont_lvlb_lacp(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                           unsigned int child_count, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_cont_lvla_bfd(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                          unsigned int child_count, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_cont_lvla_lacp_talvoextensions(yfw_map_ctx ctx,
                                                                                           const yfw_datatree* in,
                                                                                           unsigned int child_count,
                                                                                           yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_container(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                               unsigned int child_count,
                                                                               yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_list(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                          yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_duck_map_leaf(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                          yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp_parse_augments(yfw_map_ctx ctx,
                                                                                     const yfw_datatree* in,
                                                                                     yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_parse_augments(yfw_map_ctx ctx,
                                                                                       const yfw_datatree* in,
                                                                                       yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp_talvoextensions_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp_timeout_parse_augments(yfw_map_ctx ctx,
                                                                                             const yfw_datatree* in,
                                                                                             yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlb_lacp_parse_augments(yfw_map_ctx ctx,
                                                                                     const yfw_datatree* in,
                                                                                     yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_minimumactive_bandwidth_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_minimumactive_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_maximumactive_links_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_maximumactive_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_bundleloadbalancing_hashfunction_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle_bundleloadbalancing_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlb_bundle_parse_augments(yfw_map_ctx ctx,
                                                                                       const yfw_datatree* in,
                                                                                       yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundlemember_id_parse_augments(yfw_map_ctx ctx,
                                                                                                const yfw_datatree* in,
                                                                                                yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundlemember_parse_augments(yfw_map_ctx ctx,
                                                                                             const yfw_datatree* in,
                                                                                             yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_ipv4_echo_parse_augments(yfw_map_ctx ctx,
                                                                                              const yfw_datatree* in,
                                                                                              yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_ipv4_timers_parse_augments(yfw_map_ctx ctx,
                                                                                                const yfw_datatree* in,
                                                                                                yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_addressfamily_ipv4_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_ipv6_ipv6timers_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_addressfamily_ipv6_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_addressfamily_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd_parse_augments(yfw_map_ctx ctx,
                                                                                    const yfw_datatree* in,
                                                                                    yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_mlacp_maximize_parse_augments(yfw_map_ctx ctx,
                                                                                               const yfw_datatree* in,
                                                                                               yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_mlacp_parse_augments(yfw_map_ctx ctx,
                                                                                      const yfw_datatree* in,
                                                                                      yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlb_mlacp_parse_augments(yfw_map_ctx ctx,
                                                                                      const yfw_datatree* in,
                                                                                      yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_interface_configuration_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlb_interface_configuration_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlc_interface_configuration_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvld_interface_configuration_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvle_interface_configuration_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_iccp_group_parse_augments(yfw_map_ctx ctx,
                                                                                           const yfw_datatree* in,
                                                                                           yfw_datatree* out);

/* Leaf handlers. */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_leaf_lvla_lacp_systempriority(yfw_map_ctx ctx,
                                                                                          const yfw_datatree* in,
                                                                                          yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_leaf_lvla_lacp_mode(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                                yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_leaf_lvla_lacp_period(yfw_map_ctx ctx,
                                                                                  const yfw_datatree* in,
                                                                                  yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_leaf_lvlb_lacp_systempriority(yfw_map_ctx ctx,
                                                                                          const yfw_datatree* in,
                                                                                          yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_leaf_lvlb_lacp_systemmac(yfw_map_ctx ctx,
                                                                                     const yfw_datatree* in,
                                                                                     yfw_datatree* out);

/* Leaves without a counterpart. */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_leaf_lvla_bundle_lacpdelay(yfw_map_ctx ctx,
                                                                                       const yfw_datatree* in,
                                                                                       yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_man_leaf_lvla_bundlemember_id_portactivity(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/* ---- Value converters of an interface's LACP configuration ----
 *
 * Each reads the name of the interface that is walked and reports its leaf when the interface has LACP configured and
 * is no sub-interface.
 */

/* "active" becomes "ACTIVE", "on" nothing, any other value "PASSIVE". */
OCLACP_EXPORT cerrno qd2oc_cfglacpmode(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/* "true" and "1000" become "FAST", "30000" "SLOW"; any other value is refused with YFW_UNSUPPORTED_INTERVAL. */
OCLACP_EXPORT cerrno qd2oc_cfginterval(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/* Copied. */
OCLACP_EXPORT cerrno qd2oc_intfcfgsystempriority(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno qd2oc_cfgsystemidmac(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

#ifdef __cplusplus
}
#endif

#endif
