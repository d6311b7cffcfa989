/*
 * The leaves that the module maps, as data: which function serves a leaf, what it does, and what the leaf stands for in
 * the other model. For frameworks and tools that show or check the mapping; a translation needs none of it.
 *
 * Conventions
 * 1. The tables are built from the rows that define the handlers, so they say what a translation does.
 * 2. Tables and texts are constant data and live as long as the module is loaded.
 * 3. An accessor takes no arguments and may be called from any thread.
 * 4. Paths are absolute and have neither prefixes nor keys. Where a model augments another, a path has steps of both;
 *    a namespace is that of the last step.
 */
#ifndef OCLACP_LEAVES_H
#define OCLACP_LEAVES_H

#include <stddef.h>

#include "oclacp/export.h"
#include "yfw/context.h"
#include "yfw/datatree.h"
#include "yfw/status.h"

#ifdef __cplusplus
extern "C" {
#endif

/* What a leaf's handler does (`work`). */
enum {
  OCLACP_LEAF_COPIED,      /* the value goes to each target as it is */
  OCLACP_LEAF_ASKED_FOR,   /* operational state of openconfig-lacp: reads ask for the target, edits add nothing */
  OCLACP_LEAF_CONVERTED,   /* the handler passes on to a converter, which serves the target if there is one */
  OCLACP_LEAF_HANDWRITTEN, /* the handler serves the targets in a way of its own, and may add what belongs to them */
  OCLACP_LEAF_REFUSED,     /* every request that names the leaf is refused: it has no source */
  OCLACP_LEAF_SILENT       /* a native leaf without a counterpart: nothing is reported */
};

/* A leaf of the other model. */
typedef struct oclacp_leaf_target {
  const char* path;
  const char* ns; /* namespace URI */
} oclacp_leaf_target;

/* The most targets that a leaf has: a member's port state becomes six leaves. */
enum { OCLACP_LEAF_TARGETS = 6 };

/* One leaf. Names are those under which the functions are exported, and which a trace shows. */
typedef struct oclacp_leaf {
  const char* node;   /* the leaf's path */
  const char* ns;     /* namespace URI */
  unsigned int work;  /* OCLACP_LEAF_* */
  const char* walker; /* the leaf walker's name; null on the native side, which has none */
  const char* handler;
  const char* converter; /* the converter's name; null without one */
  /* The handler itself. Its arguments, results and errors are those of its declaration. */
  cerrno (*run)(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
  oclacp_leaf_target targets[OCLACP_LEAF_TARGETS]; /* in the order in which they are served; the rest is null */
  unsigned int target_count;
} oclacp_leaf;

/* A table of leaves. */
typedef struct oclacp_leaf_table {
  const oclacp_leaf* leaves;
  size_t count;
} oclacp_leaf_table;

/* The leaves of openconfig-lacp; the native leaves that they stand for are their targets. */
OCLACP_EXPORT oclacp_leaf_table oclacp_openconfig_leaves(void);

/* The leaves of the native interface and LACP configuration, and those of the native operational data; their targets
 * are leaves of openconfig-lacp. A native leaf that is in neither table has no handler, and has no effect. */
OCLACP_EXPORT oclacp_leaf_table oclacp_native_configuration_leaves(void);
OCLACP_EXPORT oclacp_leaf_table oclacp_native_operational_leaves(void);

#ifdef __cplusplus
}
#endif

#endif
