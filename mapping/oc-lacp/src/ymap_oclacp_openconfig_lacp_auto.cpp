// The handlers of openconfig-lacp that only check, copy or ask: one row each.
#include "frame/request_handlers.h"
#include "models.h"
#include "native_paths.h"
#include "oclacp/openconfig_lacp.h"

using oclacp::kBundlemgrCfg;
using oclacp::kBundlemgrOper;
using ymap::ConfigLeaf;
using ymap::ConvertedLeaf;
using ymap::StateLeaf;

// clang-format off

// Containers and lists: nothing to add
YMAP_DEFINE_CONTAINER_HANDLER(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp, ymap::no_op)
YMAP_DEFINE_CONTAINER_HANDLER(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_config, ymap::no_op)
YMAP_DEFINE_CONTAINER_HANDLER(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_state, ymap::no_op)
YMAP_DEFINE_CONTAINER_HANDLER(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_interfaces, ymap::no_op)
YMAP_DEFINE_CONTAINER_HANDLER(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_interfaces_interface, ymap::no_op)
YMAP_DEFINE_CONTAINER_HANDLER(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_interface_config, ymap::no_op)
YMAP_DEFINE_CONTAINER_HANDLER(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_interface_state, ymap::no_op)
YMAP_DEFINE_CONTAINER_HANDLER(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_interface_members, ymap::no_op)
YMAP_DEFINE_CONTAINER_HANDLER(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_members_member, ymap::no_op)
YMAP_DEFINE_CONTAINER_HANDLER(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_member_state, ymap::no_op)
YMAP_DEFINE_CONTAINER_HANDLER(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_state_counters, ymap::no_op)

// Nodes that the mapping does not translate
YMAP_DEFINE_CONTAINER_HANDLER(ymap_oq_oclacp_openconfiglacp_duck_map_container, ymap::no_op)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_oq_oclacp_openconfiglacp_duck_map_list, ymap::no_op_unchecked)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_oq_oclacp_openconfiglacp_duck_map_leaf, ymap::refuse_leaf)

// clang-format on

// Leaf handlers
#define OCLACP_CONFIG_LEAF(NODE, WALKER, HANDLER, TARGET, NS) \
  YMAP_DEFINE_HANDLER(HANDLER, ymap::handle_config_leaf, ConfigLeaf{.target = TARGET, .ns = NS, .last_flag = 0})
#define OCLACP_STATE_LEAF(NODE, WALKER, HANDLER, TARGET, NS) \
  YMAP_DEFINE_HANDLER(HANDLER, ymap::handle_state_leaf, StateLeaf{.target = TARGET, .ns = NS})
#define OCLACP_CONVERTED_LEAF(NODE, WALKER, HANDLER, CONVERTER, TARGET, NS) \
  YMAP_DEFINE_HANDLER(HANDLER, ymap::handle_converted_leaf, ConvertedLeaf{.converter = CONVERTER})
#define OCLACP_UNSUPPORTED_LEAF(NODE, WALKER, HANDLER) YMAP_DEFINE_SIMPLE_HANDLER(HANDLER, ymap::refuse_leaf)
#define OCLACP_KEY_LEAF(NODE, WALKER, HANDLER, TARGET, NS)
#include "ymap_oclacp_openconfig_lacp_leaves.inc"
