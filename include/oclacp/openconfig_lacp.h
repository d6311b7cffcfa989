/*
 * The openconfig-lacp side of the module: OpenConfig requests become native paths.
 *
 * Conventions
 * 1. Every function takes the mapping context first and answers a status of yfw/status.h; 0 is success.
 * 2. The context must not be null: the process is ended through __assert_fail() if it is. A null input node or output
 *    tree is refused with YFW_INVALID_ARGUMENTS, except where a function is said not to look at them.
 * 3. Every function records its start, its errors and its end under its own name. No end is recorded for null
 * arguments, after a handler's YFW_SKIP_SUBTREE (outside of a replace) and after a failed string operation.
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

/* ---- Walkers of containers and list entries; the first is the entry walker of every registration ---- */

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

/* ---- Container handlers: they check their arguments and answer 0 ---- */

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

/* ---- List-key handlers: an OpenConfig key becomes native list entries, or their deletion ---- */

OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_list_lvla_lacp_interfaces_interface(yfw_map_ctx ctx,
                                                                                       const yfw_datatree* in,
                                                                                       yfw_datatree* out);
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

/* ---- Default handlers: container and list answer 0, the list without a look; the leaf is refused ---- */

OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_duck_map_container(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                      unsigned int child_count, yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_duck_map_list(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                 yfw_datatree* out);
OCLACP_EXPORT cerrno ymap_oq_oclacp_openconfiglacp_duck_map_leaf(yfw_map_ctx ctx, const yfw_datatree* in,
                                                                 yfw_datatree* out);

/* ---- Leaf walkers: call the leaf handler and note selections and content matches in the filter bits ---- */

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

/* ---- Leaf handlers: add the native target, or refuse the leaf ---- */

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

/* ---- Configuration converters ---- */

/* "ACTIVE" becomes "active"; any other value "passive". */
OCLACP_EXPORT cerrno oc2qd_cfglacpmode(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/* "FAST" becomes "1", "SLOW" "30000"; any other value is refused with YFW_UNSUPPORTED_INTERVAL. */
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

/* ---- State converters: in a read they ask for their native leaf, in an edit they add nothing ---- */

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
 * tagged "interface", of the first whose data-store name occurs in the entry's name. YFW_SKIP_SUBTREE when all that is
 * to be deleted was added, and in the first pass of a replace; YFW_NOTHING_TO_DELETE for a plain delete of an interface
 * that has none; 0 for a remove of such an interface; else the status of the failed addition or of the data store. The
 * node's operation is left at 4, or 0, with YFW_FLAG_OPERATION_CHANGED, once an interface was taken.
 */
OCLACP_EXPORT cerrno oclacp_to_qd_bundle_lacp_config_delete(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

#ifdef __cplusplus
}
#endif

#endif
