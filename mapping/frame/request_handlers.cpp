#include "frame/request_handlers.h"

#include "frame/addition.h"
#include "frame/request.h"
#include "yfw/map.h"

namespace ymap {

cerrno handle_config_leaf(const Handler& handler, const ConfigLeaf& row, yfw_map_ctx ctx, const yfw_datatree* in,
                          yfw_datatree* out) {
  return run_in_frame(handler, ctx, in, out, [&](const Activation& run) -> Outcome {
    Addition addition{.path = row.target, .ns = row.ns, .value = in->value, .last_flag = row.last_flag};
    if (is_read(ctx)) return add(ctx, out, addition);
    ShortText buffer;
    NativeValue value;
    if (yfw_map_is_request_delete(in) == 0) {
      value = row.convert != nullptr ? row.convert(run, ctx, *in, buffer) : NativeValue{.text = in->value};
    }
    if (value.outcome.status != YFW_OK) return value.outcome;
    addition.value = value.text;
    addition.source = in;
    return add(ctx, out, addition);
  });
}

cerrno handle_state_leaf(const Handler& handler, const StateLeaf& row, yfw_map_ctx ctx, const yfw_datatree* in,
                         yfw_datatree* out) {
  return run_in_frame(handler, ctx, in, out, [&]() -> cerrno {
    if (is_read(ctx)) {
      return add(ctx, out, {.path = row.target, .ns = row.ns, .value = in->value, .last_flag = row.last_flag});
    }
    if (row.asks_in_edits) static_cast<void>(yfw_map_is_request_delete(in));
    return YFW_OK;
  });
}

cerrno handle_converted_leaf(const Handler& handler, const ConvertedLeaf& row, yfw_map_ctx ctx, const yfw_datatree* in,
                             yfw_datatree* out) {
  return run_in_frame(handler, ctx, in, out, [&] { return row.converter(ctx, in, out); });
}

cerrno refuse_leaf(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {
  return run_in_frame(handler, ctx, in, out, [&]() -> cerrno {
    yfw_oc_error_path(ctx);
    store_error_tag(ctx, in->tag);
    return YFW_UNSUPPORTED_NODE;
  });
}

cerrno no_op(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {
  return run_in_frame(handler, ctx, in, out, []() -> cerrno { return YFW_OK; });
}

cerrno no_op_unchecked(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* /*in*/, yfw_datatree* /*out*/) {
  return Activation(handler, ctx).end(YFW_OK);
}

cerrno refuse_added_augment(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {
  return run_in_frame(handler, ctx, in, out, [&]() -> cerrno {
    if (yfw_map_is_request_add(ctx, in) == 0) return YFW_OK;
    store_error_tag(ctx, in->tag);
    yfw_oc_error_path(ctx);
    return YFW_UNKNOWN_AUGMENT;
  });
}

}  // namespace ymap
