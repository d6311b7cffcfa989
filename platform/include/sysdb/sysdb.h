/*
 * The data-store client.
 *
 * Conventions
 * 1. Every operation returns 0 or a failure code. A failed bind at load is what the module's initialiser returns. In a
 *    deletion a failed bind, find or step of the list is recorded and ends the search: the interfaces that were not
 *    reached are treated as having no LACP configuration. A failed unbind or release of a list is ignored.
 * 2. A module uses the client only after access(SYSDB_LIBRARY_PATH, R_OK) found its library; a platform without such a
 *    file serves that probe itself.
 * 3. The shared connection is bound and unbound without a request, on the thread that loads and unloads the module.
 *    Everything else is called on the request's thread, over a connection that lives for one call of a handler; only
 *    when the framework refuses an addition of a deletion do its connection and its list stay open.
 */
#ifndef SYSDB_SYSDB_H
#define SYSDB_SYSDB_H

#include <stdint.h>

#include "yfw/status.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Where the client's library is when it is present. */
#define SYSDB_LIBRARY_PATH "/pkg/lib/libsysdb.so"

/* The root of the active interface configuration. */
#define SYSDB_ACTIVE_INTERFACES "/cfg/if/act/"

/* The root of the interface manager's global data, and the flags that it is bound with. */
#define SYSDB_INTERFACE_GLOBALS "/oper/intf_mgbl/gl/"
enum { SYSDB_GLOBALS_BIND_FLAGS = 0 };

/* The flags that the module binds and finds with; their meaning is the data store's. */
enum { SYSDB_BIND_FLAGS = 4, SYSDB_FIND_FLAGS = 4 };

typedef struct sysdb_connection* sysdb_handle;
typedef struct sysdb_result_list* sysdb_list_handle;

/*
 * The connection to SYSDB_INTERFACE_GLOBALS that all modules share: owned by the platform, null until the first module
 * that needs it binds it. The module unbinds it when it is unloaded and leaves the handle as it is.
 */
extern sysdb_handle yfw_intf_mgbl_connid;

/* Opens a connection whose paths are relative to `path`. On success `*connection` is open, else untouched. */
cerrno _sysdb_bind(sysdb_handle* connection, const char* path, uint32_t flags);

/* Closes a connection. */
cerrno _sysdb_unbind(sysdb_handle connection);

/*
 * Finds the items whose path matches `pattern` (a POSIX extended regular expression over the whole relative path);
 * `second_pattern` is empty. On success `*count` is their number and `*list` a handle to be freed, or null when there
 * are none. The last argument is 0. Under SYSDB_ACTIVE_INTERFACES an item is an interface in its entry form (each '/'
 * of the name replaced by '_'), a '/', and the path of a configuration container with a '/' behind it, such as
 * "Bundle-Ether1/lacp/".
 */
cerrno sysdb_find(sysdb_handle connection, const char* pattern, const char* second_pattern, uint32_t* count,
                  sysdb_list_handle* list, uint32_t flags, uint32_t zero);

/*
 * Gives the next item's path. The text is the list's, may be cut in place by the caller, and lives until the list is
 * freed. The two further outputs are not used by the module.
 */
cerrno sysdb_list_next(sysdb_list_handle list, char** path, uint32_t* item_type, uint32_t* item_size);

/* Frees a list. */
cerrno sysdb_list_free(sysdb_list_handle list);

#ifdef __cplusplus
}
#endif

#endif
