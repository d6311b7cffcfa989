/*
 * Debug log and trace buffer.
 *
 * Conventions
 * 1. A module asks yfw_debug_should_log() before each debug-log line and tests `trace_enabled` before each trace
 * record; with both off it formats nothing and calls nothing else of this header.
 * 2. Texts are borrowed for the call. Nothing here reports failure.
 * 3. Called on the request's thread.
 */
#ifndef YFW_LOG_H
#define YFW_LOG_H

#include <stdint.h>

#include "yfw/context.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Levels of debug-log lines. */
enum { YFW_LOG_ERROR = 0, YFW_LOG_TRACE = 3 };

/* The flag word of every trace record, and the longest record with its terminator; longer texts are cut. */
#define YFW_TRACE_FLAGS UINT64_C(0x10101000000)
#define YFW_TRACE_CAPACITY 250

/*
 * Whether debug-log lines of a level pass the filter. `filter` is the address of the context's `debug_log_filter`.
 * Non-zero: they do.
 */
int yfw_debug_should_log(const uintptr_t* filter, uint32_t level);

/*
 * Writes one debug-log line. `zero1` to `zero5` are always 0. `call_site_id` is the emitting call site's own word: it
 * starts as 0xFFFFFFFF, lives as long as the module, and is the log's to use; the module never reads or writes it.
 * `format` is a printf format whose arguments follow: the context first (%p), then the message's own.
 */
void dt_log_filter_adv(yfw_log_stream* stream, int zero1, int zero2, int zero3, int zero4, int zero5,
                       uint32_t* call_site_id, const char* format, ...) __attribute__((format(printf, 8, 9)));

/* The next sequence number of the trace. Called once for each trace record, before it is formatted. */
uint32_t ret_nc_yfw_trace_index_incr(void);

/* Appends one record to a trace buffer. `flags` is always YFW_TRACE_FLAGS. */
void _lstrace(yfw_trace_buffer* buffer, uint64_t flags, const char* text);

#ifdef __cplusplus
}
#endif

#endif
