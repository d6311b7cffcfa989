/*
 * Status codes.
 *
 * Conventions
 * 1. Every handler of a mapping module, and every operation of the platform that can fail, returns a `cerrno`: 0 is
 *    success, anything else a failure (or, for YFW_SKIP_SUBTREE, a result that is not an error).
 * 2. A mapping module returns the codes below; codes of platform operations are passed up unchanged where the
 *    operation does not state otherwise. When-handlers are the exception: they return 0, or a plain 1 when they are
 *    given no node.
 * 3. Functions of this header may be called from any thread.
 */
#ifndef YFW_STATUS_H
#define YFW_STATUS_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Status of an operation. */
typedef uint32_t cerrno;

/* Done; also "there was nothing to do". */
#define YFW_OK 0u

/* A null input node or output tree, or a delete of a container that names children. */
#define YFW_INVALID_ARGUMENTS 0xaaf2a000u

/*
 * The tree is malformed: children announced but missing, a node without tag, a list entry without keys, a native
 * `interface-name` leaf without value.
 */
#define YFW_MALFORMED_TREE 0xaaf29e00u

/*
 * The node is not supported by the mapping; the request's error tag names it. Also a native interface entry for
 * which no name is found; then neither is the error tag set nor the error path marked.
 */
#define YFW_UNSUPPORTED_NODE 0xaaf2ee00u

/* A list key is missing, doubled or empty; the request's error tag names the key. */
#define YFW_BAD_LIST_KEY 0xaaf2f000u

/* A list key carries a delete operation of its own; the request's error tag names the key. */
#define YFW_LIST_KEY_DELETED 0xaaf2f200u

/*
 * Not an error: a container or list handler returns it when its node needs no walk, and the walk goes on with the next
 * node. Natively only the entries of an interface configuration, a bundle and a member can be skipped: their walkers
 * return it to their caller, where it ends as 0. From any other function, a leaf handler or an operation of the
 * platform, it is a status like every other and ends the walk of the nodes around; among native data it is 0 again at
 * the caller of the nearest such entry, and the status of the entry walker where there is none.
 */
#define YFW_SKIP_SUBTREE 0xaaf2f600u

/* An edit adds a node of another module by augmentation; the request's error tag names it. */
#define YFW_UNKNOWN_AUGMENT 0xaaf2f800u

/* An interval or native period that is neither one second nor thirty; the request's error tag is "interval". */
#define YFW_UNSUPPORTED_INTERVAL 0xaaf2fe00u

/* A delete of an interface entry without LACP configuration: there is none, or the data store could not be asked. */
#define YFW_NOTHING_TO_DELETE 0xaaf28000u

/* The library of the data-store client is not present on the device. */
#define SYSDB_LIBRARY_MISSING 0x8081c200u

/*
 * The text of a status, for a person. Never null; owned by the platform and valid for the life of the process.
 * The module uses it only as an argument of log and trace records.
 */
const char* cerr_strerror(cerrno status);

#ifdef __cplusplus
}
#endif

#endif
