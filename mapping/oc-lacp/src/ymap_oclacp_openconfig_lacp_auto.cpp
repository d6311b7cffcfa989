// The handlers of openconfig-lacp that only check, copy or ask.
#include "frame/request_handlers.h"
#include "leaf_rows.h"
#include "models.h"
#include "native_paths.h"
#include "oclacp/openconfig_lacp.h"

using namespace oclacp;  // NOLINT(google-build-using-namespace): the names that the rows use
using ymap::ConfigLeaf;
using ymap::StateLeaf;

#define OCLACP_NO_OP_CONTAINER(NAME) YMAP_DEFINE_CONTAINER_HANDLER(NAME, ymap::no_op)
#define OCLACP_AUGMENTS(NAME) YMAP_DEFINE_SIMPLE_HANDLER(NAME, ymap::refuse_added_augment)

// clang-format off

// Containers: nothing to add
OCLACP_NO_OP_CONTAINER(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp)
OCLACP_NO_OP_CONTAINER(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_config)
OCLACP_NO_OP_CONTAINER(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_state)
OCLACP_NO_OP_CONTAINER(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_interfaces)
OCLACP_NO_OP_CONTAINER(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_interfaces_interface)
OCLACP_NO_OP_CONTAINER(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_interface_config)
OCLACP_NO_OP_CONTAINER(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_interface_state)
OCLACP_NO_OP_CONTAINER(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_interface_members)
OCLACP_NO_OP_CONTAINER(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_members_member)
OCLACP_NO_OP_CONTAINER(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_member_state)
OCLACP_NO_OP_CONTAINER(ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_state_counters)

// Children of foreign namespaces
OCLACP_AUGMENTS(ymap_oq_oclacp_openconfiglacp_lvla_lacp_parse_augments)
OCLACP_AUGMENTS(ymap_oq_oclacp_openconfiglacp_lvla_lacp_config_parse_augments)
OCLACP_AUGMENTS(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_parse_augments)
OCLACP_AUGMENTS(ymap_oq_oclacp_openconfiglacp_lvla_lacp_interfaces_parse_augments)
OCLACP_AUGMENTS(ymap_oq_oclacp_openconfiglacp_lvla_lacp_interfaces_interface_parse_augments)
OCLACP_AUGMENTS(ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_config_parse_augments)
OCLACP_AUGMENTS(ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_state_parse_augments)
OCLACP_AUGMENTS(ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_members_parse_augments)
OCLACP_AUGMENTS(ymap_oq_oclacp_openconfiglacp_lvla_lacp_members_member_parse_augments)
OCLACP_AUGMENTS(ymap_oq_oclacp_openconfiglacp_lvla_lacp_member_state_parse_augments)
OCLACP_AUGMENTS(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_counters_parse_augments)

// Nodes that the mapping does not translate
OCLACP_NO_OP_CONTAINER(ymap_oq_oclacp_openconfiglacp_duck_map_container)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_oq_oclacp_openconfiglacp_duck_map_list, ymap::no_op_unchecked)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_oq_oclacp_openconfiglacp_duck_map_leaf, ymap::refuse_leaf)

// clang-format on

// Leaf handlers
#define OCLACP_CONFIG_LEAF(WALKER, HANDLER, ...) \
  YMAP_DEFINE_HANDLER(                           \
      HANDLER, ymap::handle_config_leaf,         \
      ConfigLeaf{.target = *(OpenconfigLeafRow __VA_ARGS__).target, .ns = kBundlemgrCfg, .last_flag = 0})
#define OCLACP_STATE_LEAF(WALKER, HANDLER, ...)         \
  YMAP_DEFINE_HANDLER(HANDLER, ymap::handle_state_leaf, \
                      StateLeaf{.target = *(OpenconfigLeafRow __VA_ARGS__).target, .ns = kBundlemgrOper})
#define OCLACP_CONVERTED_LEAF(WALKER, HANDLER, CONVERTER, ...) \
  YMAP_DEFINE_HANDLER(HANDLER, ymap::handle_converted_leaf, ymap::ConvertedLeaf{.converter = CONVERTER})
#define OCLACP_UNSUPPORTED_LEAF(WALKER, HANDLER, ...) YMAP_DEFINE_SIMPLE_HANDLER(HANDLER, ymap::refuse_leaf)
#define OCLACP_KEY_LEAF(WALKER, HANDLER, ...)
#include "ymap_oclacp_openconfig_lacp_nodes.inc"
