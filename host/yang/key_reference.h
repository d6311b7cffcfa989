// What the keys of lists refer to: OpenConfig's keys are leafrefs to a leaf of their own entry (RFC 7950, 9.9).
#pragma once

#include <libyang/libyang.h>

namespace oclacp::host {

// The leaf inside of the entry that a list key refers to; null for a key that is not a leafref, or refers elsewhere.
const lysc_node* leaf_of_key(const lysc_node* key);

}  // namespace oclacp::host
