// The itree stack.
#include "host/contract.h"
#include "host/framework/request.h"

using oclacp::host::Request;

void yfw_map_util_itree_stack_push(yfw_map_ctx ctx, yfw_datatree* children, unsigned int child_count,
                                   yfw_itree_callback callback) {
  Request::of(ctx).itree().push_back({children, child_count, callback});
}

void yfw_map_util_itree_stack_pop(yfw_map_ctx ctx) {
  if (auto& stack = Request::of(ctx).itree(); !stack.empty()) {
    stack.pop_back();
  }
}

uint16_t yfw_map_util_itree_stack_size(yfw_map_ctx ctx) {
  return static_cast<uint16_t>(Request::of(ctx).itree().size());
}

void yfw_map_util_itree_stack_peak(yfw_map_ctx ctx, yfw_itree_entry* top) {
  *top = Request::of(ctx).itree().back();
}
