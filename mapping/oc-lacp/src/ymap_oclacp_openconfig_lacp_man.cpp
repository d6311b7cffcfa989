// The hand-written handlers and converters of openconfig-lacp: list keys, configuration values, paths of state leaves.
#include <algorithm>
#include <cstring>
#include <iterator>
#include <string_view>

#include "frame/addition.h"
#include "frame/request.h"
#include "frame/request_handlers.h"
#include "messages.h"
#include "models.h"
#include "native_paths.h"
#include "oclacp/interface_helpers.h"
#include "oclacp/openconfig_lacp.h"
#include "yfw/map.h"
#include "yfw/strings.h"

using oclacp::kBundlemgrCfg;
using oclacp::kBundlemgrOper;
using oclacp::kIfmgrCfg;
using ymap::Activation;
using ymap::ConfigLeaf;
using ymap::Handler;
using ymap::NativeValue;
using ymap::ShortText;
using ymap::StateLeaf;

namespace {

// ---- Configuration values -----------------------------------------------------------------------------------------
//
//   lacp-mode        "ACTIVE" -> "active"; anything else -> "passive"
//   interval         "FAST" -> "1"; "SLOW" -> "30000"; anything else is refused. The two are not of one unit, which is
//                    meant.
//   system-id-mac    copied
//   system-priority  copied

NativeValue abandon(cerrno status) {
  return {.outcome = ymap::Outcome::without_end(status)};
}

// Puts a native value into the buffer; `failure` is the message for a copy that fails.
NativeValue copied(const Activation& run, ShortText& buffer, const char* text, ymap::MessageWith<2> failure) {
  const cerrno status = ymap::copy(run, buffer, text, failure);
  return status == YFW_OK ? NativeValue{.text = buffer.text} : abandon(status);
}

NativeValue native_mode(const Activation& run, yfw_map_ctx /*ctx*/, const yfw_datatree& leaf, ShortText& buffer) {
  bool active = false;
  if (const cerrno status = ymap::compare(run, leaf.value, "ACTIVE", active); status != YFW_OK) return abandon(status);
  return copied(run, buffer, active ? "active" : "passive", ymap::message::kCopyFailed);
}

NativeValue refuse_interval(const Activation& run, yfw_map_ctx ctx) {
  yfw_oc_error_path(ctx);
  // A tag that the field already holds is overwritten and not freed here, intentionally.
  ctx->request->error_tag = yfw_strdup("interval", YFW_ALLOCATION_TAG);
  run.record(oclacp::message::kIntervalRefused);
  return {.outcome = YFW_UNSUPPORTED_INTERVAL};
}

NativeValue native_period(const Activation& run, yfw_map_ctx ctx, const yfw_datatree& leaf, ShortText& buffer) {
  if (leaf.value == nullptr) return refuse_interval(run, ctx);
  bool fast = false;
  if (const cerrno status = ymap::compare(run, leaf.value, "FAST", fast); status != YFW_OK) return abandon(status);
  // A comparison that fails here makes the interval an unsupported one; its code is discarded.
  if (!fast && !ymap::is_equal(run, leaf.value, "SLOW")) return refuse_interval(run, ctx);
  return copied(run, buffer, fast ? "1" : "30000", oclacp::message::kIntervalCopyFailed);
}

// ---- List keys ----------------------------------------------------------------------------------------------------

consteval xpath_list_type_t list_target(std::string_view path, std::string_view ns) {
  xpath_list_type_t target{};
  std::ranges::copy(std::string_view("NULL"), target.value);
  std::ranges::copy(path, target.path);
  std::ranges::copy(ns, target.ns);
  return target;
}

// The native lists that an OpenConfig interface could stand for; the last entry ends the table.
constexpr xpath_list_type_t kInterfaceTargets[] = {
    list_target(oclacp::kInterfaceConfiguration, kIfmgrCfg),
    list_target(oclacp::kBundle, kBundlemgrOper),
    list_target("NULL", "NULL"),
};
constexpr int kInterfaceTargetCount = static_cast<int>(std::size(kInterfaceTargets)) - 1;

cerrno map_interface_entry(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {
  return ymap::run_in_frame(handler, ctx, in, out, [&]() -> cerrno {
    xpath_list_type_t targets[std::size(kInterfaceTargets)];
    std::memcpy(targets, kInterfaceTargets, sizeof targets);
    static_cast<void>(oc2qd_intf_name(ctx, kInterfaceTargetCount, targets));
    const bool read = ymap::is_read(ctx);
    const bool deletes = !read && yfw_map_is_request_delete(in) != 0;
    cerrno status = YFW_OK;
    for (int i = 0; i < kInterfaceTargetCount; ++i) {
      const xpath_list_type_t& target = targets[i];
      if (target.selected == 0) continue;
      status = deletes ? oc_to_qd_all_lacp_cfg_delete(ctx, in, out)
                       : ymap::add(ctx, out,
                                   {.path = target.path,
                                    .ns = target.ns,
                                    .source = read ? nullptr : in,
                                    .list_flag = 1,
                                    .last_flag = static_cast<int>(target.list_entry)});
    }
    return status;
  });
}

cerrno map_member_entry(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {
  return ymap::run_in_frame(handler, ctx, in, out, [&] {
    const yfw_datatree* const source = ymap::is_read(ctx) ? nullptr : in;
    return ymap::add(ctx, out, {.path = oclacp::kMember, .ns = kBundlemgrOper, .source = source, .list_flag = 1});
  });
}

// ---- The key leaf of an interface ---------------------------------------------------------------------------------

cerrno ask_for_interface(yfw_map_ctx ctx, const yfw_datatree& leaf, yfw_datatree* out) {
  constexpr std::uint8_t kGateLevel = 3;
  const yfw_key_gate& gate = ctx->request->key_gate;
  if (gate.word != 0 && gate.level < kGateLevel) return YFW_OK;
  const auto ask_for = [&](const char* path, const char* value) {
    return ymap::add(ctx, out, {.path = path, .ns = kIfmgrCfg, .value = value, .list_flag = 1});
  };
  static_cast<void>(ask_for(oclacp::kInterfaceName, leaf.value));
  return ask_for(oclacp::kInterfaceActive, oclacp::kActiveClass);
}

cerrno edit_interface(yfw_map_ctx ctx, const yfw_datatree& leaf, yfw_datatree* out) {
  const auto add = [&](const char* path, const char* value, int list_flag) {
    return ymap::add(ctx, out,
                     {.path = path, .ns = kIfmgrCfg, .value = value, .source = &leaf, .list_flag = list_flag});
  };
  static_cast<void>(add(oclacp::kInterfaceName, leaf.value, 1));
  if (yfw_map_is_request_delete(&leaf) != 0) return add(oclacp::kInterfaceActive, leaf.value, 1);
  const cerrno status = add(oclacp::kInterfaceActive, oclacp::kActiveClass, 1);
  std::uint32_t looked_up = 0;
  if (yfw_lacp_util_is_virtual(leaf.value, &looked_up, ctx) == 0) return status;
  return add(oclacp::kInterfaceVirtual, nullptr, 0);
}

cerrno map_interface_key(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {
  return ymap::run_in_frame(handler, ctx, in, out, [&] {
    return ymap::is_read(ctx) ? ask_for_interface(ctx, *in, out) : edit_interface(ctx, *in, out);
  });
}

cerrno ignore_name(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {
  return ymap::run_in_frame(handler, ctx, in, out, [&]() -> cerrno {
    // The name reaches the native side through the list key; whether it is deleted makes no difference.
    if (!ymap::is_read(ctx)) static_cast<void>(yfw_map_is_request_delete(in));
    return YFW_OK;
  });
}

}  // namespace

// clang-format off

YMAP_DEFINE_SIMPLE_HANDLER(ymap_oq_oclacp_openconfiglacp_list_lvla_lacp_interfaces_interface, map_interface_entry)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_oq_oclacp_openconfiglacp_list_lvla_lacp_members_member, map_member_entry)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_interface_name, map_interface_key)

YMAP_DEFINE_HANDLER(oc2qd_cfglacpmode, ymap::handle_config_leaf,
    ConfigLeaf{.target = oclacp::kInterfaceLacpMode, .ns = kBundlemgrCfg, .last_flag = 1, .convert = native_mode})
YMAP_DEFINE_HANDLER(oc2qd_cfginterval, ymap::handle_config_leaf,
    ConfigLeaf{.target = oclacp::kInterfaceLacpPeriod, .ns = kBundlemgrCfg, .last_flag = 1, .convert = native_period})
YMAP_DEFINE_HANDLER(oc2qd_cfgsystemidmac, ymap::handle_config_leaf,
    ConfigLeaf{.target = oclacp::kInterfaceLacpSystemMac, .ns = kBundlemgrCfg, .last_flag = 1})
YMAP_DEFINE_HANDLER(oc2qd_intfcfgsystempriority, ymap::handle_config_leaf,
    ConfigLeaf{.target = oclacp::kInterfaceLacpSystemPriority, .ns = kBundlemgrCfg, .last_flag = 1})
YMAP_DEFINE_SIMPLE_HANDLER(oc2qd_config_name_ignore, ignore_name)

YMAP_DEFINE_HANDLER(oc2qd_appliedlacpmode, ymap::handle_state_leaf,
    StateLeaf{.target = oclacp::kBundleAppliedLacpMode, .ns = kBundlemgrOper, .last_flag = 1, .asks_in_edits = true})
YMAP_DEFINE_HANDLER(oc2qd_statesystemidmac, ymap::handle_state_leaf,
    StateLeaf{.target = oclacp::kBundleSystemMac, .ns = kBundlemgrOper})
YMAP_DEFINE_HANDLER(oc2qd_intfstatesystempriority, ymap::handle_state_leaf,
    StateLeaf{.target = oclacp::kBundleSystemPriority, .ns = kBundlemgrOper})
// All six leaves of a member's port state are bits of the one native leaf.
YMAP_DEFINE_HANDLER(oc2qd_actorportstate, ymap::handle_state_leaf,
    StateLeaf{.target = oclacp::kMemberActorPortState, .ns = kBundlemgrOper})

// clang-format on

cerrno oc2qd_intf_name(yfw_map_ctx ctx, int count, xpath_list_type_t* entries) {
  YMAP_HANDLER_IDENTITY(oc2qd_intf_name, "cerrno oc2qd_intf_name(yfw_map_ctx, int, xpath_list_type_t *)");
  constexpr char kPrefix[] = "/interface-configurations/";
  const Activation run(handler, ctx);
  for (int i = 0; i < count; ++i) {
    if (std::strncmp(entries[i].path, kPrefix, sizeof kPrefix - 1) != 0) continue;
    entries[i].selected = 1;
    break;
  }
  return run.end(YFW_OK);
}
