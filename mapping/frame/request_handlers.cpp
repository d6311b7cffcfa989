#include "frame/request_handlers.h"

#include "frame/request.h"
#include "yfw/map.h"

namespace ymap {

cerrno ask_for(yfw_map_ctx ctx, yfw_datatree* out, const char* target, const char* ns, const char* value, int list_flag,
               int last_flag) {
  return yfw_map_datatree_add_path_flagged(ctx, out, target, ns, value, nullptr, 0, list_flag, last_flag);
}

cerrno handle_config_leaf(const Handler& handler, const ConfigLeaf& row, yfw_map_ctx ctx, const yfw_datatree* in,
                          yfw_datatree* out) {
  const Activation run(handler, ctx);
  if (!run.has_arguments(in, out)) return YFW_INVALID_ARGUMENTS;
  if (is_read(ctx)) return run.end(ask_for(ctx, out, row.target, row.ns, in->value, 0, row.last_flag));
  ShortText buffer;
  NativeValue value;
  if (yfw_map_is_request_delete(in) == 0) {
    value = row.convert != nullptr ? row.convert(run, ctx, *in, buffer) : NativeValue{.text = in->value};
  }
  if (value.abandoned) return value.status;
  if (value.status != YFW_OK) return run.end(value.status);
  return run.end(yfw_map_datatree_add_path_flagged(ctx, out, row.target, row.ns, value.text, in, 0, 0, row.last_flag));
}

cerrno handle_state_leaf(const Handler& handler, const StateLeaf& row, yfw_map_ctx ctx, const yfw_datatree* in,
                         yfw_datatree* out) {
  return run_in_frame(handler, ctx, in, out, [&](const Activation& /*run*/) -> cerrno {
    if (is_read(ctx)) return ask_for(ctx, out, row.target, row.ns, in->value, 0, row.last_flag);
    if (row.asks_in_edits) static_cast<void>(yfw_map_is_request_delete(in));
    return YFW_OK;
  });
}

cerrno handle_converted_leaf(const Handler& handler, const ConvertedLeaf& row, yfw_map_ctx ctx, const yfw_datatree* in,
                             yfw_datatree* out) {
  return run_in_frame(handler, ctx, in, out, [&](const Activation& /*run*/) { return row.converter(ctx, in, out); });
}

cerrno refuse_leaf(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {
  return run_in_frame(handler, ctx, in, out, [&](const Activation& /*run*/) -> cerrno {
    yfw_oc_error_path(ctx);
    store_error_tag(ctx, in->tag);
    return YFW_UNSUPPORTED_NODE;
  });
}

cerrno no_op(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {
  return run_in_frame(handler, ctx, in, out, [](const Activation& /*run*/) -> cerrno { return YFW_OK; });
}

cerrno no_op_unchecked(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* /*in*/, yfw_datatree* /*out*/) {
  return Activation(handler, ctx).end(YFW_OK);
}

cerrno refuse_added_augment(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {
  return run_in_frame(handler, ctx, in, out, [&](const Activation& /*run*/) -> cerrno {
    if (yfw_map_is_request_add(ctx, in) == 0) return YFW_OK;
    store_error_tag(ctx, in->tag);
    yfw_oc_error_path(ctx);
    return YFW_UNKNOWN_AUGMENT;
  });
}

}  // namespace ymap
