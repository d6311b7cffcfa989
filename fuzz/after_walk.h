// What holds after every walk, whatever the bytes were.
#pragma once

#include "fuzzed_request.h"
#include "support/platform.h"
#include "yfw/status.h"

namespace fuzz {

// Ends the process with a sentence unless an entry walker came back with a status of its own, used the platform as its
// contract says, and left the request as it found it.
void require_left_in_order(cerrno status, const FuzzedTree& tree, support::Platform& platform);

}  // namespace fuzz
