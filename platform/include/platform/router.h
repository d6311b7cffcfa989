/*
 * What kind of device this is.
 *
 * Conventions: no failure; called by the capability callback, without a request, on the thread that asks it.
 */
#ifndef PLATFORM_ROUTER_H
#define PLATFORM_ROUTER_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The platform type number. */
uint32_t platform_get_router_type(void);

#ifdef __cplusplus
}
#endif

#endif
