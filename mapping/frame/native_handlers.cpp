#include "frame/native_handlers.h"

#include "frame/addition.h"

namespace ymap {

cerrno report_leaf(const Handler& handler, const NativeLeaf& row, yfw_map_ctx ctx, const yfw_datatree* in,
                   yfw_datatree* out) {
  return run_in_frame(handler, ctx, in, out, [&] {
    cerrno status = YFW_OK;
    for (const char* const target : row.targets) {
      if (target == nullptr) continue;
      status = add(
          ctx, out,
          {.path = target, .ns = row.ns, .value = in->value, .list_flag = row.list_flag, .last_flag = row.last_flag});
    }
    return status;
  });
}

}  // namespace ymap
