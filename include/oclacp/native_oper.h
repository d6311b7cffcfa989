/*
 * The native operational side of the module: bundles and their members become openconfig-lacp state and counters.
 *
 * Conventions: those of oclacp/native_config.h, with two differences. Children are walked in reads of operational state
 * only; under any other operation they are treated as unknown. A node of another model that a request adds is refused.
 */
#ifndef OCLACP_NATIVE_OPER_H
#define OCLACP_NATIVE_OPER_H

#include <stdint.h>

#include "oclacp/export.h"
#include "yfw/context.h"
#include "yfw/datatree.h"
#include "yfw/status.h"

#ifdef __cplusplus
extern "C" {
#endif

/*
 * The entry walkers of lacp-bundles and lacp-data. They return the status of the first handler or child that fails,
 * YFW_MALFORMED_TREE among them; what was added before that stays. At the end of each bundle entry the request's
 * current list node is as it was.
 */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                              yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                           yfw_datatree* out);

/* Container handlers and default handlers: they check their arguments and return 0. */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_bundlesystemid_systemmacaddr(
    yfw_map_ctx ctx, const yfw_datatree* in, unsigned int child_count, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_data_bundlesystemid(
    yfw_map_ctx ctx, const yfw_datatree* in, unsigned int child_count, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_bundle_data(yfw_map_ctx ctx,
                                                                                               const yfw_datatree* in,
                                                                                               unsigned int child_count,
                                                                                               yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_member_counters(
    yfw_map_ctx ctx, const yfw_datatree* in, unsigned int child_count, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_member_linkdata(
    yfw_map_ctx ctx, const yfw_datatree* in, unsigned int child_count, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_bundle_members(
    yfw_map_ctx ctx, const yfw_datatree* in, unsigned int child_count, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_bundles(yfw_map_ctx ctx,
                                                                                           const yfw_datatree* in,
                                                                                           unsigned int child_count,
                                                                                           yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles(yfw_map_ctx ctx,
                                                                                   const yfw_datatree* in,
                                                                                   unsigned int child_count,
                                                                                   yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata_systemid_systemmacaddr(
    yfw_map_ctx ctx, const yfw_datatree* in, unsigned int child_count, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata_systemid_systemid(
    yfw_map_ctx ctx, const yfw_datatree* in, unsigned int child_count, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata_global_systemid(
    yfw_map_ctx ctx, const yfw_datatree* in, unsigned int child_count, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata_global(yfw_map_ctx ctx,
                                                                                       const yfw_datatree* in,
                                                                                       unsigned int child_count,
                                                                                       yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                                unsigned int child_count,
                                                                                yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_duck_map_container(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                                unsigned int child_count,
                                                                                yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_duck_map_list(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                           yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_duck_map_leaf(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                           yfw_datatree* out);

/* A child of a foreign namespace is refused in an add (YFW_UNKNOWN_AUGMENT), else ignored. */
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundlesystemid_systemmacaddr_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_data_bundlesystemid_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundle_data_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_member_counters_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_member_linkdata_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_members_member_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundle_members_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundles_bundle_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundles_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_parse_augments(yfw_map_ctx ctx,
                                                                                             const yfw_datatree* in,
                                                                                             yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_systemid_systemmacaddr_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_systemid_systemid_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_global_systemid_parse_augments(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_global_parse_augments(yfw_map_ctx ctx,
                                                                                                 const yfw_datatree* in,
                                                                                                 yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_parse_augments(yfw_map_ctx ctx,
                                                                                          const yfw_datatree* in,
                                                                                          yfw_datatree* out);

/*
 * Finds or creates the OpenConfig entry of a bundle. Answers the status of that; for a sub-interface, and for a bundle
 * without name, nothing is done and the status of the look-up of the name is answered.
 */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_list_lvla_lacpbundles_bundles_bundle(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/* Opens the OpenConfig entry of a member, or marks it as deleted. Answers the status of the addition. */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_list_lvla_lacpbundles_members_member(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/*
 * Leaf handlers. Each reports its OpenConfig leaf or leaves with the value of `in`, or calls the converter that does,
 * and returns the status of the (last) addition or of the converter. The handlers of member-interface and
 * illegal-packets-received report two leaves each, that of actor-port-state six; it ignores failed additions. The last
 * one, of the device's own MAC address, reports nothing.
 */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_bundle_bundleinterface(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_systemmacaddr_macaddr(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_bundlesystemid_systemprio(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_data_appliedlacpmode(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_member_memberinterface(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_counters_lacpdusreceived(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_counters_lacpdustransmitted(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_counters_illegalpacketsreceived(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_counters_excesslacpdusreceived(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_counters_lastchange(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_counters_lacptimeouttransitions(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_linkdata_actorsystemmacaddress(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_linkdata_actoroperationalkey(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_linkdata_partnersystemmacaddress(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_linkdata_partneroperationalkey(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_linkdata_actorportid(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_linkdata_partnerportid(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_linkdata_actorportstate(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpdata_systemid_systemprio(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpdata_systemmacaddr_macaddr(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/* Handlers of a tree of bundle members that no walker visits: they report nothing. */
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundlemembers_data_actorportstate(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_man_leaf_lvla_lacpbundlemembers_member_memberinterface(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundlemembers_member_memberinterface(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/*
 * Looks up the name of the bundle that is walked. Returns the status of yfw_map_get_node_info(), which also says who
 * owns `*name` and when it is null. Records nothing.
 */
OCLACP_EXPORT cerrno get_bundle_name_from_oper_tree(yfw_map_ctx ctx, const char** name);

/*
 * ---- Value converters ----
 *
 * All but the first read the name of the bundle that is walked, and report their leaf when LACP is configured on it and
 * it is no sub-interface. They return the status of the addition, 0 when nothing is reported, or the code of the
 * look-up or string operation that failed.
 */

/*
 * The six leaves of a member's port state, from the low eight bits of a decimal number; a text that is none is treated
 * as 0. Failed additions are ignored: 0 for any node.
 */
OCLACP_EXPORT cerrno qd2oc_actorportstate(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/*
 * The bundle's applied mode, read from the tree and not from `in`: "bmd-mode-active" becomes "ACTIVE",
 * "bmd-mode-passive" "PASSIVE", any other an empty text, which is meant. The status of reading the mode is ignored.
 * Reports in a read of operational state only.
 */
OCLACP_EXPORT cerrno qd2oc_lacpmode(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/* The value of `in` as it is, whatever the operation. */
OCLACP_EXPORT cerrno qd2oc_statesystemidmac(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno qd2oc_intfstatesystempriority(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/* ---- The actor port state, by bit (IEEE 802.1AX); constant texts, no failure, any thread ---- */

/* Bit 0: "ACTIVE" or "PASSIVE". */
OCLACP_EXPORT const char* yfw_get_lacp_state_activity(uint8_t port_state);
/* Bit 1: "SHORT" or "LONG". */
OCLACP_EXPORT const char* yfw_get_lacp_state_timeout(uint8_t port_state);
/* Bit 3: "IN_SYNC" or "OUT_SYNC". */
OCLACP_EXPORT const char* yfw_get_lacp_state_synchronization(uint8_t port_state);
/* Bit 2: "true" or "false". */
OCLACP_EXPORT const char* yfw_get_lacp_state_aggregatable(uint8_t port_state);
/* Bit 4: "true" or "false". */
OCLACP_EXPORT const char* yfw_get_lacp_state_collecting(uint8_t port_state);
/* Bit 5: "true" or "false". */
OCLACP_EXPORT const char* yfw_get_lacp_state_distributing(uint8_t port_state);

/*
 * ---- When-handlers ----
 *
 * The framework calls the one that is named after a container to evaluate the container's `when` statement. They accept
 * any node with 0; without a node they record that there is nothing to evaluate and return 1.
 */

OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_bundleinformation_items_memberevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_bundleinformation_items_bundleevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_bundleinformation_items_rgevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_bundleinformation_additionalinfo_local_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_bundleinformation_additionalinfo_foreign_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlb_bundleinformation_items_memberevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlb_bundleinformation_items_bundleevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlb_bundleinformation_items_rgevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlb_bundleinformation_additionalinfo_local_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlb_bundleinformation_additionalinfo_foreign_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlc_bundleinformation_items_memberevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlc_bundleinformation_items_bundleevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlc_bundleinformation_items_rgevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlc_bundleinformation_additionalinfo_local_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlc_bundleinformation_additionalinfo_foreign_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvld_bundleinformation_items_memberevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvld_bundleinformation_items_bundleevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvld_bundleinformation_items_rgevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvld_bundleinformation_additionalinfo_local_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvld_bundleinformation_additionalinfo_foreign_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvle_bundleinformation_items_memberevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvle_bundleinformation_items_bundleevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvle_bundleinformation_items_rgevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlf_bundleinformation_items_memberevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlf_bundleinformation_items_bundleevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlf_bundleinformation_items_rgevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlg_bundleinformation_items_memberevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlg_bundleinformation_items_bundleevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlg_bundleinformation_items_rgevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlh_bundleinformation_items_memberevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlh_bundleinformation_items_bundleevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlh_bundleinformation_items_rgevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvli_bundleinformation_items_memberevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvli_bundleinformation_items_bundleevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvli_bundleinformation_items_rgevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlj_bundleinformation_items_memberevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlj_bundleinformation_items_bundleevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlj_bundleinformation_items_rgevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlk_bundleinformation_items_memberevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlk_bundleinformation_items_bundleevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlk_bundleinformation_items_rgevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvll_bundleinformation_items_memberevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvll_bundleinformation_items_bundleevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvll_bundleinformation_items_rgevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlm_bundleinformation_items_memberevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlm_bundleinformation_items_bundleevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlm_bundleinformation_items_rgevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvln_bundleinformation_items_memberevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvln_bundleinformation_items_bundleevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvln_bundleinformation_items_rgevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlo_bundleinformation_items_memberevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlo_bundleinformation_items_bundleevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlo_bundleinformation_items_rgevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlp_bundleinformation_items_memberevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlp_bundleinformation_items_bundleevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlp_bundleinformation_items_rgevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlq_bundleinformation_items_memberevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno
ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlq_bundleinformation_items_bundleevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);
OCLACP_EXPORT cerrno ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvlq_bundleinformation_items_rgevtinfo_handle_when(
    yfw_map_ctx ctx, const yfw_datatree* node);

#ifdef __cplusplus
}
#endif

#endif
