/*
 * Bounded string operations and named allocations.
 *
 * Conventions
 * 1. `caller` is the name of the calling function, for the platform's own diagnostics.
 * 2. A failed operation returns a code. The module traces it and, in a handler, passes it up; a helper that only
 *    asks a question goes on. Neither traced nor passed up are a failed copy of a registration, and a failed
 *    comparison with "1000", "30000" or "SLOW", which makes the interval an unsupported one. A failed copy leaves a
 *    terminated text in the destination, of whatever content.
 * 3. Called on the request's thread; by the registrations without a request, on the thread that loads the module.
 */
#ifndef YFW_STRINGS_H
#define YFW_STRINGS_H

#include <stddef.h>

#include "yfw/status.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The allocation tag of every copy that a module makes. */
#define YFW_ALLOCATION_TAG "YFW MAP"

/* The maximum length that stands for "no limit" in yfw_strcmp_s(). */
#define YFW_STRING_NO_LIMIT ((size_t)0x7FFFFFFFFFFFFFFF)

/*
 * A copy of `text` under an allocation tag, freed with named_free(). Null when memory is out; the module then goes on
 * with a null text.
 */
char* yfw_strdup(const char* text, const char* allocation_tag);

/* Frees what yfw_strdup() gave. */
void named_free(void* memory);

/* Copies `source` with its terminator into `destination`; fails when it does not fit in `size` bytes. */
cerrno yfw_strcpy_s(const char* caller, char* destination, size_t size, const char* source);

/*
 * Copies at most `count` characters of `source` into `destination` and terminates it; fails when the result does not
 * fit in `size` bytes.
 */
cerrno yfw_strncpy_s(const char* caller, char* destination, size_t size, const char* source, size_t count);

/*
 * Compares two texts over at most `max` characters. On success `*difference` is 0 when they are equal. Fails when a
 * text is missing.
 */
cerrno yfw_strcmp_s(const char* caller, const char* text, size_t max, const char* other, int* difference);

#ifdef __cplusplus
}
#endif

#endif
