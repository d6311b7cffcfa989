/*
 * Registrations: how a framework learns what a mapping module maps.
 *
 * Conventions
 * 1. After loading the module the framework calls its initialiser and its registration functions, each with a record of
 *    its own, which it owns; before unloading it calls the cleanup function. All on one thread, without a request.
 * 2. A registration function fills the record with yfw_strncpy_s() and leaves alone what is marked so. It reports
 *    nothing.
 * 3. The field order is part of the contract.
 */
#ifndef YFW_REGISTRATION_H
#define YFW_REGISTRATION_H

#include <stdint.h>

#include "yfw/context.h"
#include "yfw/datatree.h"
#include "yfw/status.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Capacity of the texts of a registration, their terminators included. */
enum { YFW_REGISTRATION_TEXT_CAPACITY = 81 };

/* Walks a tree into an output tree. */
typedef cerrno (*yfw_map_walker)(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

/* Asked with a namespace URI whether its mapping is disabled on this platform. 1: it is; 0: it is offered. */
typedef uint32_t (*yfw_capability_callback)(const char* ns);

typedef struct yfw_map_registration {
  char description[YFW_REGISTRATION_TEXT_CAPACITY];
  char native_ns[YFW_REGISTRATION_TEXT_CAPACITY];     /* namespace URI of the native module */
  char openconfig_ns[YFW_REGISTRATION_TEXT_CAPACITY]; /* namespace URI of the OpenConfig module */
  char native_root[YFW_REGISTRATION_TEXT_CAPACITY];   /* name of the native top node */
  char openconfig_root[YFW_REGISTRATION_TEXT_CAPACITY];
  yfw_map_walker openconfig_walker;         /* an OpenConfig request becomes native paths */
  yfw_map_walker reserved_walkers[2];       /* left alone */
  yfw_map_walker native_walker;             /* a native tree becomes OpenConfig paths */
  uint32_t first_flag;                      /* 0 */
  uint32_t second_flag;                     /* 1 for interface configuration, else 0; its meaning is the framework's */
  uintptr_t reserved;                       /* left alone */
  yfw_capability_callback disables_mapping; /* set for interface configuration only */
} yfw_map_registration;

#ifdef __cplusplus
}
#endif

#endif
