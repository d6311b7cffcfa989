// What a handler adds to the output.
#pragma once

#include <cstdint>

#include "yfw/map.h"

namespace ymap {

// One node of the output. yfw_map_datatree_add_path_flagged() documents the fields.
struct Addition {
  const char* path;  // absolute, without keys
  const char* ns;
  const char* value = nullptr;
  const yfw_datatree* source = nullptr;
  std::uintptr_t word = 0;
  int list_flag = 0;
  int last_flag = 0;
};

inline cerrno add(yfw_map_ctx ctx, yfw_datatree* out, const Addition& addition) {
  return yfw_map_datatree_add_path_flagged(ctx, out, addition.path, addition.ns, addition.value, addition.source,
                                           addition.word, addition.list_flag, addition.last_flag);
}

}  // namespace ymap
