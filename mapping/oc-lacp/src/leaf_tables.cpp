// The rows of the leaves as data, for whoever wants to look at the mapping instead of running it.
#include <iterator>

#include "leaf_rows.h"
#include "models.h"
#include "native_paths.h"
#include "oclacp/native_config.h"
#include "oclacp/native_oper.h"
#include "oclacp/openconfig_lacp.h"
#include "openconfig_paths.h"

namespace oclacp {
namespace {

// What serves a leaf.
struct Service {
  unsigned int work;
  const char* walker;
  const char* handler;
  decltype(oclacp_leaf::run) run;
  const char* converter = nullptr;
};

consteval oclacp_leaf leaf(const char* node, const char* ns, const Service& by) {
  return {node, ns, by.work, by.walker, by.handler, by.converter, by.run, {}, 0};
}

// A leaf of openconfig-lacp; its target is of the native model `target_ns`.
consteval oclacp_leaf openconfig_leaf(const Service& by, const char* target_ns, const OpenconfigLeafRow& row) {
  oclacp_leaf made = leaf(row.path, kOpenconfigLacp, by);
  if (row.target) made.targets[made.target_count++] = {*row.target, target_ns};
  return made;
}

// A leaf of the native model `ns`.
consteval oclacp_leaf native_leaf(const Service& by, const char* ns, const NativeLeafRow& row) {
  oclacp_leaf made = leaf(row.path, ns, by);
  for (const std::optional<const char*>& target : row.targets) {
    if (target) made.targets[made.target_count++] = {*target, kOpenconfigLacp};
  }
  return made;
}

constexpr oclacp_leaf kOpenconfigLeaves[] = {
#define OCLACP_CONFIG_LEAF(WALKER, HANDLER, ...) \
  openconfig_leaf({OCLACP_LEAF_COPIED, #WALKER, #HANDLER, HANDLER}, kBundlemgrCfg, __VA_ARGS__),
#define OCLACP_STATE_LEAF(WALKER, HANDLER, ...) \
  openconfig_leaf({OCLACP_LEAF_ASKED_FOR, #WALKER, #HANDLER, HANDLER}, kBundlemgrOper, __VA_ARGS__),
#define OCLACP_CONVERTED_CONFIG_LEAF(WALKER, HANDLER, CONVERTER, ...) \
  openconfig_leaf({OCLACP_LEAF_CONVERTED, #WALKER, #HANDLER, HANDLER, #CONVERTER}, kBundlemgrCfg, __VA_ARGS__),
#define OCLACP_CONVERTED_STATE_LEAF(WALKER, HANDLER, CONVERTER, ...) \
  openconfig_leaf({OCLACP_LEAF_CONVERTED, #WALKER, #HANDLER, HANDLER, #CONVERTER}, kBundlemgrOper, __VA_ARGS__),
#define OCLACP_UNSUPPORTED_LEAF(WALKER, HANDLER, ...) \
  openconfig_leaf({OCLACP_LEAF_REFUSED, #WALKER, #HANDLER, HANDLER}, nullptr, __VA_ARGS__),
#define OCLACP_KEY_LEAF(WALKER, HANDLER, ...) \
  openconfig_leaf({OCLACP_LEAF_HANDWRITTEN, #WALKER, #HANDLER, HANDLER}, kIfmgrCfg, __VA_ARGS__),
#include "ymap_oclacp_openconfig_lacp_nodes.inc"
};

constexpr oclacp_leaf kNativeConfigurationLeaves[] = {
#define OCLACP_HANDWRITTEN_LEAF(HANDLER, ...) \
  native_leaf({OCLACP_LEAF_HANDWRITTEN, nullptr, #HANDLER, HANDLER}, kIfmgrCfg, __VA_ARGS__),
#include "ymap_oclacp_talvo_brin_qd_ifmgr_cfg_nodes.inc"
#define OCLACP_CONVERTED_LEAF(HANDLER, CONVERTER, ...) \
  native_leaf({OCLACP_LEAF_CONVERTED, nullptr, #HANDLER, HANDLER, #CONVERTER}, kBundlemgrCfg, __VA_ARGS__),
#define OCLACP_HANDWRITTEN_LEAF(HANDLER, ...) \
  native_leaf({OCLACP_LEAF_HANDWRITTEN, nullptr, #HANDLER, HANDLER}, kBundlemgrCfg, __VA_ARGS__),
#define OCLACP_SILENT_LEAF(HANDLER, ...) \
  native_leaf({OCLACP_LEAF_SILENT, nullptr, #HANDLER, HANDLER}, kBundlemgrCfg, __VA_ARGS__),
#include "ymap_oclacp_talvo_brin_qd_bundlemgr_cfg_nodes.inc"
};

constexpr oclacp_leaf kNativeOperationalLeaves[] = {
#define OCLACP_COPIED_LEAF(HANDLER, ...) \
  native_leaf({OCLACP_LEAF_COPIED, nullptr, #HANDLER, HANDLER}, kBundlemgrOper, __VA_ARGS__),
#define OCLACP_CONVERTED_LEAF(HANDLER, CONVERTER, ...) \
  native_leaf({OCLACP_LEAF_CONVERTED, nullptr, #HANDLER, HANDLER, #CONVERTER}, kBundlemgrOper, __VA_ARGS__),
#define OCLACP_HANDWRITTEN_LEAF(HANDLER, ...) \
  native_leaf({OCLACP_LEAF_HANDWRITTEN, nullptr, #HANDLER, HANDLER}, kBundlemgrOper, __VA_ARGS__),
#define OCLACP_SILENT_LEAF(HANDLER, ...) \
  native_leaf({OCLACP_LEAF_SILENT, nullptr, #HANDLER, HANDLER}, kBundlemgrOper, __VA_ARGS__),
#include "ymap_oclacp_talvo_brin_qd_bundlemgr_oper_nodes.inc"
};

}  // namespace
}  // namespace oclacp

oclacp_leaf_table oclacp_openconfig_leaves() {
  return {oclacp::kOpenconfigLeaves, std::size(oclacp::kOpenconfigLeaves)};
}

oclacp_leaf_table oclacp_native_configuration_leaves() {
  return {oclacp::kNativeConfigurationLeaves, std::size(oclacp::kNativeConfigurationLeaves)};
}

oclacp_leaf_table oclacp_native_operational_leaves() {
  return {oclacp::kNativeOperationalLeaves, std::size(oclacp::kNativeOperationalLeaves)};
}
