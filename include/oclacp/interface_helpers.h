/*
 * Questions about an interface name.
 *
 * Conventions
 * 1. Names are NUL-terminated, at most 63 characters long, and not null unless that is said; results are 0 for no.
 * 2. None of these functions reports an error: a failed copy is traced, a failed look-up is a result.
 * 3. The look-ups go through the connection that the platform publishes as yfw_ocifmgr_im_conn, on the request's
 * thread.
 */
#ifndef OCLACP_INTERFACE_HELPERS_H
#define OCLACP_INTERFACE_HELPERS_H

#include <stdint.h>

#include "oclacp/export.h"
#include "yfw/context.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Where the terminator of an entry form is set in any case, and the bytes that a buffer for it needs. */
enum { OCLACP_IFENTRY_LENGTH = 64, OCLACP_IFENTRY_CAPACITY = 65 };

/*
 * Writes the entry form of `ifname` into `ifentry` (OCLACP_IFENTRY_CAPACITY bytes): each '/' becomes '_'. A name that
 * does not fit is traced, unless the context is null, and what the copy left is converted all the same. With a null
 * buffer or name nothing happens.
 */
OCLACP_EXPORT void convert_oc_ifname_ifentry(char* ifentry, const char* ifname, yfw_map_ctx ctx);

/*
 * Whether the interface is virtual: the interface manager says so, or its flags allow it and its name is not that of a
 * physical interface; a name that cannot be parsed is none. 1: it is; 0: it is not, or its flags cannot be read, or
 * its name cannot be copied. `*looked_up` is set to 1 when the look-up by name did not settle the question, and is
 * left alone otherwise; it must not be null. A null context ends the process, but only when there is a failed copy to
 * trace.
 */
OCLACP_EXPORT int yfw_lacp_util_is_virtual(const char* ifname, uint32_t* looked_up, yfw_map_ctx ctx);

/* Whether the name is that of a sub-interface: it contains a '.'. */
OCLACP_EXPORT int yfw_is_oc_subinterface(const char* ifname);

/* Whether the name is that of a bundle: it contains "Bundle". For other modules. */
OCLACP_EXPORT int yfw_is_oc_bundleinterface(const char* ifname);

#ifdef __cplusplus
}
#endif

#endif
