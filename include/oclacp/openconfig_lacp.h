/*
 * The openconfig-lacp side of the module: OpenConfig requests become native paths.
 *
 * Conventions
 * 1. Every function takes the mapping context first and returns a status of yfw/status.h; 0 is success.
 * 2. The context must not be null: the process is ended through __assert_fail() if it is. A null input node or output
 *    tree is refused with YFW_INVALID_ARGUMENTS, except where a function is said not to look at them.
 * 3. Every function records its start, its errors and its end under its own name. No end is recorded for null
 *    arguments, by a walker whose handler answered YFW_SKIP_SUBTREE (outside of a replace), and by a converter whose
 *    string operation failed or that cannot read the name of its interface or bundle.
 * 4. Nodes are marked while they are walked, so input trees must be writable; see yfw/datatree.h.
 * 5. Functions run on the request's thread and keep nothing between calls but one byte: that the library of the
 *    data-store client was found.
 * 6. Names: ymap_oq_oclacp_openconfiglacp_, then the kind (nothing for a walker or leaf walker, cont_, list_, leaf_ for
 *    the handlers), a level word that tells nodes of the same name apart, and the node's path words.
 */
#ifndef OCLACP_OPENCONFIG_LACP_H
#define OCLACP_OPENCONFIG_LACP_H

#include <stdint.h>

#include "oclacp/export.h"
#include "yfw/context.h"
#include "yfw/datatree.h"
#include "yfw/status.h"

#ifdef __cplusplus
extern "C" {
#endif

/*
 * ---- Walkers of containers and list entries; the first is the entry walker of every registration ----
 *
 * Each walks the node that it is named after: its handler, then the children that `in` names, in their order; for a
 * replace both twice, first with the children hidden. A node that is read or deleted as a whole is expanded: every
 * child walker is called on the node itself, and its status is ignored. They return the status of the first handler or
 * child that fails, a skip of their own handler as 0, or an error of their own: YFW_MALFORMED_TREE;
 * YFW_INVALID_ARGUMENTS for a delete with children of `lacp`, its `config` and `interfaces`, or an interface's
 * `config`; YFW_UNSUPPORTED_NODE for a child of this model that is not known, in an edit; for list entries also
 * YFW_BAD_LIST_KEY, YFW_LIST_KEY_DELETED, and what the leafref check and yfw_map_update_current_list_node() return.
 */

OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp(yfw_map_ctx ctx, const yfw_datatree* in,
                                                             yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_config(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                    yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_state(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                   yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_interfaces(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                        yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_interfaces_interface(yfw_map_ctx ctx,
                                                                                  const yfw_datatree* in,
                                                                                  yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_config(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                              yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_state(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                             yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_members(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                               yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_members_member(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                            yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_member_state(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                          yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_counters(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                            yfw_datatree* out);

/* ---- Container handlers: they check their arguments and return 0 ---- */

OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                  unsigned int child_count, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_config(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                         unsigned int child_count, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_state(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                        unsigned int child_count, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_interfaces(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                             unsigned int child_count,
                                                                             yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_interfaces_interface(yfw_map_ctx ctx,
                                                                                       const yfw_datatree* in,
                                                                                       unsigned int child_count,
                                                                                       yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_interface_config(yfw_map_ctx ctx,
                                                                                   const yfw_datatree* in,
                                                                                   unsigned int child_count,
                                                                                   yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_interface_state(yfw_map_ctx ctx,
                                                                                  const yfw_datatree* in,
                                                                                  unsigned int child_count,
                                                                                  yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_interface_members(yfw_map_ctx ctx,
                                                                                    const yfw_datatree* in,
                                                                                    unsigned int child_count,
                                                                                    yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_members_member(yfw_map_ctx ctx,
                                                                                 const yfw_datatree* in,
                                                                                 unsigned int child_count,
                                                                                 yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_member_state(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                               unsigned int child_count,
                                                                               yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_state_counters(yfw_map_ctx ctx,
                                                                                 const yfw_datatree* in,
                                                                                 unsigned int child_count,
                                                                                 yfw_datatree* out);

/* ---- List-key handlers ---- */

/*
 * Adds the native interface configuration entry; in an edit that deletes, deletes the interface's LACP configuration
 * instead. Answers the status of the addition or that of oc_to_qd_all_lacp_cfg_delete().
 */
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_list_lvla_lacp_interfaces_interface(yfw_map_ctx ctx,
                                                                                       const yfw_datatree* in,
                                                                                       yfw_datatree* out);

/* Adds the native member entry, with `in` as its source in an edit. Answers the status of the addition. */
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_list_lvla_lacp_members_member(yfw_map_ctx ctx,
                                                                                 const yfw_datatree* in,
                                                                                 yfw_datatree* out);

/* ---- Augment parsers: a child of a foreign namespace is refused in an add (YFW_UNKNOWN_AUGMENT), else ignored ---- */

OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_parse_augments(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                            yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_config_parse_augments(yfw_map_ctx ctx,
                                                                                   const yfw_datatree* in,
                                                                                   yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_parse_augments(yfw_map_ctx ctx,
                                                                                  const yfw_datatree* in,
                                                                                  yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_interfaces_parse_augments(yfw_map_ctx ctx,
                                                                                       const yfw_datatree* in,
                                                                                       yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_interfaces_interface_parse_augments(yfw_map_ctx ctx,
                                                                                                 const yfw_datatree* in,
                                                                                                 yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_config_parse_augments(yfw_map_ctx ctx,
                                                                                             const yfw_datatree* in,
                                                                                             yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_state_parse_augments(yfw_map_ctx ctx,
                                                                                            const yfw_datatree* in,
                                                                                            yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_members_parse_augments(yfw_map_ctx ctx,
                                                                                              const yfw_datatree* in,
                                                                                              yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_members_member_parse_augments(yfw_map_ctx ctx,
                                                                                           const yfw_datatree* in,
                                                                                           yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_member_state_parse_augments(yfw_map_ctx ctx,
                                                                                         const yfw_datatree* in,
                                                                                         yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_counters_parse_augments(yfw_map_ctx ctx,
                                                                                           const yfw_datatree* in,
                                                                                           yfw_datatree* out);

/*
 * ---- Default handlers, for nodes without a mapping ----
 *
 * A container and a list are accepted with 0, the list without a look at its arguments; a leaf is refused with
 * YFW_UNSUPPORTED_NODE.
 */

OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_duck_map_container(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                      unsigned int child_count, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_duck_map_list(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                 yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_duck_map_leaf(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                 yfw_datatree* out);

/*
 * ---- Leaf walkers ----
 *
 * Each calls the handler of its leaf and returns its status. While neither an expansion runs nor a key is pending it
 * also marks the node as entered, and in a read notes in the filter bits whether the leaf is a selection or, with a
 * value, a content match.
 */

OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_config_systempriority(yfw_map_ctx ctx,
                                                                                   const yfw_datatree* in,
                                                                                   yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_systempriority(yfw_map_ctx ctx,
                                                                                  const yfw_datatree* in,
                                                                                  yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_name(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                            yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_config_name(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                         yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_config_interval(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                             yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_config_lacpmode(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                             yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_config_systemidmac(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                                yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvlb_lacp_config_systempriority(yfw_map_ctx ctx,
                                                                                   const yfw_datatree* in,
                                                                                   yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_name(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                        yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_interval(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                            yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_lacpmode(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                            yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_systemidmac(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                               yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvlb_lacp_state_systempriority(yfw_map_ctx ctx,
                                                                                  const yfw_datatree* in,
                                                                                  yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_member_interface(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                              yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_interface(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                             yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_activity(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                            yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_timeout(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                           yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_synchronization(yfw_map_ctx ctx,
                                                                                   const yfw_datatree* in,
                                                                                   yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_aggregatable(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                                yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_collecting(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                              yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_distributing(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                                yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_systemid(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                            yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_operkey(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                           yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_partnerid(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                             yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_partnerkey(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                              yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_portnum(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                           yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_partnerportnum(yfw_map_ctx ctx,
                                                                                  const yfw_datatree* in,
                                                                                  yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_lastchange(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                              yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_counters_lacpinpkts(yfw_map_ctx ctx,
                                                                                 const yfw_datatree* in,
                                                                                 yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_counters_lacpoutpkts(yfw_map_ctx ctx,
                                                                                  const yfw_datatree* in,
                                                                                  yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_counters_lacprxerrors(yfw_map_ctx ctx,
                                                                                   const yfw_datatree* in,
                                                                                   yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_counters_lacptxerrors(yfw_map_ctx ctx,
                                                                                   const yfw_datatree* in,
                                                                                   yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_counters_lacpunknownerrors(yfw_map_ctx ctx,
                                                                                        const yfw_datatree* in,
                                                                                        yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_counters_lacperrors(yfw_map_ctx ctx,
                                                                                 const yfw_datatree* in,
                                                                                 yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_lvla_lacp_counters_lacptimeouttransitions(yfw_map_ctx ctx,
                                                                                             const yfw_datatree* in,
                                                                                             yfw_datatree* out);

/*
 * ---- Leaf handlers ----
 *
 * In a read each adds its native leaf, with the value of `in` and without a source. In an edit the handlers of `config`
 * leaves add theirs with `in` as the source, without a value when it deletes; those of `state` leaves and of a member's
 * key add nothing. They return the status of their (last) addition, or that of their converter. Different are
 *
 * - an interface's key: in a read it adds `interface-name` with its value and `active` with "act", or nothing when
 *   the request's `key_gate` (yfw/context.h) says so; in an edit the same with `in` as the source, and for a virtual
 *   interface `interface-virtual` without a value; when it deletes, `interface-name` and `active`, both with its own
 *   value;
 * - `name` of an interface's `config`: it adds nothing in any request;
 * - `interval` of an interface's `state`, and the counter `lacp-tx-errors`: refused with YFW_UNSUPPORTED_NODE in every
 *   request.
 */

OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_config_systempriority(yfw_map_ctx ctx,
                                                                                        const yfw_datatree* in,
                                                                                        yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_systempriority(yfw_map_ctx ctx,
                                                                                       const yfw_datatree* in,
                                                                                       yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_interface_name(yfw_map_ctx ctx,
                                                                                 const yfw_datatree* in,
                                                                                 yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_config_name(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                              yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_config_interval(yfw_map_ctx ctx,
                                                                                  const yfw_datatree* in,
                                                                                  yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_config_lacpmode(yfw_map_ctx ctx,
                                                                                  const yfw_datatree* in,
                                                                                  yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_config_systemidmac(yfw_map_ctx ctx,
                                                                                     const yfw_datatree* in,
                                                                                     yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvlb_lacp_config_systempriority(yfw_map_ctx ctx,
                                                                                        const yfw_datatree* in,
                                                                                        yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_name(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                             yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_interval(yfw_map_ctx ctx,
                                                                                 const yfw_datatree* in,
                                                                                 yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_lacpmode(yfw_map_ctx ctx,
                                                                                 const yfw_datatree* in,
                                                                                 yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_systemidmac(yfw_map_ctx ctx,
                                                                                    const yfw_datatree* in,
                                                                                    yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvlb_lacp_state_systempriority(yfw_map_ctx ctx,
                                                                                       const yfw_datatree* in,
                                                                                       yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_member_interface(yfw_map_ctx ctx,
                                                                                   const yfw_datatree* in,
                                                                                   yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_interface(yfw_map_ctx ctx,
                                                                                  const yfw_datatree* in,
                                                                                  yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_activity(yfw_map_ctx ctx,
                                                                                 const yfw_datatree* in,
                                                                                 yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_timeout(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                                yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_synchronization(yfw_map_ctx ctx,
                                                                                        const yfw_datatree* in,
                                                                                        yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_aggregatable(yfw_map_ctx ctx,
                                                                                     const yfw_datatree* in,
                                                                                     yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_collecting(yfw_map_ctx ctx,
                                                                                   const yfw_datatree* in,
                                                                                   yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_distributing(yfw_map_ctx ctx,
                                                                                     const yfw_datatree* in,
                                                                                     yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_systemid(yfw_map_ctx ctx,
                                                                                 const yfw_datatree* in,
                                                                                 yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_operkey(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                                yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_partnerid(yfw_map_ctx ctx,
                                                                                  const yfw_datatree* in,
                                                                                  yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_partnerkey(yfw_map_ctx ctx,
                                                                                   const yfw_datatree* in,
                                                                                   yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_portnum(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                                yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_partnerportnum(yfw_map_ctx ctx,
                                                                                       const yfw_datatree* in,
                                                                                       yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_state_lastchange(yfw_map_ctx ctx,
                                                                                   const yfw_datatree* in,
                                                                                   yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_counters_lacpinpkts(yfw_map_ctx ctx,
                                                                                      const yfw_datatree* in,
                                                                                      yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_counters_lacpoutpkts(yfw_map_ctx ctx,
                                                                                       const yfw_datatree* in,
                                                                                       yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_counters_lacprxerrors(yfw_map_ctx ctx,
                                                                                        const yfw_datatree* in,
                                                                                        yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_counters_lacptxerrors(yfw_map_ctx ctx,
                                                                                        const yfw_datatree* in,
                                                                                        yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_counters_lacpunknownerrors(yfw_map_ctx ctx,
                                                                                             const yfw_datatree* in,
                                                                                             yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_counters_lacperrors(yfw_map_ctx ctx,
                                                                                      const yfw_datatree* in,
                                                                                      yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_counters_lacptimeouttransitions(
    yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/*
 * ---- Configuration converters ----
 *
 * In an edit each adds its native leaf with the converted value, or without a value when `in` deletes; in a read with
 * the value of `in` as it is. They return the status of the addition, or that of a string operation that failed.
 */

/* "ACTIVE" becomes "active"; any other value "passive". */
OCLACP_EXPORT cerrno oc2qd_cfglacpmode(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/*
 * "FAST" becomes "1", "SLOW" "30000"; any other value, or none, is refused with YFW_UNSUPPORTED_INTERVAL. In a read,
 * and when `in` deletes, no value is read.
 */
OCLACP_EXPORT cerrno oc2qd_cfginterval(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/* Copied. */
OCLACP_EXPORT cerrno oc2qd_cfgsystemidmac(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/* Copied. */
OCLACP_EXPORT cerrno oc2qd_intfcfgsystempriority(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/* Adds nothing: the name reaches the native side through the list key. */
OCLACP_EXPORT cerrno oc2qd_config_name_ignore(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/* One target list of an OpenConfig list entry. */
typedef struct xpath_list_type {
  char path[250];      /* absolute native path; "NULL" ends a table */
  char ns[110];        /* namespace URI */
  uint32_t selected;   /* 1: the request's entry maps to this list */
  uint32_t list_entry; /* the last flag with which the list is added */
  char value[256];     /* "NULL" when empty */
} xpath_list_type_t;

/*
 * Selects the target list of an interface entry: of the first `count` entries, the first whose path lies under
 * "/interface-configurations/". Always 0.
 */
OCLACP_EXPORT cerrno oc2qd_intf_name(yfw_map_ctx ctx, int count, xpath_list_type_t* entries);

/*
 * ---- State converters ----
 *
 * In a read each asks for its native leaf, with the value of `in`, and returns the status of the addition; in an edit
 * it adds nothing and returns 0. All six leaves of a member's port state share the last one.
 */

OCLACP_EXPORT cerrno oc2qd_appliedlacpmode(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno oc2qd_statesystemidmac(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno oc2qd_intfstatesystempriority(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
OCLACP_EXPORT cerrno oc2qd_actorportstate(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/* ---- Deletion ---- */

/*
 * Deletes the LACP configuration that an OpenConfig entry, or all of /lacp, stands for. For a node tagged "lacp" the
 * device's system priority is deleted as well. Answers as oclacp_to_qd_bundle_lacp_config_delete().
 */
OCLACP_EXPORT cerrno oc_to_qd_all_lacp_cfg_delete(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/* Deletes the system priority of the device. Answers the status of the addition. */
OCLACP_EXPORT cerrno delete_global_lacp(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/*
 * Asks the data store which interfaces hold LACP configuration and deletes the `lacp` container of each, or, for a node
 * tagged "interface", of the first whose data-store name occurs in the entry's name, the value of its first child. An
 * addition that fails ends the deletion with its status. Otherwise, for a node that is no interface: YFW_SKIP_SUBTREE,
 * whatever the data store said. For an interface: YFW_SKIP_SUBTREE when it was found, and while a replace is carried
 * out; else YFW_NOTHING_TO_DELETE for YFW_OPERATION_DELETE, 0 for YFW_OPERATION_REMOVE, and for any other operation the
 * status of the data store. Once an interface was found, the node has YFW_FLAG_OPERATION_CHANGED and the operation that
 * yfw/datatree.h states.
 */
OCLACP_EXPORT cerrno oclacp_to_qd_bundle_lacp_config_delete(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

#ifdef __cplusplus
}
#endif

#endif
