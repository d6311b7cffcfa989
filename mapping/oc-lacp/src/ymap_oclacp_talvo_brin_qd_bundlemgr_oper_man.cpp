// The hand-written handlers and converters of the native operational data.
//
// actor-port-state is a decimal number whose low eight bits are the actor's state (IEEE 802.1AX):
//
//   bit  0 activity  1 timeout  2 aggregatable  3 synchronization  4 collecting  5 distributing  6 defaulted  7 expired
//
// The last two are not reported.
#include <cstdlib>
#include <cstring>

#include "frame/addition.h"
#include "frame/native_handlers.h"
#include "frame/request_handlers.h"
#include "frame/texts.h"
#include "messages.h"
#include "models.h"
#include "native_conversion.h"
#include "native_paths.h"
#include "oclacp/native_oper.h"
#include "openconfig_paths.h"
#include "yfw/map.h"

using oclacp::kOpenconfigLacp;
using ymap::Activation;
using ymap::Handler;
using ymap::NativeLeaf;
using ymap::Outcome;

namespace {

struct PortStateLeaf {
  const char* target;
  const char* (*text_of)(uint8_t);
};

// In the order in which they are reported.
constexpr PortStateLeaf kPortStateLeaves[] = {
    {"/lacp/interfaces/interface/members/member/state/activity", yfw_get_lacp_state_activity},
    {"/lacp/interfaces/interface/members/member/state/timeout", yfw_get_lacp_state_timeout},
    {"/lacp/interfaces/interface/members/member/state/synchronization", yfw_get_lacp_state_synchronization},
    {"/lacp/interfaces/interface/members/member/state/aggregatable", yfw_get_lacp_state_aggregatable},
    {"/lacp/interfaces/interface/members/member/state/collecting", yfw_get_lacp_state_collecting},
    {"/lacp/interfaces/interface/members/member/state/distributing", yfw_get_lacp_state_distributing},
};

// What is not a number reads as 0; of a larger number the low eight bits count.
std::uint8_t port_state_of(const char* value) {
  return value != nullptr ? static_cast<std::uint8_t>(std::strtol(value, nullptr, 10) & 0xff) : 0;
}

cerrno report_port_state(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {
  return ymap::run_in_frame(handler, ctx, in, out, [&]() -> cerrno {
    const std::uint8_t state = port_state_of(in->value);
    for (const PortStateLeaf& leaf : kPortStateLeaves) {
      const char* const text = leaf.text_of(state);
      static_cast<void>(
          ymap::add(ctx, out, {.path = leaf.target, .ns = kOpenconfigLacp, .value = text, .last_flag = 1}));
    }
    return YFW_OK;
  });
}

// Reads the bundle that is walked; a failure is recorded.
cerrno bundle_of(const Activation& run, yfw_map_ctx ctx, const char*& name) {
  const cerrno status = get_bundle_name_from_oper_tree(ctx, &name);
  if (status != YFW_OK) run.record_failed_call(oclacp::message::kBundleNameMissing, status);
  return status;
}

struct BundleLeaf {
  const char* target;
};

cerrno report_bundle_leaf(const Handler& handler, const BundleLeaf& row, yfw_map_ctx ctx, const yfw_datatree* in,
                          yfw_datatree* out) {
  return ymap::run_in_frame(handler, ctx, in, out, [&](const Activation& run) -> Outcome {
    const char* name = nullptr;
    if (const cerrno status = bundle_of(run, ctx, name); status != YFW_OK) return Outcome::without_end(status);
    if (!oclacp::is_mapped(name)) return YFW_OK;
    return ymap::add(ctx, out, {.path = row.target, .ns = kOpenconfigLacp, .value = in->value});
  });
}

// The OpenConfig text of an applied mode; null for a mode that is neither of the two.
const char* openconfig_mode(const char* mode) {
  if (mode == nullptr) return nullptr;
  if (std::strcmp(mode, "bmd-mode-active") == 0) return "ACTIVE";
  return std::strcmp(mode, "bmd-mode-passive") == 0 ? "PASSIVE" : nullptr;
}

cerrno report_applied_mode(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {
  return ymap::run_in_frame(handler, ctx, in, out, [&](const Activation& run) -> Outcome {
    const char* native = nullptr;
    static_cast<void>(yfw_map_get_node_info(ctx, "/lacp-bundles/bundles/bundle/data", "applied-lacp-mode", &native));
    ymap::ShortText text;  // stays empty for an unknown mode, and is then reported empty
    if (const char* const mode = openconfig_mode(native); mode != nullptr) {
      if (const cerrno status = ymap::copy(run, text, mode, ymap::message::kCopyFailed); status != YFW_OK) {
        return Outcome::without_end(status);
      }
    }
    const char* name = nullptr;
    if (const cerrno status = bundle_of(run, ctx, name); status != YFW_OK) return Outcome::without_end(status);
    if (ymap::operation_of(ctx) != YFW_REQUEST_READ_STATE || !oclacp::is_mapped(name)) return YFW_OK;
    return ymap::add(ctx, out,
                     {.path = "/lacp/interfaces/interface/state/lacp-mode", .ns = kOpenconfigLacp, .value = text.text});
  });
}

cerrno map_bundle_entry(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {
  return ymap::run_in_frame(handler, ctx, in, out, [&]() -> cerrno {
    const char* name = nullptr;
    const cerrno status = get_bundle_name_from_oper_tree(ctx, &name);
    if (name == nullptr || yfw_is_oc_subinterface(name) != 0) return status;
    return yfw_map_search_or_add_list(ctx, out, &ctx->request->current_list_node, oclacp::kOcInterface, name, "name",
                                      kOpenconfigLacp);
  });
}

cerrno map_member_entry(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {
  return ymap::run_in_frame(handler, ctx, in, out, [&] {
    const yfw_datatree* const deleted = yfw_map_is_request_delete(in) != 0 ? in : nullptr;
    return ymap::add(ctx, out, {.path = oclacp::kOcMember, .ns = kOpenconfigLacp, .source = deleted, .list_flag = 1});
  });
}

}  // namespace

// clang-format off

YMAP_DEFINE_SIMPLE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_list_lvla_lacpbundles_bundles_bundle,
    map_bundle_entry)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_list_lvla_lacpbundles_members_member,
    map_member_entry)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_linkdata_actorportstate,
    report_port_state)
// The member's name is the key of its entry, and a leaf of its state.
YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_member_memberinterface,
    ymap::report_leaf, NativeLeaf{
    .targets = {"/lacp/interfaces/interface/members/member/interface",
                "/lacp/interfaces/interface/members/member/state/interface"},
    .ns = kOpenconfigLacp,
    .list_flag = 1,
    .last_flag = 1})

// A tree of bundle members that no walker visits
YMAP_DEFINE_SIMPLE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundlemembers_data_actorportstate,
    ymap::no_op)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_man_leaf_lvla_lacpbundlemembers_member_memberinterface,
    ymap::no_op)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundlemembers_member_memberinterface,
    ymap::no_op)

YMAP_DEFINE_SIMPLE_HANDLER(qd2oc_actorportstate, report_port_state)
YMAP_DEFINE_SIMPLE_HANDLER(qd2oc_lacpmode, report_applied_mode)
YMAP_DEFINE_HANDLER(qd2oc_statesystemidmac, report_bundle_leaf, BundleLeaf{
    .target = "/lacp/interfaces/interface/state/system-id-mac"})
YMAP_DEFINE_HANDLER(qd2oc_intfstatesystempriority, report_bundle_leaf, BundleLeaf{
    .target = "/lacp/interfaces/interface/state/system-priority"})

// clang-format on

cerrno get_bundle_name_from_oper_tree(yfw_map_ctx ctx, const char** name) {
  return yfw_map_get_node_info(ctx, oclacp::kBundle, "bundle-interface", name);
}
