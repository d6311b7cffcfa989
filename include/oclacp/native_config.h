/*
 * The native configuration side of the module: interface and LACP configuration become openconfig-lacp configuration.
 *
 * Conventions: those of oclacp/openconfig_lacp.h; names begin ymap_qo_oclacp_ and the model's word. A native node that
 * is not known, or that another model adds, is skipped with 0. YFW_SKIP_SUBTREE of an entry's walker means that the
 * entry, or the rest of it, is not reported; the walker above it goes on with the next (yfw/status.h). Walkers return
 * the status of the first handler or child that fails, or YFW_MALFORMED_TREE; a skip of their own container handler is
 * 0. What a handler leaves in the request's scratch is taken back by the walker of its entry (yfw/context.h). Only the
 * walkers that are declared here are functions of their own for others to call: the containers and lists below them are
 * walked as a part of them, under names of the same kind.
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

/*
 * The entry walker of interface-configurations, and the walker of one entry. The latter returns YFW_MALFORMED_TREE for
 * an entry without keys, YFW_SKIP_SUBTREE for pre-configuration, and what yfw_map_update_current_list_node() returns.
 * At its end, whatever its status, the interface name in the request is zero and the current list node as it was.
 */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations(yfw_map_ctx ctx,
                                                                                     const yfw_datatree* in,
                                                                                     yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/* Unreached: no registration leads to the global interface configuration. */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_globalinterfaceconfiguration(yfw_map_ctx ctx,
                                                                                          const yfw_datatree* in,
                                                                                          yfw_datatree* out);

/* Reports nothing and returns 0. */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdifmgrcfg_cont_lvla_interfaceconfigurations(yfw_map_ctx ctx,
                                                                                          const yfw_datatree* in,
                                                                                          unsigned int child_count,
                                                                                          yfw_datatree* out);

/*
 * Finds or creates the OpenConfig entry of an interface, by its whole name, or marks it as deleted. Skips
 * pre-configuration; does nothing for a sub-interface or an interface without LACP. YFW_SKIP_SUBTREE for
 * pre-configuration, YFW_UNSUPPORTED_NODE when the interface has no name (no error tag, no error path), else the status
 * of the look-up of the name or of the framework's operation. Leaves the name, cut to the buffer, and the entry in the
 * request.
 */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdifmgrcfg_list_lvla_interfaceconfigurations_interfaceconfiguration(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/*
 * Reports an interface's name, and in a read of operational state its state/name as well; the same under two names.
 * Nothing, and 0, for a sub-interface or an interface without LACP. YFW_MALFORMED_TREE when the leaf has no value, else
 * the status of the last addition. Leaves the name, cut to the buffer, in the request.
 */
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdifmgrcfg_leaf_lvla_interfaceconfigurations_interfaceconfiguration_interfacename(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno qd_to_oc_interface_name_leaf_cb(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/*
 * Hands the nodes that augment an entry to their walkers and answers their status: `bundle` and `lacp` of the bundle
 * model to theirs, any other node of that model to that of bundle-member. A node of another model is ignored.
 */
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/*
 * Default handlers and hooks for nodes of other namespaces: they return 0. Those of a list and of a leaf do not check
 * their arguments.
 */
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

/*
 * Looks up the name of the interface whose configuration is walked. Answers the status of yfw_map_get_node_info(),
 * which also says who owns `*name` and when it is null. Records nothing.
 */
OCLACP_EXPORT cerrno get_intf_name_from_tree(yfw_map_ctx ctx, const char** name);

/* ---- Bundle and LACP configuration ---- */

/* The entry walker of the global lacp container; it does not look at the container's own tag. */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                      yfw_datatree* out);

/*
 * The nodes that augment an interface configuration, each with the one tag that it expects. Another node of the bundle
 * model is skipped, and one of a third model goes to the level's hook; both result in 0.
 */
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

/* Walks the bundle container of an interface configuration, which reports nothing. */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvlb_bundle(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                        yfw_datatree* out);

/* Walk the top-level bundle container and the bfd container of an interface configuration. No registration leads here.
 */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                        yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                     yfw_datatree* out);

/*
 * Container handlers, default handlers and hooks: they report nothing and return 0. The default handlers of a list and
 * of a leaf do not check their arguments. The walkers of bfd and talvo-extensions call the default container handler,
 * not its further names cont_lvla_bfd and cont_lvla_lacp_talvoextensions.
 */
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

/*
 * Leaf handlers of LACP configuration. The first reports the global system priority unless the request's options
 * suppress it (yfw/context.h), and returns the status of the addition; the others return that of their converter.
 */
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

/* Leaves without a counterpart: nothing is reported, 0. The first does not look at its arguments. */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_leaf_lvla_bundle_lacpdelay(yfw_map_ctx ctx,
                                                                                       const yfw_datatree* in,
                                                                                       yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgrcfg_man_leaf_lvla_bundlemember_id_portactivity(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/* ---- Value converters of an interface's LACP configuration ----
 *
 * Each reads the name of the interface that is walked and reports its leaf when the interface has LACP configured and
 * is no sub-interface. They return the status of the addition, 0 when nothing is reported, or the code of the look-up
 * or string operation that failed. Mode and interval are kept back when the request's options suppress them.
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
