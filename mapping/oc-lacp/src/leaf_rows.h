// The rows of leaves: where a leaf stands, and what it stands for in the other model.
#pragma once

#include <optional>

#include "oclacp/leaves.h"

namespace oclacp {

// Named in the compiler's error
namespace row_error {
void leaf_is_copied_to_more_than_two_targets();
}

struct OpenconfigLeafRow {
  const char* path;
  std::optional<const char*> target = {};  // absolute native path without keys
};

struct NativeLeafRow {
  const char* path;
  // absolute OpenConfig paths without keys, in the order of additions
  std::optional<const char*> targets[OCLACP_LEAF_TARGETS] = {};
};

}  // namespace oclacp
