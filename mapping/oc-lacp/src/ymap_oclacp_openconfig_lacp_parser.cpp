// The walkers of openconfig-lacp, each by the row of its node.
#include "frame/request_rows.h"
#include "leaf_rows.h"
#include "models.h"
#include "native_paths.h"
#include "oclacp/openconfig_lacp.h"

using namespace oclacp;  // NOLINT(google-build-using-namespace): the names that the rows use
using ymap::Availability;

namespace {

constexpr ymap::RequestEntry kNodes[] = {
#define OCLACP_CONTAINER(WALKER, ...) ymap::node_entry(ymap::RequestContainerRow __VA_ARGS__, WALKER),
#define OCLACP_LIST(WALKER, ...) ymap::node_entry(ymap::RequestListRow __VA_ARGS__, WALKER),
#define OCLACP_LEAF(WALKER, HANDLER, ...) ymap::request_leaf_entry((OpenconfigLeafRow __VA_ARGS__).path, WALKER),
#include "ymap_oclacp_openconfig_lacp_nodes.inc"
};
static_assert(ymap::are_connected(kNodes));

}  // namespace

#define OCLACP_CONTAINER(WALKER, ...) YMAP_DEFINE_REQUEST_CONTAINER(WALKER, kNodes, kOpenconfigLacp, __VA_ARGS__)
#define OCLACP_LIST(WALKER, ...) YMAP_DEFINE_REQUEST_LIST(WALKER, kNodes, kOpenconfigLacp, __VA_ARGS__)
#define OCLACP_LEAF(WALKER, HANDLER, ...) \
  YMAP_DEFINE_HANDLER(WALKER, ymap::walk_leaf, ymap::RequestLeaf{.handler = HANDLER})
#include "ymap_oclacp_openconfig_lacp_nodes.inc"
