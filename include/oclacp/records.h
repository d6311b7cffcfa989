/*
 * The typed records ("bags") in which the bundle manager publishes bundle, member, LACP and multi-chassis LACP data.
 *
 * Conventions
 * 1. A descriptor is constant data and lives as long as the module is loaded; bag/bag.h says what it holds.
 * 2. Records hold numbers in the byte order of the machine.
 * 3. An accessor takes no arguments and returns the address of its descriptor, from any thread.
 */
#ifndef OCLACP_RECORDS_H
#define OCLACP_RECORDS_H

#include "bag/bag.h"
#include "oclacp/export.h"
#include "yfw/status.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Descriptors, in the order in which they are registered ------------------------------------------------------ */

OCLACP_EXPORT extern const bag_descriptor bm_name_bag_bag;
OCLACP_EXPORT extern const bag_descriptor lacp_system_id_bag;
OCLACP_EXPORT extern const bag_descriptor bm_mac_alloc_bag;
OCLACP_EXPORT extern const bag_descriptor bm_member_data_bag;
OCLACP_EXPORT extern const bag_descriptor bm_bundle_data_bag;
OCLACP_EXPORT extern const bag_descriptor bm_bundle_combined_data_bag;
OCLACP_EXPORT extern const bag_descriptor bm_node_combined_data_bag;
OCLACP_EXPORT extern const bag_descriptor lacp_bundle_data_bag;
OCLACP_EXPORT extern const bag_descriptor lacp_last_changed_bag;
OCLACP_EXPORT extern const bag_descriptor lacp_distrib_debug_data_bag;
OCLACP_EXPORT extern const bag_descriptor bm_rpl_state_bag;
OCLACP_EXPORT extern const bag_descriptor lacp_mbr_data_bag;
OCLACP_EXPORT extern const bag_descriptor lacp_combined_data_bag;
OCLACP_EXPORT extern const bag_descriptor bmd_bag_mlacp_bdl_bag;
OCLACP_EXPORT extern const bag_descriptor bmd_bag_mlacp_rg_bag;
OCLACP_EXPORT extern const bag_descriptor bmd_bag_mlacp_data_bag;
OCLACP_EXPORT extern const bag_descriptor bmd_bag_mlacp_data_multiple_bag;
OCLACP_EXPORT extern const bag_descriptor bmd_bag_mlacp_act_data_bag;
OCLACP_EXPORT extern const bag_descriptor bmd_bag_mlacp_act_data_multiple_bag;
OCLACP_EXPORT extern const bag_descriptor bm_bundle_applied_lacp_mode_bag;

/* ---- Accessors of the descriptors -------------------------------------------------------------------------------- */

OCLACP_EXPORT const bag_descriptor* bm_name_bag_bag_getfn(void);
OCLACP_EXPORT const bag_descriptor* lacp_system_id_bag_getfn(void);
OCLACP_EXPORT const bag_descriptor* bm_mac_alloc_bag_getfn(void);
OCLACP_EXPORT const bag_descriptor* bm_member_data_bag_getfn(void);
OCLACP_EXPORT const bag_descriptor* bm_bundle_data_bag_getfn(void);
OCLACP_EXPORT const bag_descriptor* bm_bundle_combined_data_bag_getfn(void);
OCLACP_EXPORT const bag_descriptor* bm_node_combined_data_bag_getfn(void);
OCLACP_EXPORT const bag_descriptor* lacp_bundle_data_bag_getfn(void);
OCLACP_EXPORT const bag_descriptor* lacp_last_changed_bag_getfn(void);
OCLACP_EXPORT const bag_descriptor* lacp_distrib_debug_data_bag_getfn(void);
OCLACP_EXPORT const bag_descriptor* bm_rpl_state_bag_getfn(void);
OCLACP_EXPORT const bag_descriptor* lacp_mbr_data_bag_getfn(void);
OCLACP_EXPORT const bag_descriptor* lacp_combined_data_bag_getfn(void);
OCLACP_EXPORT const bag_descriptor* bmd_bag_mlacp_bdl_bag_getfn(void);
OCLACP_EXPORT const bag_descriptor* bmd_bag_mlacp_rg_bag_getfn(void);
OCLACP_EXPORT const bag_descriptor* bmd_bag_mlacp_data_bag_getfn(void);
OCLACP_EXPORT const bag_descriptor* bmd_bag_mlacp_data_multiple_bag_getfn(void);
OCLACP_EXPORT const bag_descriptor* bmd_bag_mlacp_act_data_bag_getfn(void);
OCLACP_EXPORT const bag_descriptor* bmd_bag_mlacp_act_data_multiple_bag_getfn(void);
OCLACP_EXPORT const bag_descriptor* bm_bundle_applied_lacp_mode_bag_getfn(void);

/*
 * Registers all descriptors with the platform's registry, in one transaction. A failed start is returned at once; the
 * first refused descriptor ends the transaction through bag_register_abort(), and its code is returned; a failed end
 * is returned as it is. Called once, on the thread that loads the module.
 */
OCLACP_EXPORT cerrno bag_register_all_bundlemgr_distrib_bags(void);

#ifdef __cplusplus
}
#endif

#endif
