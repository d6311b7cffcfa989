// The handlers of the native operational data that have nothing to do, and those of its leaves.
#include "frame/native_handlers.h"
#include "frame/request_handlers.h"
#include "models.h"
#include "oclacp/native_oper.h"

using oclacp::kOpenconfigLacp;
using ymap::ConvertedLeaf;
using ymap::NativeLeaf;

// clang-format off

// Containers: nothing to add
YMAP_DEFINE_CONTAINER_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_bundlesystemid_systemmacaddr, ymap::no_op)
YMAP_DEFINE_CONTAINER_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_data_bundlesystemid, ymap::no_op)
YMAP_DEFINE_CONTAINER_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_bundle_data, ymap::no_op)
YMAP_DEFINE_CONTAINER_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_member_counters, ymap::no_op)
YMAP_DEFINE_CONTAINER_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_member_linkdata, ymap::no_op)
YMAP_DEFINE_CONTAINER_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_bundle_members, ymap::no_op)
YMAP_DEFINE_CONTAINER_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_bundles, ymap::no_op)
YMAP_DEFINE_CONTAINER_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles, ymap::no_op)
YMAP_DEFINE_CONTAINER_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata_systemid_systemmacaddr, ymap::no_op)
YMAP_DEFINE_CONTAINER_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata_systemid_systemid, ymap::no_op)
YMAP_DEFINE_CONTAINER_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata_global_systemid, ymap::no_op)
YMAP_DEFINE_CONTAINER_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata_global, ymap::no_op)
YMAP_DEFINE_CONTAINER_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata, ymap::no_op)

// Known nodes without a mapping
YMAP_DEFINE_CONTAINER_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_duck_map_container, ymap::no_op)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_duck_map_list, ymap::no_op)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_duck_map_leaf, ymap::no_op)

// clang-format on

// Leaf handlers
#define OCLACP_NATIVE_COPY(NODE, HANDLER, TARGET) \
  YMAP_DEFINE_HANDLER(HANDLER, ymap::report_leaf, NativeLeaf{.target = TARGET, .ns = kOpenconfigLacp})
#define OCLACP_NATIVE_COPY_TWICE(NODE, HANDLER, FIRST, TARGET) \
  YMAP_DEFINE_HANDLER(HANDLER, ymap::report_leaf, NativeLeaf{.target = TARGET, .ns = kOpenconfigLacp, .also = FIRST})
#define OCLACP_NATIVE_CONVERTED(NODE, HANDLER, CONVERTER, TARGET) \
  YMAP_DEFINE_HANDLER(HANDLER, ymap::handle_converted_leaf, ConvertedLeaf{.converter = CONVERTER})
#define OCLACP_NATIVE_HANDWRITTEN(NODE, HANDLER, ...)
#define OCLACP_NATIVE_SILENT(NODE, HANDLER) YMAP_DEFINE_SIMPLE_HANDLER(HANDLER, ymap::no_op)
#include "ymap_oclacp_talvo_brin_qd_bundlemgr_oper_leaves.inc"
