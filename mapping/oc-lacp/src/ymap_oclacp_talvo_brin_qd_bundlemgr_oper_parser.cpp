// The walkers of the native operational data, each by the row of its node.
#include "frame/native_rows.h"
#include "leaf_rows.h"
#include "models.h"
#include "oclacp/native_oper.h"
#include "openconfig_paths.h"

using namespace oclacp;  // NOLINT(google-build-using-namespace): the names that the rows use

// The walkers that only their parents' call
#define OCLACP_LOCAL_CONTAINER(WALKER, ...) static ymap::NodeHandler WALKER;
#define OCLACP_LOCAL_LIST(WALKER, ...) static ymap::NodeHandler WALKER;
#include "ymap_oclacp_talvo_brin_qd_bundlemgr_oper_nodes.inc"

namespace {

constexpr ymap::NativeModel kModel = {
    .ns = kBundlemgrOper,
    .tree = ymap::NativeTree::kOperational,
    .container_handler = ymap_qo_oclacp_talvobrinqdbundlemgroper_duck_map_container,
    .list_handler = ymap_qo_oclacp_talvobrinqdbundlemgroper_duck_map_list,
};

constexpr ymap::NativeEntry kNodes[] = {
#define OCLACP_CONTAINER(WALKER, ...) ymap::node_entry(ymap::NativeContainerRow __VA_ARGS__, WALKER),
#define OCLACP_LIST(WALKER, ...) ymap::node_entry(ymap::NativeListRow __VA_ARGS__, WALKER),
#define OCLACP_LEAF(HANDLER, ...) ymap::native_leaf_entry((NativeLeafRow __VA_ARGS__).path, HANDLER),
#include "ymap_oclacp_talvo_brin_qd_bundlemgr_oper_nodes.inc"
};
static_assert(ymap::are_connected(kNodes));

}  // namespace

#define OCLACP_CONTAINER(WALKER, ...) YMAP_DEFINE_NATIVE_CONTAINER(WALKER, kNodes, kModel, __VA_ARGS__)
#define OCLACP_LIST(WALKER, ...) YMAP_DEFINE_NATIVE_LIST(WALKER, kNodes, kModel, __VA_ARGS__)
#define OCLACP_LOCAL_CONTAINER(WALKER, ...) static YMAP_DEFINE_NATIVE_CONTAINER(WALKER, kNodes, kModel, __VA_ARGS__)
#define OCLACP_LOCAL_LIST(WALKER, ...) static YMAP_DEFINE_NATIVE_LIST(WALKER, kNodes, kModel, __VA_ARGS__)
#include "ymap_oclacp_talvo_brin_qd_bundlemgr_oper_nodes.inc"
