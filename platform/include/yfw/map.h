/*
 * The mapping framework: classification of requests, position in the tree, and the output.
 *
 * Conventions
 * 1. Every text and node is borrowed for the call; what the framework keeps it copies.
 * 2. Operations that return a `cerrno` may fail; the module passes the code up unchanged where the operation does not
 *    state otherwise. The others cannot fail.
 * 3. Called on the request's thread, with the context of that request. yfw_map_do_these_match() has neither: the
 *    capability callback calls it without a request, on the thread that asks.
 */
#ifndef YFW_MAP_H
#define YFW_MAP_H

#include <stdint.h>

#include "yfw/context.h"
#include "yfw/datatree.h"
#include "yfw/status.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Classification ---------------------------------------------------------------------------------------------- */

/* Whether two tags or two namespaces match. Non-zero: they do. A null text matches nothing. */
int yfw_map_do_these_match(const char* one, const char* other);

/* Whether the node, or the request around it, deletes. Non-zero: it does. */
int yfw_map_is_request_delete(const yfw_datatree* node);

/* Whether the node creates or merges something in an edit. Non-zero: it does. Zero in reads and deletes. */
int yfw_map_is_request_add(yfw_map_ctx ctx, const yfw_datatree* node);

/*
 * Tells the framework that the request failed at the current node. Called once, by the handler that finds the error,
 * for the codes YFW_INVALID_ARGUMENTS (null arguments only), YFW_UNSUPPORTED_NODE (but not for a native interface entry
 * without name), YFW_BAD_LIST_KEY, YFW_LIST_KEY_DELETED, YFW_UNKNOWN_AUGMENT, YFW_UNSUPPORTED_INTERVAL and
 * YFW_NOTHING_TO_DELETE. A whole-subtree expansion ignores the results of what it calls, so a call may be followed by a
 * walk that succeeds: only the entry walker's status says whether the request failed.
 */
void yfw_oc_error_path(yfw_map_ctx ctx);

/* ---- Position in the request ------------------------------------------------------------------------------------- */

/* Kinds of nodes on the hierarchy. */
enum { YFW_HIERARCHY_CONTAINER = 1, YFW_HIERARCHY_LIST = 2 };

/* Makes a node the current position. `kind` is YFW_HIERARCHY_*. Balanced by yfw_map_remove_from_node_hierarchy(). */
void yfw_map_add_to_node_hierarchy(yfw_map_ctx ctx, const yfw_datatree* node, int kind);

/* Undoes the former when the walker leaves the node. */
void yfw_map_remove_from_node_hierarchy(yfw_map_ctx ctx, const yfw_datatree* node);

/*
 * Tells which list, by its absolute path without keys, the keys that follow belong to: the walker has reached the next
 * entry of it. That also closes the output entries that were opened by an addition with the list flag under the entry
 * before. After a failure no list handler and no child of the entry is called.
 */
cerrno yfw_map_update_current_list_node(yfw_map_ctx ctx, const char* list_path);

/*
 * Checks that the target of a list key's leafref exists; called for every key leaf under the operation codes that
 * check list keys. `list_path` is the list, `container` the child ("config") that holds the target, `key` the key
 * leaf's tag, `entry` the list entry. 0 when it exists; a module reports any other status and ends its walk with it.
 */
cerrno yfw_map_check_oc_leafref(yfw_map_ctx ctx, const char* list_path, const char* container, const char* key,
                                const yfw_datatree* entry);

/*
 * Looks up a leaf of the tree that is walked, by its position. `path`, absolute and without keys, is a list of which an
 * entry is on the hierarchy, or a container below such an entry, whether the walker has reached it or not: the applied
 * mode of a bundle is asked for as "/lacp-bundles/bundles/bundle/data" and "applied-lacp-mode". `leaf` is the leaf's
 * name, `value` the place for the value, which the framework owns.
 *
 * Returns 0 or why there is no value. A handler sets `*value` to null before the call and takes any combination of the
 * two. The handler of an interface's entry returns YFW_UNSUPPORTED_NODE without a name, whatever the status; with a
 * name and a status other than 0 it returns that. The handler of a bundle's entry uses the name that it got and ignores
 * the status; without one it opens no entry and returns the status, which may be 0. A converter that looks up its
 * interface or bundle ends with a status other than 0, also with a name; a null name with 0 is treated as an interface
 * that is not mapped. For "applied-lacp-mode" the status is ignored: a mode that came with a failure is used, and null
 * is reported as an empty mode.
 */
cerrno yfw_map_get_node_info(yfw_map_ctx ctx, const char* path, const char* leaf, const char** value);

/* ---- Output ------------------------------------------------------------------------------------------------------ */

/*
 * Adds one node to the output. `path` is absolute and without keys; a list flag of 1 with a path that ends at a list
 * (a trailing slash is the same) opens an entry, and the key leaves that follow give it its keys. `ns` is the
 * namespace of the target. `value` is null for a list, a container, an empty leaf (`interface-virtual`), a leaf that
 * is deleted, and a leaf that is named without value; the `interface-name` and `active` that a deleted interface key
 * adds keep the value of the key. `source` is the input node whose edit operation the new node takes. OpenConfig
 * requests pass one in edits and null in reads; from native data only a list entry that is deleted passes one, an
 * interface's or a member's, in any kind of request. `word` is 0, except for the native interface entry that is
 * deleted: its handler passes the address of the request's current-list slot. `list_flag` is 1 for a list entry, for
 * the `interface-name` and `active` of an interface key and for both leaves of a member's name, else 0. `last_flag` is
 * 1 for what the converters of OpenConfig configuration add (`mode`, `period`, `system-mac` and `system-priority` of
 * an interface's `lacp`), for `applied-lacp-mode` in a read, for the `lacp` container of an interface that is deleted,
 * for the six leaves of a member's port state and for both leaves of a member's name; it is 0 for everything else,
 * also for what the converters of native configuration and of a bundle's state add. Its meaning is the framework's.
 *
 * The code of a failure is passed up, with these exceptions, which are intentional:
 * - Where one leaf adds two nodes, the status of the last counts: `interface-name` before `active` (and that before
 *   `interface-virtual`), an interface's `name` before its `state/name`, a member's `interface` before its
 *   `state/interface`, `lacp-errors` before `lacp-unknown-errors`.
 * - The six leaves of a member's port state: all six are added, and the handler returns 0.
 * - The system priority that a delete of /lacp adds before the interfaces.
 * - Whatever happens in a whole-subtree expansion.
 */
cerrno yfw_map_datatree_add_path_flagged(yfw_map_ctx ctx, yfw_datatree* output, const char* path, const char* ns,
                                         const char* value, const yfw_datatree* source, uintptr_t word, int list_flag,
                                         int last_flag);

/*
 * Finds the output list entry whose key leaf `key_name` has the value `key_value`, or creates it, and stores it in
 * `*entry`, which is the request's `current_list_node`. The leaves below `list_path` that are added while it is there
 * belong to it; the walker of the input entry takes it out again.
 */
cerrno yfw_map_search_or_add_list(yfw_map_ctx ctx, yfw_datatree* output, yfw_datatree** entry, const char* list_path,
                                  const char* key_value, const char* key_name, const char* ns);

/*
 * The output path list, kept by the native walkers around the children of a list entry, and also when the list handler
 * failed. The entry is removed again only if `output_list_count` grew when it was added.
 */
void yfw_add_to_output_list_ctx(yfw_map_ctx ctx, yfw_datatree* output);
void yfw_remove_from_output_list_ctx(yfw_map_ctx ctx, yfw_datatree* output);

/* Cuts the output path list back to a list's path; called after the addition of a deleted interface entry. */
void yfw_map_copy_trim_path_list_ctx(yfw_map_ctx ctx, const char* list_path);

/* ---- The itree stack --------------------------------------------------------------------------------------------- */

/* Called by the list walker for one further entry; returns what a list-key handler does. */
typedef cerrno (*yfw_itree_callback)(yfw_map_ctx ctx, const yfw_datatree* entry, yfw_datatree* output);

/*
 * One entry of the stack. With a null callback it holds the children of a node that is walked as a whole. With a
 * callback it is an iterator: a list-key handler pushes it when one list entry of the request stands for more, and
 * `children` are the further entries (not null unless the count is 0). The list walker walks each after the first,
 * inside the first on the hierarchy, and takes the iterator off again.
 */
typedef struct yfw_itree_entry {
  yfw_datatree* children;
  unsigned int child_count;
  yfw_itree_callback callback;
} yfw_itree_entry;

void yfw_map_util_itree_stack_push(yfw_map_ctx ctx, yfw_datatree* children, unsigned int child_count,
                                   yfw_itree_callback callback);
void yfw_map_util_itree_stack_pop(yfw_map_ctx ctx);

/* The depth of the stack. */
uint16_t yfw_map_util_itree_stack_size(yfw_map_ctx ctx);

/* Reads the top entry without taking it off; the stack is not empty. */
void yfw_map_util_itree_stack_peak(yfw_map_ctx ctx, yfw_itree_entry* top);

#ifdef __cplusplus
}
#endif

#endif
