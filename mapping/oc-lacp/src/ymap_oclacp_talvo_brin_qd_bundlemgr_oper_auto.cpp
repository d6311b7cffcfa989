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
YMAP_STAMP_CONTAINER(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_bundlesystemid_systemmacaddr, ymap::accept_node)
YMAP_STAMP_CONTAINER(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_data_bundlesystemid, ymap::accept_node)
YMAP_STAMP_CONTAINER(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_bundle_data, ymap::accept_node)
YMAP_STAMP_CONTAINER(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_member_counters, ymap::accept_node)
YMAP_STAMP_CONTAINER(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_member_linkdata, ymap::accept_node)
YMAP_STAMP_CONTAINER(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_bundle_members, ymap::accept_node)
YMAP_STAMP_CONTAINER(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_bundles, ymap::accept_node)
YMAP_STAMP_CONTAINER(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles, ymap::accept_node)
YMAP_STAMP_CONTAINER(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata_systemid_systemmacaddr, ymap::accept_node)
YMAP_STAMP_CONTAINER(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata_systemid_systemid, ymap::accept_node)
YMAP_STAMP_CONTAINER(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata_global_systemid, ymap::accept_node)
YMAP_STAMP_CONTAINER(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata_global, ymap::accept_node)
YMAP_STAMP_CONTAINER(ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata, ymap::accept_node)

// Known nodes without a mapping
YMAP_STAMP_CONTAINER(ymap_qo_oclacp_talvobrinqdbundlemgroper_duck_map_container, ymap::accept_node)
YMAP_STAMP_PLAIN_NODE(ymap_qo_oclacp_talvobrinqdbundlemgroper_duck_map_list, ymap::accept_node)
YMAP_STAMP_PLAIN_NODE(ymap_qo_oclacp_talvobrinqdbundlemgroper_duck_map_leaf, ymap::accept_node)

// clang-format on

// Leaf handlers
#define OCLACP_NATIVE_COPY(NODE, HANDLER, TARGET) \
  YMAP_STAMP_NODE(HANDLER, ymap::report_leaf, NativeLeaf{.target = TARGET, .ns = kOpenconfigLacp})
#define OCLACP_NATIVE_COPY_TWICE(NODE, HANDLER, FIRST, TARGET) \
  YMAP_STAMP_NODE(HANDLER, ymap::report_leaf, NativeLeaf{.target = TARGET, .ns = kOpenconfigLacp, .also = FIRST})
#define OCLACP_NATIVE_CONVERTED(NODE, HANDLER, CONVERTER, TARGET) \
  YMAP_STAMP_NODE(HANDLER, ymap::handle_converted_leaf, ConvertedLeaf{.converter = CONVERTER})
#define OCLACP_NATIVE_HANDWRITTEN(NODE, HANDLER, ...)
#define OCLACP_NATIVE_SILENT(NODE, HANDLER) YMAP_STAMP_PLAIN_NODE(HANDLER, ymap::accept_node)
#include "ymap_oclacp_talvo_brin_qd_bundlemgr_oper_leaves.inc"
