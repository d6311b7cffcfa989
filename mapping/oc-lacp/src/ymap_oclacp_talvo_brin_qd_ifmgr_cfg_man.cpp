// The hand-written handlers of the native interface configuration: entries, their names, and what augments them.
#include <algorithm>
#include <cstring>

#include "frame/addition.h"
#include "messages.h"
#include "models.h"
#include "native_conversion.h"
#include "native_paths.h"
#include "oclacp/native_config.h"
#include "openconfig_paths.h"
#include "yfw/map.h"

using oclacp::kOpenconfigLacp;
using ymap::Activation;
using ymap::Handler;

namespace {

// Fills the request's scratch buffer. Interface names are shorter than it; a longer one is cut there, and nowhere else.
void keep_interface_name(yfw_map_ctx ctx, const char* name) {
  char(&kept)[YFW_INTERFACE_NAME_CAPACITY] = ctx->request->interface_name;
  std::memset(kept, 0, sizeof kept);
  std::memcpy(kept, name, std::min(std::strlen(name), sizeof kept - 1));
}

// The first child is the configuration class, which the native tree lists first; "pre" is pre-configuration.
bool is_preconfigured(const yfw_datatree& entry) {
  if (ymap::child_count_of(entry).value_or(0) == 0) return false;
  const char* const configuration_class = entry.children[0].value;
  return configuration_class != nullptr && std::strcmp(configuration_class, "pre") == 0;
}

cerrno map_interface_entry(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {
  return ymap::run_in_frame(handler, ctx, in, out, [&]() -> cerrno {
    if (is_preconfigured(*in)) return YFW_SKIP_SUBTREE;
    const char* name = nullptr;
    const cerrno looked_up = get_intf_name_from_tree(ctx, &name);
    if (name == nullptr) return YFW_UNSUPPORTED_NODE;
    if (looked_up != YFW_OK) return looked_up;
    if (!oclacp::is_mapped(name)) return YFW_OK;
    if (yfw_map_is_request_delete(in) != 0) {
      const cerrno status = ymap::add(ctx, out,
                                      {.path = oclacp::kOcInterface,
                                       .ns = kOpenconfigLacp,
                                       .source = in,
                                       .word = oclacp::list_slot(ctx),
                                       .list_flag = 1});
      yfw_map_copy_trim_path_list_ctx(ctx, oclacp::kOcInterface);
      return status;
    }
    keep_interface_name(ctx, name);
    return yfw_map_search_or_add_list(ctx, out, &ctx->request->current_list_node, oclacp::kOcInterface, name, "name",
                                      kOpenconfigLacp);
  });
}

cerrno map_interface_name(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {
  return ymap::run_in_frame(handler, ctx, in, out, [&](const Activation& run) -> cerrno {
    const char* const name = in->value;
    if (name == nullptr) {
      run.record(oclacp::message::kInterfaceNameMissing);
      return YFW_MALFORMED_TREE;
    }
    keep_interface_name(ctx, name);
    if (!oclacp::is_mapped(name)) return YFW_OK;
    const auto add_name = [&](const char* path) {
      return ymap::add(ctx, out, {.path = path, .ns = kOpenconfigLacp, .value = name});
    };
    const cerrno status = add_name(oclacp::kOcInterfaceName);
    if (ymap::operation_of(ctx) != YFW_REQUEST_READ_STATE) return status;
    return add_name(oclacp::kOcInterfaceStateName);
  });
}

// Nodes of the bundle model go to the walker of their kind; whatever is not bundle or lacp goes to that of
// bundle-member, which skips what it does not expect.
cerrno hand_to_augment(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {
  return ymap::run_in_frame(handler, ctx, in, out, [&]() -> cerrno {
    if (yfw_map_do_these_match(in->ns, oclacp::kBundlemgrCfg) == 0) return YFW_OK;
    if (yfw_map_do_these_match(in->tag, "bundle") != 0) {
      return ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvlb_interface_configuration(ctx, in, out);
    }
    if (yfw_map_do_these_match(in->tag, "lacp") != 0) {
      return ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvlc_interface_configuration(ctx, in, out);
    }
    return ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvld_interface_configuration(ctx, in, out);
  });
}

}  // namespace

// clang-format off

YMAP_DEFINE_SIMPLE_HANDLER(ymap_qo_oclacp_talvobrinqdifmgrcfg_list_lvla_interfaceconfigurations_interfaceconfiguration,
    map_interface_entry)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_qo_oclacp_talvobrinqdifmgrcfg_leaf_lvla_interfaceconfigurations_interfaceconfiguration_interfacename,
    map_interface_name)
YMAP_DEFINE_SIMPLE_HANDLER(qd_to_oc_interface_name_leaf_cb, map_interface_name)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_parse_augments,
    hand_to_augment)

// clang-format on

cerrno get_intf_name_from_tree(yfw_map_ctx ctx, const char** name) {
  return yfw_map_get_node_info(ctx, oclacp::kInterfaceConfiguration, "interface-name", name);
}
