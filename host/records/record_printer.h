// Records as text for people, and as JSON.
#pragma once

#include <string>

#include "host/base/export.h"
#include "host/records/record_decoder.h"
#include "host/records/record_registry.h"

namespace oclacp::host {

// A line for each bag of a registry: name, top record, its size in bytes, and the further record types with theirs.
OCLACP_HOST_API std::string list_bags(const RecordRegistry& registry);

// The fields of a bag's records with offset, size and type. Embedded records are unfolded under their field; those that
// are held by reference follow, each on its own.
OCLACP_HOST_API std::string show_bag(const Bag& bag);

// A decoded record, a line for each field.
OCLACP_HOST_API std::string record_as_table(const DecodedField& record);

// A decoded record as JSON (RFC 8259). Numbers of up to 32 bits are JSON numbers, wider ones strings, as in RFC 7951. A
// reference is null or {"reference": "0x..."}, an array {"array": ["0x...", "0x..."]}, its two words.
OCLACP_HOST_API std::string record_as_json(const Bag& bag, const DecodedField& record);

}  // namespace oclacp::host
