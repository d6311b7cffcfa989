// The hand-written handlers and converters of the native LACP configuration.
//
//   mode             "active" -> "ACTIVE"; "on" -> nothing; anything else -> "PASSIVE"
//   period           "true", "1000" -> "FAST"; "30000" -> "SLOW"; anything else is refused
//   system-priority  copied
//   system-mac       copied
#include "frame/addition.h"
#include "frame/request_handlers.h"
#include "frame/texts.h"
#include "messages.h"
#include "models.h"
#include "native_conversion.h"
#include "oclacp/native_config.h"
#include "openconfig_paths.h"
#include "yfw/map.h"
#include "yfw/strings.h"

using oclacp::kOpenconfigLacp;
using ymap::Activation;
using ymap::Handler;
using ymap::Outcome;

namespace {

// Reads the interface whose configuration is walked; a failure is recorded.
cerrno interface_of(const Activation& run, yfw_map_ctx ctx, const char*& name) {
  const cerrno status = get_intf_name_from_tree(ctx, &name);
  if (status != YFW_OK) run.record_failed_call(oclacp::message::kBundleNameFailed, status);
  return status;
}

// A leaf that is copied; the request's options make no difference to it.
struct CopiedLeaf {
  const char* target;
};

cerrno copy_leaf(const Handler& handler, const CopiedLeaf& row, yfw_map_ctx ctx, const yfw_datatree* in,
                 yfw_datatree* out) {
  return ymap::run_in_frame(handler, ctx, in, out, [&](const Activation& run) -> Outcome {
    const char* name = nullptr;
    if (const cerrno status = interface_of(run, ctx, name); status != YFW_OK) return Outcome::without_end(status);
    if (!oclacp::is_mapped(name)) return YFW_OK;
    return ymap::add(ctx, out, {.path = row.target, .ns = kOpenconfigLacp, .value = in->value});
  });
}

// Reports a converted text unless the request's options suppress it.
cerrno report_converted(yfw_map_ctx ctx, yfw_datatree* out, const char* target, const char* text) {
  if (oclacp::options_suppress(*ctx->request->descriptor)) return YFW_OK;
  return ymap::add(ctx, out, {.path = target, .ns = kOpenconfigLacp, .value = text});
}

// The mode is compared before the interface is checked; for the period it is the other way round.
cerrno convert_mode(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {
  return ymap::run_in_frame(handler, ctx, in, out, [&](const Activation& run) -> Outcome {
    const char* name = nullptr;
    if (const cerrno status = interface_of(run, ctx, name); status != YFW_OK) return Outcome::without_end(status);
    bool is_on = false;
    if (const cerrno status = ymap::compare(run, in->value, "on", is_on); status != YFW_OK) {
      return Outcome::without_end(status);
    }
    if (is_on) {
      run.record(oclacp::message::kModeIsOn, run.name());
      return YFW_OK;
    }
    bool is_active = false;
    if (const cerrno status = ymap::compare(run, in->value, "active", is_active, oclacp::message::kSecondCompareFailed);
        status != YFW_OK) {
      return Outcome::without_end(status);
    }
    ymap::ShortText text;
    const char* const mode = is_active ? "ACTIVE" : "PASSIVE";
    if (const cerrno status = ymap::copy(run, text, mode, ymap::message::kCopyFailed); status != YFW_OK) {
      return Outcome::without_end(status);
    }
    if (!oclacp::is_mapped(name)) return YFW_OK;
    return report_converted(ctx, out, "/lacp/interfaces/interface/config/lacp-mode", text.text);
  });
}

// The interval of a period in milliseconds. Null for one that has none, and also when a comparison fails: its code is
// discarded.
const char* interval_of_milliseconds(const Activation& run, const char* period) {
  int difference = 0;
  if (yfw_strcmp_s(run.name(), period, YFW_STRING_NO_LIMIT, "1000", &difference) != YFW_OK) return nullptr;
  if (difference == 0) return "FAST";
  return ymap::is_equal(run, period, "30000") ? "SLOW" : nullptr;
}

cerrno refuse_period(const Activation& run, yfw_map_ctx ctx) {
  run.record(oclacp::message::kIntervalRefused);
  yfw_oc_error_path(ctx);
  // A tag that the field already holds is overwritten and not freed here, intentionally.
  ctx->request->error_tag = yfw_strdup("interval", YFW_ALLOCATION_TAG);
  return YFW_UNSUPPORTED_INTERVAL;
}

cerrno convert_period(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {
  return ymap::run_in_frame(handler, ctx, in, out, [&](const Activation& run) -> Outcome {
    const char* name = nullptr;
    if (const cerrno status = interface_of(run, ctx, name); status != YFW_OK) return Outcome::without_end(status);
    if (!oclacp::is_mapped(name)) return YFW_OK;
    bool equal = false;
    if (const cerrno status = ymap::compare(run, in->value, "true", equal); status != YFW_OK) {
      return Outcome::without_end(status);
    }
    const char* const interval = equal ? "FAST" : interval_of_milliseconds(run, in->value);
    if (interval == nullptr) return refuse_period(run, ctx);
    ymap::ShortText text;
    if (const cerrno status = ymap::copy(run, text, interval, ymap::message::kCopyFailed); status != YFW_OK) {
      return Outcome::without_end(status);
    }
    return report_converted(ctx, out, "/lacp/interfaces/interface/config/interval", text.text);
  });
}

cerrno report_global_priority(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {
  return ymap::run_in_frame(handler, ctx, in, out,
                            [&] { return report_converted(ctx, out, oclacp::kOcSystemPriority, in->value); });
}

}  // namespace

// clang-format off

YMAP_DEFINE_SIMPLE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_leaf_lvla_lacp_systempriority, report_global_priority)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_man_leaf_lvla_bundlemember_id_portactivity,
    ymap::no_op)

YMAP_DEFINE_SIMPLE_HANDLER(qd2oc_cfglacpmode, convert_mode)
YMAP_DEFINE_SIMPLE_HANDLER(qd2oc_cfginterval, convert_period)
YMAP_DEFINE_HANDLER(qd2oc_intfcfgsystempriority, copy_leaf, CopiedLeaf{
    .target = "/lacp/interfaces/interface/config/system-priority"})
YMAP_DEFINE_HANDLER(qd2oc_cfgsystemidmac, copy_leaf, CopiedLeaf{
    .target = "/lacp/interfaces/interface/config/system-id-mac"})

// clang-format on
