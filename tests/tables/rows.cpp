#include "tables/rows.h"

#include "models.h"
#include "native_paths.h"
#include "oclacp/native_config.h"
#include "oclacp/native_oper.h"
#include "oclacp/openconfig_lacp.h"

// The names that the rows use are those of the module's namespace.
namespace oclacp {
namespace {

using tables::LeafRow;

LeafRow converted(const char* node, const char* name, ymap::NodeHandler* handler, const char* target) {
  return {node, name, handler, target == nullptr ? std::vector<const char*>{} : std::vector<const char*>{target}};
}

std::vector<LeafRow> rows_of_openconfig() {
  return {
#define OCLACP_CONFIG_LEAF(NODE, WALKER, HANDLER, TARGET, NS) {NODE, #HANDLER, HANDLER, {TARGET}},
#define OCLACP_STATE_LEAF(NODE, WALKER, HANDLER, TARGET, NS) {NODE, #HANDLER, HANDLER, {TARGET}},
#define OCLACP_CONVERTED_LEAF(NODE, WALKER, HANDLER, CONVERTER, TARGET) converted(NODE, #HANDLER, HANDLER, TARGET),
#define OCLACP_UNSUPPORTED_LEAF(NODE, WALKER, HANDLER) {NODE, #HANDLER, HANDLER, {}},
#define OCLACP_KEY_LEAF(NODE, WALKER, HANDLER, TARGET, NS) {NODE, #HANDLER, HANDLER, {TARGET}, true},
#include "ymap_oclacp_openconfig_lacp_leaves.inc"
  };
}

std::vector<LeafRow> rows_of_native_configuration() {
  return {
#define OCLACP_NATIVE_CONVERTED(NODE, HANDLER, CONVERTER, TARGET) {NODE, #HANDLER, HANDLER, {TARGET}},
#define OCLACP_NATIVE_HANDWRITTEN(NODE, HANDLER, ...) {NODE, #HANDLER, HANDLER, {__VA_ARGS__}},
#define OCLACP_NATIVE_SILENT(NODE, HANDLER) {NODE, #HANDLER, HANDLER, {}},
#include "ymap_oclacp_talvo_brin_qd_bundlemgr_cfg_leaves.inc"
  };
}

// The same names of rows in another table.
#undef OCLACP_NATIVE_CONVERTED
#undef OCLACP_NATIVE_HANDWRITTEN
#undef OCLACP_NATIVE_SILENT

std::vector<LeafRow> rows_of_native_operational_data() {
  return {
#define OCLACP_NATIVE_COPY(NODE, HANDLER, TARGET) {NODE, #HANDLER, HANDLER, {TARGET}},
#define OCLACP_NATIVE_COPY_TWICE(NODE, HANDLER, FIRST, TARGET, LIST_FLAG, LAST_FLAG) \
  {NODE, #HANDLER, HANDLER, {FIRST, TARGET}},
#define OCLACP_NATIVE_CONVERTED(NODE, HANDLER, CONVERTER, TARGET) {NODE, #HANDLER, HANDLER, {TARGET}},
#define OCLACP_NATIVE_HANDWRITTEN(NODE, HANDLER, ...) {NODE, #HANDLER, HANDLER, {__VA_ARGS__}},
#define OCLACP_NATIVE_SILENT(NODE, HANDLER) {NODE, #HANDLER, HANDLER, {}},
#include "ymap_oclacp_talvo_brin_qd_bundlemgr_oper_leaves.inc"
  };
}

}  // namespace
}  // namespace oclacp

namespace tables {

std::vector<LeafRow> openconfig_rows() {
  return oclacp::rows_of_openconfig();
}

std::vector<LeafRow> native_configuration_rows() {
  return oclacp::rows_of_native_configuration();
}

std::vector<LeafRow> native_operational_rows() {
  return oclacp::rows_of_native_operational_data();
}

}  // namespace tables
