/*
 * The registry of typed records ("bags").
 *
 * Conventions
 * 1. A module hands its descriptors over in one transaction: start, one registration for each descriptor, end; or
 *    abort, after which the registry holds nothing of the transaction.
 * 2. Every operation that returns a `cerrno` returns 0 or a failure code; the module passes a failure up unchanged.
 * 3. A descriptor, and all that it points to, is constant and lives as long as the module is loaded.
 * 4. Called on the thread that loads the module.
 *
 * Schemas
 *
 * A schema is a sequence of definitions "$n=<body>;". The first defines the bag's top record, the others every record
 * type that it uses, directly or not, in ascending number. A number means the same record in every bag. A body is a
 * sequence of fields; in the full schema each has its name in braces before it. A field is one of
 *
 *   C I D H          unsigned number of 8, 16, 32, 64 bits
 *   e                enumeration of 32 bits; in the full schema its name in brackets precedes it: [name]e
 *   N                IPv4 address of 32 bits, its bytes in network order
 *   s                text, held by reference: 8 bytes
 *   <k>x             k raw bytes, aligned to 1
 *   $n               a record of type n, embedded with its own alignment; in the compact schema a "." follows
 *   p($n)            an optional record of type n, held by reference: 8 bytes
 *   a($n)            an array of records of type n: 16 bytes, aligned to 8
 *   ?(<tag,enum>,v1:{Name1}T1,v2:{Name2}T2)
 *                    one of several arms, chosen by the value of the enumeration `tag`: the tag in the first 4 bytes,
 *                    the arm 8 bytes in, the whole aligned to 8; in the compact schema ?(,v1:T1,v2:T2)
 *
 * A hint for display may follow a field and does not change its layout: D%h is the handle of an interface, D%n a node,
 * 6x%m a MAC address, 16x%s an IPv6 address. Fields are aligned naturally, and a record's size is a multiple of its
 * alignment. Numbers are in the byte order of the machine. A body may also be one raw-byte field or one union without a
 * name; the record then stands for its value.
 */
#ifndef BAG_BAG_H
#define BAG_BAG_H

#include <stdint.h>

#include "yfw/status.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The version and the format that every descriptor carries. */
enum { BAG_DESCRIPTOR_VERSION = 1, BAG_DESCRIPTOR_FORMAT = 9 };

/* The layout of a record type that the top record uses. */
typedef struct bag_further_record {
  uint64_t type_number;
  uint64_t size;           /* in bytes */
  const uint64_t* offsets; /* one for each field, in bytes; null for a type that is bare raw bytes */
} bag_further_record;

/*
 * The layout of every record type of a bag. Right behind it in memory, from (const bag_further_record*)(layout + 1),
 * stand `further_count` elements of bag_further_record in ascending type number. A record that is one union has one
 * offset, 0.
 */
typedef struct bag_layout {
  uint64_t further_count;
  uint64_t size;           /* of the top record, in bytes */
  const uint64_t* offsets; /* one for each field of the top record, in bytes */
} bag_layout;

/* One bag: a type of record that is published on the device. */
typedef struct bag_descriptor {
  uint64_t version;           /* BAG_DESCRIPTOR_VERSION */
  const char* name;           /* of the bag */
  uint64_t format;            /* BAG_DESCRIPTOR_FORMAT */
  const char* owner_library;  /* the file name of the library that owns the record */
  const bag_layout* layout;   /* the layout of the top record and of every further one */
  const char* full_schema;    /* with the names of fields and enumerations */
  const char* compact_schema; /* without them */
} bag_descriptor;

/* Opens a transaction. After a failure there is none, and nothing to abort. */
cerrno bag_register_start(void);

/* Offers a descriptor to the open transaction. After a failure the module aborts and offers no further one. */
cerrno bag_register(const bag_descriptor* descriptor);

/* Closes the open transaction; on success all of its descriptors are in force, on failure none of them. */
cerrno bag_register_end(void);

/* Drops the open transaction and all of its descriptors. */
void bag_register_abort(void);

#ifdef __cplusplus
}
#endif

#endif
