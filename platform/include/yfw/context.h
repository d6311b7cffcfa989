/*
 * The mapping context: what a module sees of the request that it works for.
 *
 * Conventions
 * 1. The framework creates, owns and frees the context, the request state and the request descriptor. It passes the
 *    context as the first argument of every handler; a null context is a programming error and ends the process.
 * 2. The field order of each record is part of the contract, and so are the byte offsets of the request descriptor.
 * 3. One context serves one request, on one thread at a time.
 */
#ifndef YFW_CONTEXT_H
#define YFW_CONTEXT_H

#include <assert.h>
#include <stddef.h>
#include <stdint.h>

#include "yfw/datatree.h"
#include "yfw/status.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Request operation codes. Any code other than the two reads is an edit. List keys are checked under 1, 8 and 15. */
enum {
  YFW_REQUEST_READ_CONFIG = 0,
  YFW_REQUEST_EDIT = 1,
  YFW_REQUEST_READ_STATE = 10 /* configuration and operational state */
};

/*
 * The framework's request descriptor. Its first field is the request's operation code. The nine option groups and the
 * option mode are read by the native side's option test: with any of the tested bits set and a mode of
 * YFW_OPTION_MODE_SUPPRESS, some leaves are not reported. The bits' meaning is the framework's.
 */
typedef struct yfw_request_descriptor {
  uint32_t operation; /* YFW_REQUEST_* */
  uint8_t reserved_004[0x584 - 0x004];
  uint8_t options_584; /* tested: 0x0f */
  uint8_t reserved_585[0x5b0 - 0x585];
  uint8_t options_5b0; /* tested: 0x03 */
  uint8_t reserved_5b1[0x5c8 - 0x5b1];
  uint8_t options_5c8; /* tested: 0x03 */
  uint8_t reserved_5c9[0x5d0 - 0x5c9];
  uint8_t options_5d0; /* tested: 0x07 */
  uint8_t reserved_5d1[0x60c - 0x5d1];
  uint32_t options_60c; /* tested: 0x3ffff */
  uint8_t options_610;  /* tested: 0x03 */
  uint8_t reserved_611[0x618 - 0x611];
  uint32_t option_mode;
  uint8_t reserved_61c[0x634 - 0x61c];
  uint8_t options_634; /* tested: 0x0f */
  uint8_t reserved_635[0x638 - 0x635];
  uint8_t options_638; /* tested: 0x07 */
  uint8_t reserved_639[0x8fa - 0x639];
  uint8_t options_8fa; /* tested: 0x01 */
  uint8_t reserved_8fb[0x900 - 0x8fb];
} yfw_request_descriptor;

enum { YFW_OPTION_MODE_SUPPRESS = 2 };

static_assert(offsetof(yfw_request_descriptor, operation) == 0, "the operation code comes first");
static_assert(offsetof(yfw_request_descriptor, options_584) == 0x584, "offset fixed by the framework");
static_assert(offsetof(yfw_request_descriptor, options_5b0) == 0x5b0, "offset fixed by the framework");
static_assert(offsetof(yfw_request_descriptor, options_5c8) == 0x5c8, "offset fixed by the framework");
static_assert(offsetof(yfw_request_descriptor, options_5d0) == 0x5d0, "offset fixed by the framework");
static_assert(offsetof(yfw_request_descriptor, options_60c) == 0x60c, "offset fixed by the framework");
static_assert(offsetof(yfw_request_descriptor, options_610) == 0x610, "offset fixed by the framework");
static_assert(offsetof(yfw_request_descriptor, option_mode) == 0x618, "offset fixed by the framework");
static_assert(offsetof(yfw_request_descriptor, options_634) == 0x634, "offset fixed by the framework");
static_assert(offsetof(yfw_request_descriptor, options_638) == 0x638, "offset fixed by the framework");
static_assert(offsetof(yfw_request_descriptor, options_8fa) == 0x8fa, "offset fixed by the framework");

/* Values of `key_pending`. */
enum {
  YFW_KEY_PENDING_NONE = 0,
  YFW_KEY_PENDING_EXPANDED = 1, /* the key handler runs for a deleting entry without children, under an expansion */
  YFW_KEY_PENDING_KEY_ONLY = 2  /* the key handler runs for a deleting entry that names only its key */
};

/* Bits of `replace_flags`. */
enum { YFW_REPLACE_FIRST_PASS = 0x40, YFW_REPLACE_SECOND_PASS = 0x80 };

/* Bits of `filter_bits`. */
enum {
  YFW_FILTER_EXPAND = 0x1,           /* expand the whole container */
  YFW_FILTER_SELECTION = 0x2,        /* a leaf without value was named */
  YFW_FILTER_CONTENT_MATCH = 0x4,    /* a leaf with a value was named */
  YFW_FILTER_REQUEST_MATCH = 0x10000 /* the request holds a content match */
};

/*
 * What a walker keeps of the filter bits when it enters a container or list entry in a read, and when it ends the
 * expansion of a container. The mask is this hexadecimal number on purpose: it keeps bits 4, 8, 12 ... 28 and so clears
 * EXPAND, SELECTION and CONTENT_MATCH.
 */
#define YFW_FILTER_ENTRY_MASK 0x11111110u

/* Bits of `request_flags`. */
enum { YFW_REQUEST_TYPED_LEAF = 0x100 /* a leaf with value type YFW_VALUE_TYPE_REPORTED was seen */ };

/* Capacity of the interface-name scratch buffer, its terminator included. */
enum { YFW_INTERFACE_NAME_CAPACITY = 200 };

/* A pair that the framework keeps for reads; see `key_gate`. */
typedef struct yfw_key_gate {
  uint32_t word;
  uint8_t level;
} yfw_key_gate;

/*
 * The framework's state of one request.
 *
 * `current_list_node` and `interface_name` are scratch of the native walkers: what the handlers of a list entry leave
 * for those of its children. yfw_map_search_or_add_list() fills the slot, and a handler that deletes an entry passes
 * its address as the extra word of the addition; the handlers of an interface's entry and name fill the name. When the
 * walk of an interface-configuration entry ends, on success or failure, the slot is what it was when the walk of the
 * entry began and all of `interface_name` is zero; at the end of a bundle entry the slot is restored as well. So no
 * output entry outlives the input entry that it was found or created for, and a framework need not close it. Below a
 * sub-interface bundle, for which none is found or created, leaves are added all the same: they belong to an entry
 * without keys. A handler that is called by itself, without the walker of its entry, leaves what it filled.
 *
 * The framework clears every mark before it calls an entry walker. A module puts the marks back as it found them; the
 * filter bits, `deletion_done`, `request_flags` and the error tag are results and stay. An error tag that is there is
 * freed before another is stored, but not by the converters of an interval, which overwrite it.
 */
typedef struct yfw_request_state {
  yfw_request_descriptor* descriptor; /* first field: points to the operation code */
  char* error_tag;          /* the node an error names: made with yfw_strdup(), freed with named_free(); or null */
  uint32_t whole_subtree;   /* 1 while a node is expanded as a whole */
  uint32_t key_pending;     /* YFW_KEY_PENDING_* */
  uint32_t replace_flags;   /* YFW_REPLACE_* */
  uint32_t replace_restore; /* 1 while a replace of a node is carried out in two passes */
  uint32_t filter_bits;     /* YFW_FILTER_* */
  uint32_t deletion_done;   /* set to 0 before the data store's LACP interfaces are walked, to 1 when that ended well */
  uint32_t request_flags;   /* YFW_REQUEST_* */
  yfw_key_gate key_gate;    /* reads: with a word other than 0 and a level below 3, interface keys are not asked for */
  uint32_t output_list_count;      /* entries of the output list, kept by the framework */
  yfw_datatree* current_list_node; /* slot: the output list entry of the native entry that is walked; see above */
  char interface_name[YFW_INTERFACE_NAME_CAPACITY]; /* scratch: the interface that is walked; see above */
} yfw_request_state;

/* A debug-log stream and a trace buffer; opaque to the module. */
typedef struct yfw_log_stream yfw_log_stream;
typedef struct yfw_trace_buffer yfw_trace_buffer;

/* The framework's per-request record. */
typedef struct yfw_map_ctx_record {
  yfw_request_state* request;     /* null only for handlers that refuse a node or do nothing; never for walkers */
  uintptr_t debug_log_filter;     /* passed by address to yfw_debug_should_log() */
  yfw_log_stream* error_log;      /* stream of level 0 records */
  yfw_log_stream* trace_log;      /* stream of level 3 records */
  yfw_trace_buffer* trace_buffer; /* written with _lstrace() */
  uint32_t trace_enabled;         /* non-zero: every record is also written to the trace buffer */
} yfw_map_ctx_record;

/* The handle that every handler gets. */
typedef yfw_map_ctx_record* yfw_map_ctx;

#ifdef __cplusplus
}
#endif

#endif
