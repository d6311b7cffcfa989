#include "frame/native_handlers.h"

#include "yfw/map.h"

namespace ymap {

cerrno report(yfw_map_ctx ctx, yfw_datatree* out, const char* target, const char* ns, const char* value,
              int last_flag) {
  return yfw_map_datatree_add_path_flagged(ctx, out, target, ns, value, nullptr, 0, 0, last_flag);
}

cerrno report_leaf(const Handler& handler, const NativeLeaf& row, yfw_map_ctx ctx, const yfw_datatree* in,
                   yfw_datatree* out) {
  return run_in_frame(handler, ctx, in, out, [&](const Activation& /*run*/) {
    cerrno status = YFW_OK;
    for (const char* const target : row.targets) {
      if (target == nullptr) continue;
      status = yfw_map_datatree_add_path_flagged(ctx, out, target, row.ns, in->value, nullptr, 0, row.list_flag,
                                                 row.last_flag);
    }
    return status;
  });
}

}  // namespace ymap
