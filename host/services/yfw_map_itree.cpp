// The itree stack.
#include "host/base/contract.h"
#include "host/services/mapping_context.h"

using oclacp::host::MappingContext;

void yfw_map_util_itree_stack_push(yfw_map_ctx ctx, yfw_datatree* children, unsigned int child_count,
                                   yfw_itree_callback callback) {
  MappingContext::of(ctx).itree().push_back({children, child_count, callback});
}

void yfw_map_util_itree_stack_pop(yfw_map_ctx ctx) {
  if (auto& stack = MappingContext::of(ctx).itree(); !stack.empty()) {
    stack.pop_back();
  }
}

uint16_t yfw_map_util_itree_stack_size(yfw_map_ctx ctx) {
  return static_cast<uint16_t>(MappingContext::of(ctx).itree().size());
}

void yfw_map_util_itree_stack_peak(yfw_map_ctx ctx, yfw_itree_entry* top) {
  *top = MappingContext::of(ctx).itree().back();
}
