// Status codes of the host itself. They reach a module as the answers of platform operations, and come back as the
// status of its walk.
#pragma once

#include "host/base/contract.h"
#include "host/base/error.h"

namespace oclacp::host {

// An added path names no node of the native schemas, or its node is not of the namespace that was given.
inline constexpr cerrno kUnknownPath = 0x0c1a0001;
// A leaf that is set, and takes values, was added without one.
inline constexpr cerrno kMissingValue = 0x0c1a0003;
// A list key differs from the leaf of the same entry that it refers to.
inline constexpr cerrno kKeyDisagrees = 0x0c1a0004;
// A text does not fit into its place.
inline constexpr cerrno kTextTooLong = 0x0c1a0005;
// A text or place for one is missing.
inline constexpr cerrno kTextMissing = 0x0c1a0006;
// There is no such node, interface or item.
inline constexpr cerrno kNotFound = 0x0c1a0007;
// The data store serves no such path, or cannot read the pattern.
inline constexpr cerrno kBadQuery = 0x0c1a0008;
// A record descriptor is malformed, or contradicts one that is registered.
inline constexpr cerrno kBadDescriptor = 0x0c1a0009;
// The steps of a registration of records do not come in their order.
inline constexpr cerrno kRegistryMisused = 0x0c1a000a;

// What a status of the contract or of the host says, for a person. Never null.
const char* status_text(cerrno status);

// The kind of error that a status stands for when a walk ends with it.
ErrorKind status_kind(cerrno status);

}  // namespace oclacp::host
