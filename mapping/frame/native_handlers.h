// The native-side handlers that only report a value.
#pragma once

#include "frame/handler.h"

namespace ymap {

// A native leaf whose value is reported as it is, to one OpenConfig leaf or to two.
struct NativeLeaf {
  const char* targets[2];  // absolute OpenConfig paths without keys; the status of the last addition is the handler's
  const char* ns;
  int list_flag = 0;
  int last_flag = 0;
};

cerrno report_leaf(const Handler& handler, const NativeLeaf& row, yfw_map_ctx ctx, const yfw_datatree* in,
                   yfw_datatree* out);

}  // namespace ymap
