/*
 * The interface-manager client.
 *
 * Conventions
 * 1. Every operation that returns a `cerrno` returns 0 or a failure code. A failed bind is what the module's
 *    initialiser returns; a failed unbind is ignored. A failed look-up is no error, and nothing is reported: each
 *    operation says how the module goes on.
 * 2. Records are the caller's.
 * 3. Look-ups are called on the request's thread; the bind and the unbind without a request, on the thread that loads
 *    and unloads the module.
 */
#ifndef IMC_IMC_H
#define IMC_IMC_H

#include <assert.h>
#include <stdint.h>

#include "yfw/status.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef struct imc_connection* imc_handle;

/* The connection through which names are looked up. The platform opens and closes it; the module reads it. */
extern imc_handle yfw_ocifmgr_im_conn;

/* The two arguments that a module binds with; their meaning is the interface manager's. */
enum { IMC_BIND_KIND = 10, IMC_BIND_MODE = 2 };

/* Opens a connection. `kind` points to IMC_BIND_KIND. On success `*connection` is open, else untouched. */
cerrno imc_db_bind(const uint32_t* kind, uint32_t mode, imc_handle* connection);

/* Closes a connection; `zero` is 0. It may set `*connection` to null; the module itself does not. */
cerrno imc_db_unbind(imc_handle* connection, uint32_t zero);

/* Kinds of look-up keys. */
enum { IMC_KEY_NAME = 1 };

/* The look-up key: the interface's name in entry form (each '/' replaced by '_'). */
typedef struct imc_interface_key {
  const char* name;
} imc_interface_key;

/* Where a look-up puts its results. */
typedef struct imc_interface_attributes {
  uint32_t* interface_handle;
  uint32_t* attribute;
} imc_interface_attributes;

/* The attribute by which the interface manager marks a virtual interface. */
#define IMC_ATTRIBUTE_VIRTUAL 0x409A0600u

/* Interface flags: an interface with GATE needs both bits of REQUIRED to be taken for a virtual one. */
#define IMC_FLAG_GATE UINT64_C(0x01000000)
#define IMC_FLAGS_REQUIRED UINT64_C(0x00800040)

/* The name kind of a physical interface. */
enum { IMC_NAME_KIND_PHYSICAL = 2 };

/* The result of parsing a name. The module reads the kind only. */
typedef struct imc_ifname_parse_result {
  uint32_t kind;
  uint8_t reserved[180];
} imc_ifname_parse_result;

static_assert(sizeof(imc_ifname_parse_result) == 184, "size fixed by the interface manager");

/*
 * Finds an interface. `key_kind` is IMC_KEY_NAME; `zero` is 0. A failure leaves both outputs as they were: the module
 * has set them to 0, and goes on with handle 0.
 */
cerrno imc_interface_find(imc_handle connection, uint32_t key_kind, const imc_interface_key* key, uint32_t zero,
                          const imc_interface_attributes* attributes);

/*
 * Reads an interface's flags; `zero` is 0. Only the low 32 bits are read. The module calls it with handle 0 for an
 * interface that it did not find, and takes the interface for a physical one when it fails.
 */
cerrno imc_s_interface_get_flags(imc_handle connection, uint32_t interface_handle, uint32_t zero, uint64_t* flags);

/*
 * Parses a name in entry form; `zero` is 0. A failure leaves the result as it was: all zero, which is not the kind of a
 * physical interface.
 */
cerrno imc_ifname_parse(const char* name, uint32_t zero, imc_ifname_parse_result* result);

/*
 * Turns a data-store name element into the interface's display name, terminated within `size` bytes; `zero` is 0. A
 * failure leaves the buffer as it was; the module goes on with what it holds: empty, or in a deletion of several
 * interfaces the name of the one before.
 */
cerrno imc_display_namestring(const char* element, char* display_name, uint32_t size, uint32_t zero);

/* Whether LACP is configured on an interface, by its native name. Non-zero: it is. */
uint32_t get_intf_type_if_lacp_configured(const char* interface_name);

#ifdef __cplusplus
}
#endif

#endif
