// The rows of the leaves as data, for whoever wants to look at the mapping instead of running it.
#include <iterator>
#include <type_traits>

#include "models.h"
#include "native_paths.h"
#include "oclacp/leaves.h"
#include "oclacp/native_config.h"
#include "oclacp/native_oper.h"
#include "oclacp/openconfig_lacp.h"
#include "openconfig_paths.h"

namespace oclacp {
namespace {

// A row without its targets.
struct Served {
  const char* node;
  const char* ns;
  unsigned int work;
  const char* walker;
  const char* handler;
  const char* converter;
  decltype(oclacp_leaf::run) run;
};

// What a native row says besides the model that it is of.
consteval Served native(const char* ns, unsigned int work, const char* node, const char* handler,
                        decltype(oclacp_leaf::run) run, const char* converter = nullptr) {
  return {node, ns, work, nullptr, handler, converter, run};
}

// The leaf with its targets, all of one model. A path that is the literal null is no target.
template <typename... Paths>
consteval oclacp_leaf leaf(const Served& served, const char* ns, Paths... paths) {
  static_assert(sizeof...(paths) <= OCLACP_LEAF_TARGETS);
  oclacp_leaf made{served.node, served.ns, served.work, served.walker, served.handler, served.converter, served.run,
                   {},          0};
  [[maybe_unused]] const auto add = [&made, ns](auto path) {
    if constexpr (!std::is_null_pointer_v<decltype(path)>) made.targets[made.target_count++] = {path, ns};
  };
  (add(paths), ...);
  return made;
}

constexpr oclacp_leaf kOpenconfigLeaves[] = {
#define OCLACP_SERVED(WORK, NODE, WALKER, HANDLER, CONVERTER)          \
  Served {                                                             \
    NODE, kOpenconfigLacp, WORK, #WALKER, #HANDLER, CONVERTER, HANDLER \
  }
#define OCLACP_CONFIG_LEAF(NODE, WALKER, HANDLER, TARGET, NS) \
  leaf(OCLACP_SERVED(OCLACP_LEAF_COPIED, NODE, WALKER, HANDLER, nullptr), NS, TARGET),
#define OCLACP_STATE_LEAF(NODE, WALKER, HANDLER, TARGET, NS) \
  leaf(OCLACP_SERVED(OCLACP_LEAF_ASKED_FOR, NODE, WALKER, HANDLER, nullptr), NS, TARGET),
#define OCLACP_CONVERTED_LEAF(NODE, WALKER, HANDLER, CONVERTER, TARGET, NS) \
  leaf(OCLACP_SERVED(OCLACP_LEAF_CONVERTED, NODE, WALKER, HANDLER, #CONVERTER), NS, TARGET),
#define OCLACP_UNSUPPORTED_LEAF(NODE, WALKER, HANDLER) \
  leaf(OCLACP_SERVED(OCLACP_LEAF_REFUSED, NODE, WALKER, HANDLER, nullptr), nullptr),
#define OCLACP_KEY_LEAF(NODE, WALKER, HANDLER, TARGET, NS) \
  leaf(OCLACP_SERVED(OCLACP_LEAF_HANDWRITTEN, NODE, WALKER, HANDLER, nullptr), NS, TARGET),
#include "ymap_oclacp_openconfig_lacp_leaves.inc"
};

constexpr oclacp_leaf kNativeConfigurationLeaves[] = {
#define OCLACP_NATIVE_INTERFACE_NAME(NODE, HANDLER, ...) \
  leaf(native(kIfmgrCfg, OCLACP_LEAF_HANDWRITTEN, NODE, #HANDLER, HANDLER), kOpenconfigLacp, __VA_ARGS__),
#include "ymap_oclacp_talvo_brin_qd_ifmgr_cfg_leaves.inc"
#define OCLACP_NATIVE_CONVERTED(NODE, HANDLER, CONVERTER, TARGET) \
  leaf(native(kBundlemgrCfg, OCLACP_LEAF_CONVERTED, NODE, #HANDLER, HANDLER, #CONVERTER), kOpenconfigLacp, TARGET),
#define OCLACP_NATIVE_HANDWRITTEN(NODE, HANDLER, ...) \
  leaf(native(kBundlemgrCfg, OCLACP_LEAF_HANDWRITTEN, NODE, #HANDLER, HANDLER), kOpenconfigLacp, __VA_ARGS__),
#define OCLACP_NATIVE_SILENT(NODE, HANDLER) \
  leaf(native(kBundlemgrCfg, OCLACP_LEAF_SILENT, NODE, #HANDLER, HANDLER), nullptr),
#include "ymap_oclacp_talvo_brin_qd_bundlemgr_cfg_leaves.inc"
};

constexpr oclacp_leaf kNativeOperationalLeaves[] = {
#define OCLACP_NATIVE_COPY(NODE, HANDLER, TARGET) \
  leaf(native(kBundlemgrOper, OCLACP_LEAF_COPIED, NODE, #HANDLER, HANDLER), kOpenconfigLacp, TARGET),
#define OCLACP_NATIVE_COPY_TWICE(NODE, HANDLER, FIRST, TARGET) \
  leaf(native(kBundlemgrOper, OCLACP_LEAF_COPIED, NODE, #HANDLER, HANDLER), kOpenconfigLacp, FIRST, TARGET),
#define OCLACP_NATIVE_CONVERTED(NODE, HANDLER, CONVERTER, TARGET) \
  leaf(native(kBundlemgrOper, OCLACP_LEAF_CONVERTED, NODE, #HANDLER, HANDLER, #CONVERTER), kOpenconfigLacp, TARGET),
#define OCLACP_NATIVE_HANDWRITTEN(NODE, HANDLER, ...) \
  leaf(native(kBundlemgrOper, OCLACP_LEAF_HANDWRITTEN, NODE, #HANDLER, HANDLER), kOpenconfigLacp, __VA_ARGS__),
#define OCLACP_NATIVE_SILENT(NODE, HANDLER) \
  leaf(native(kBundlemgrOper, OCLACP_LEAF_SILENT, NODE, #HANDLER, HANDLER), nullptr),
#include "ymap_oclacp_talvo_brin_qd_bundlemgr_oper_leaves.inc"
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
