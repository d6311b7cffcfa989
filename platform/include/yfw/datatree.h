/*
 * Data trees: the requests that a mapping module walks, and the output it fills.
 *
 * Conventions
 * 1. The framework owns every node, its texts and its child array. A module keeps no pointer to one after it returned.
 * 2. The framework passes nodes that are writable, although the handlers' signatures say const. A walker puts
 *    `operation`, `children`, `child_count` and the bits YFW_FLAG_OPERATION_CHANGED and YFW_FLAG_SUBTREE back as it
 *    found them; `node_kind`, `hierarchy_flags`, `key_mark` and YFW_FLAG_LIST_KEY stay as marked, on every node that
 *    was walked. One exception: a delete of an interface entry that found its interface leaves
 *    YFW_FLAG_OPERATION_CHANGED on the entry, and as its operation YFW_OPERATION_REMOVE, or YFW_OPERATION_NONE when
 *    the framework refused an addition before that of the container. The functions that delete do the same to any node
 *    when they are called by themselves. No other field is changed.
 * 3. One request is walked by one thread at a time.
 */
#ifndef YFW_DATATREE_H
#define YFW_DATATREE_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Edit operations of a node (`operation`), as in NETCONF's edit-config (RFC 6241, 7.2). */
enum {
  YFW_OPERATION_NONE = 0,    /* none named: the node is merged, or takes part in what its ancestors do */
  YFW_OPERATION_REPLACE = 1, /* carried out by the walkers in two passes: delete what is there, merge what is named */
  YFW_OPERATION_CREATE = 2,  /* asked about through yfw_map_is_request_add() only */
  YFW_OPERATION_DELETE = 3,  /* what is to be deleted must be there */
  YFW_OPERATION_REMOVE =
      4 /* deleted if there; also the walkers' working value for a delete and a replace's first pass */
};

/* Kinds that a walker gives a node when it enters it (`node_kind`). */
enum {
  YFW_NODE_LEAF = 1,
  YFW_NODE_CONTAINER = 3,
  YFW_NODE_LIST_ENTRY = 4,
  YFW_NODE_CONTENT_MATCH = 6 /* a leaf with a value in a read: only entries with this value are asked for */
};

/* Bits of `hierarchy_flags`. */
enum {
  YFW_HIERARCHY_ENTERED = 0x4 /* a walker entered the node */
};

/* Bits of `flags`. */
enum {
  YFW_FLAG_VALUE = 0x2,              /* the leaf carries a value of its own */
  YFW_FLAG_TYPED_VALUE = 0x8,        /* `value_type` is valid */
  YFW_FLAG_OPERATION_CHANGED = 0x10, /* the module changed `operation` */
  YFW_FLAG_SUBTREE = 0x40,           /* `children` and `child_count` are valid */
  YFW_FLAG_LIST_KEY = 0x200          /* the leaf was used as a list key */
};

/* The value of `value_type` that the native configuration walkers report to the request (YFW_REQUEST_TYPED_LEAF). */
enum { YFW_VALUE_TYPE_REPORTED = 5 };

/* One node. The field order is part of the contract. */
typedef struct yfw_datatree {
  const char* tag;               /* the node's name without prefix; a missing one is an error */
  const char* value;             /* a leaf's value as text; null where there is none */
  const char* ns;                /* namespace URI of the node's module */
  uint32_t operation;            /* YFW_OPERATION_* */
  struct yfw_datatree* children; /* the child nodes, contiguous; valid with YFW_FLAG_SUBTREE */
  unsigned int child_count;      /* entries of `children` */
  uint32_t node_kind;            /* YFW_NODE_*, set on entry */
  uint32_t hierarchy_flags;      /* YFW_HIERARCHY_* */
  uint8_t key_mark;              /* 1 on a list key leaf that was consumed as a key */
  uint32_t flags;                /* YFW_FLAG_* */
  uint32_t value_type;           /* the framework's type number of the value */
  void* framework;               /* the framework's own; never read by a module */
} yfw_datatree;

#ifdef __cplusplus
}
#endif

#endif
