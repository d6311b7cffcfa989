/*
 * Loading and unloading the module, and what it maps.
 *
 * Conventions
 * 1. Called on one thread, at load and unload time; nothing here has a context, and nothing is recorded.
 * 2. Order: yfw_oclacp_init(), then the registrations and the capability callback, which may also be called before it;
 *    yfw_oclacp_cleanup() at the end.
 */
#ifndef OCLACP_LIFECYCLE_H
#define OCLACP_LIFECYCLE_H

#include <stdint.h>

#include "imc/imc.h"
#include "oclacp/export.h"
#include "yfw/registration.h"
#include "yfw/status.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The module's connection to the interface manager; null until yfw_oclacp_init() bound it. */
OCLACP_EXPORT extern imc_handle yfw_oclacp_im_conn;

/*
 * Binds the shared data-store connection if nobody did, and the module's own connection. A second call binds nothing.
 * 0; SYSDB_LIBRARY_MISSING when the shared connection is to be bound and the data-store client's library is not there,
 * which every call looks for again until it is found; or the code of the bind that failed.
 */
OCLACP_EXPORT cerrno yfw_oclacp_init(void);

/*
 * Unbinds what is bound, the shared connection only if the data-store client's library is there. The module clears
 * neither handle; imc_db_unbind() may clear the one that it is given, and then a later yfw_oclacp_init() binds it
 * again. Failures are ignored.
 */
OCLACP_EXPORT void yfw_oclacp_cleanup(void);

/*
 * Whether the mapping is disabled: 1 on platform types other than 7, 8 and 18, and for namespaces other than that of
 * openconfig-lacp; else 0.
 */
OCLACP_EXPORT uint32_t yfw_map_lacp_disable_cabability_cb(const char* ns);

/* The four mappings: interface-configurations, lacp-bundles, the global lacp container, lacp-data. */
OCLACP_EXPORT void yfw_map_reg_oclacp_lacpbundles_conf(yfw_map_registration* registration);
OCLACP_EXPORT void yfw_map_reg_oclacp_lacpbundles_oper(yfw_map_registration* registration);
OCLACP_EXPORT void yfw_map_reg_oclacp_lacpbundles_global_conf(yfw_map_registration* registration);
OCLACP_EXPORT void yfw_map_reg_oclacp_lacpglobaldata_oper(yfw_map_registration* registration);

#ifdef __cplusplus
}
#endif

#endif
