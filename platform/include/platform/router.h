/*
 * What kind of device this is.
 *
 * Conventions: no failure; called on the thread that loads the module.
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
