// The walkers of openconfig-lacp. Each inner node has its table of children, in the order in which their tags are
// tested, and a row that stamps its walker; the leaf walkers come out of the rows of the leaves.
#include <span>

#include "frame/request_handlers.h"
#include "frame/request_walker.h"
#include "models.h"
#include "native_paths.h"
#include "oclacp/openconfig_lacp.h"

using oclacp::kOpenconfigLacp;
using ymap::Availability;
using ymap::RequestChild;
using ymap::RequestContainer;
using ymap::RequestLeaf;
using ymap::RequestList;

// clang-format off

// /lacp: an expansion asks for the interfaces before the state
static constexpr RequestChild kLacpConfig{.tag = "config", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_config};
static constexpr RequestChild kLacpState{.tag = "state", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_state, .availability = Availability::kStateRead};
static constexpr RequestChild kLacpInterfaces{.tag = "interfaces", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_interfaces};
static constexpr RequestChild kLacpChildren[] = {kLacpConfig, kLacpState, kLacpInterfaces};
static constexpr RequestChild kLacpExpansion[] = {kLacpConfig, kLacpInterfaces, kLacpState};
YMAP_DEFINE_HANDLER(ymap_oq_oclacp_openconfiglacp_lvla_lacp, ymap::walk_container, RequestContainer{
    .node = {.ns = kOpenconfigLacp, .children = kLacpChildren, .parse_augments = ymap_oq_oclacp_openconfiglacp_lvla_lacp_parse_augments, .expansion = kLacpExpansion},
    .handler = ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp,
    .refuses_delete_with_subtree = true})

// /lacp/config
static constexpr RequestChild kLacpConfigChildren[] = {
    {.tag = "system-priority", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_config_systempriority},
};
YMAP_DEFINE_HANDLER(ymap_oq_oclacp_openconfiglacp_lvla_lacp_config, ymap::walk_container, RequestContainer{
    .node = {.ns = kOpenconfigLacp, .children = kLacpConfigChildren, .parse_augments = ymap_oq_oclacp_openconfiglacp_lvla_lacp_config_parse_augments},
    .handler = ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_config,
    .refuses_delete_with_subtree = true})

// /lacp/state
static constexpr RequestChild kLacpStateChildren[] = {
    {.tag = "system-priority", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_systempriority},
};
YMAP_DEFINE_HANDLER(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state, ymap::walk_container, RequestContainer{
    .node = {.ns = kOpenconfigLacp, .children = kLacpStateChildren, .parse_augments = ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_parse_augments},
    .handler = ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_state})

// /lacp/interfaces
static constexpr RequestChild kLacpInterfacesChildren[] = {
    {.tag = "interface", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_interfaces_interface},
};
YMAP_DEFINE_HANDLER(ymap_oq_oclacp_openconfiglacp_lvla_lacp_interfaces, ymap::walk_container, RequestContainer{
    .node = {.ns = kOpenconfigLacp, .children = kLacpInterfacesChildren, .parse_augments = ymap_oq_oclacp_openconfiglacp_lvla_lacp_interfaces_parse_augments},
    .handler = ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_interfaces,
    .refuses_delete_with_subtree = true})

// /lacp/interfaces/interface
static constexpr RequestChild kLacpInterfacesInterfaceChildren[] = {
    {.tag = "config", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_config},
    {.tag = "state", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_state, .availability = Availability::kStateRead},
    {.tag = "members", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_members, .availability = Availability::kStateRead},
};
YMAP_DEFINE_HANDLER(ymap_oq_oclacp_openconfiglacp_lvla_lacp_interfaces_interface, ymap::walk_list_entry, RequestList{
    .node = {.ns = kOpenconfigLacp, .children = kLacpInterfacesInterfaceChildren, .parse_augments = ymap_oq_oclacp_openconfiglacp_lvla_lacp_interfaces_interface_parse_augments},
    .path = "/lacp/interfaces/interface",
    .key = "name",
    .handler = ymap_oq_oclacp_openconfiglacp_list_lvla_lacp_interfaces_interface,
    .key_leaf = ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_name})

// /lacp/interfaces/interface/config
static constexpr RequestChild kLacpInterfaceConfigChildren[] = {
    {.tag = "name", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_config_name},
    {.tag = "interval", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_config_interval},
    {.tag = "lacp-mode", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_config_lacpmode},
    {.tag = "system-id-mac", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_config_systemidmac},
    {.tag = "system-priority", .walk = ymap_oq_oclacp_openconfiglacp_lvlb_lacp_config_systempriority},
};
YMAP_DEFINE_HANDLER(ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_config, ymap::walk_container, RequestContainer{
    .node = {.ns = kOpenconfigLacp, .children = kLacpInterfaceConfigChildren, .parse_augments = ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_config_parse_augments},
    .handler = ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_interface_config,
    .refuses_delete_with_subtree = true})

// /lacp/interfaces/interface/state
static constexpr RequestChild kLacpInterfaceStateChildren[] = {
    {.tag = "name", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_name},
    {.tag = "interval", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_interval},
    {.tag = "lacp-mode", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_lacpmode},
    {.tag = "system-id-mac", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_systemidmac},
    {.tag = "system-priority", .walk = ymap_oq_oclacp_openconfiglacp_lvlb_lacp_state_systempriority},
};
YMAP_DEFINE_HANDLER(ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_state, ymap::walk_container, RequestContainer{
    .node = {.ns = kOpenconfigLacp, .children = kLacpInterfaceStateChildren, .parse_augments = ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_state_parse_augments},
    .handler = ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_interface_state})

// /lacp/interfaces/interface/members
static constexpr RequestChild kLacpInterfaceMembersChildren[] = {
    {.tag = "member", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_members_member},
};
YMAP_DEFINE_HANDLER(ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_members, ymap::walk_container, RequestContainer{
    .node = {.ns = kOpenconfigLacp, .children = kLacpInterfaceMembersChildren, .parse_augments = ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_members_parse_augments},
    .handler = ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_interface_members})

// /lacp/interfaces/interface/members/member
static constexpr RequestChild kLacpMembersMemberChildren[] = {
    {.tag = "state", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_member_state, .availability = Availability::kStateRead},
};
YMAP_DEFINE_HANDLER(ymap_oq_oclacp_openconfiglacp_lvla_lacp_members_member, ymap::walk_list_entry, RequestList{
    .node = {.ns = kOpenconfigLacp, .children = kLacpMembersMemberChildren, .parse_augments = ymap_oq_oclacp_openconfiglacp_lvla_lacp_members_member_parse_augments},
    .path = "/lacp/interfaces/interface/members/member",
    .key = "interface",
    .handler = ymap_oq_oclacp_openconfiglacp_list_lvla_lacp_members_member,
    .key_leaf = ymap_oq_oclacp_openconfiglacp_lvla_lacp_member_interface})

// /lacp/interfaces/interface/members/member/state
static constexpr RequestChild kLacpMemberStateChildren[] = {
    {.tag = "interface", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_interface},
    {.tag = "activity", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_activity},
    {.tag = "timeout", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_timeout},
    {.tag = "synchronization", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_synchronization},
    {.tag = "aggregatable", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_aggregatable},
    {.tag = "collecting", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_collecting},
    {.tag = "distributing", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_distributing},
    {.tag = "system-id", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_systemid},
    {.tag = "oper-key", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_operkey},
    {.tag = "partner-id", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_partnerid},
    {.tag = "partner-key", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_partnerkey},
    {.tag = "port-num", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_portnum},
    {.tag = "partner-port-num", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_partnerportnum},
    {.tag = "last-change", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_lastchange},
    {.tag = "counters", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_counters},
};
YMAP_DEFINE_HANDLER(ymap_oq_oclacp_openconfiglacp_lvla_lacp_member_state, ymap::walk_container, RequestContainer{
    .node = {.ns = kOpenconfigLacp, .children = kLacpMemberStateChildren, .parse_augments = ymap_oq_oclacp_openconfiglacp_lvla_lacp_member_state_parse_augments},
    .handler = ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_member_state})

// /lacp/interfaces/interface/members/member/state/counters
static constexpr RequestChild kLacpStateCountersChildren[] = {
    {.tag = "lacp-in-pkts", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_counters_lacpinpkts},
    {.tag = "lacp-out-pkts", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_counters_lacpoutpkts},
    {.tag = "lacp-rx-errors", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_counters_lacprxerrors},
    {.tag = "lacp-tx-errors", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_counters_lacptxerrors},
    {.tag = "lacp-unknown-errors", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_counters_lacpunknownerrors},
    {.tag = "lacp-errors", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_counters_lacperrors},
    {.tag = "lacp-timeout-transitions", .walk = ymap_oq_oclacp_openconfiglacp_lvla_lacp_counters_lacptimeouttransitions},
};
YMAP_DEFINE_HANDLER(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_counters, ymap::walk_container, RequestContainer{
    .node = {.ns = kOpenconfigLacp, .children = kLacpStateCountersChildren, .parse_augments = ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_counters_parse_augments},
    .handler = ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_state_counters})

// Children of foreign namespaces
YMAP_DEFINE_SIMPLE_HANDLER(ymap_oq_oclacp_openconfiglacp_lvla_lacp_parse_augments, ymap::refuse_added_augment)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_oq_oclacp_openconfiglacp_lvla_lacp_config_parse_augments, ymap::refuse_added_augment)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_parse_augments, ymap::refuse_added_augment)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_oq_oclacp_openconfiglacp_lvla_lacp_interfaces_parse_augments, ymap::refuse_added_augment)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_oq_oclacp_openconfiglacp_lvla_lacp_interfaces_interface_parse_augments, ymap::refuse_added_augment)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_config_parse_augments, ymap::refuse_added_augment)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_state_parse_augments, ymap::refuse_added_augment)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_members_parse_augments, ymap::refuse_added_augment)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_oq_oclacp_openconfiglacp_lvla_lacp_members_member_parse_augments, ymap::refuse_added_augment)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_oq_oclacp_openconfiglacp_lvla_lacp_member_state_parse_augments, ymap::refuse_added_augment)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_oq_oclacp_openconfiglacp_lvla_lacp_state_counters_parse_augments, ymap::refuse_added_augment)

// clang-format on

// Leaf walkers
#define OCLACP_LEAF_WALKER(WALKER, HANDLER) \
  YMAP_DEFINE_HANDLER(WALKER, ymap::walk_leaf, RequestLeaf{.handler = HANDLER})
#define OCLACP_CONFIG_LEAF(NODE, WALKER, HANDLER, TARGET, NS) OCLACP_LEAF_WALKER(WALKER, HANDLER)
#define OCLACP_STATE_LEAF(NODE, WALKER, HANDLER, TARGET, NS) OCLACP_LEAF_WALKER(WALKER, HANDLER)
#define OCLACP_CONVERTED_LEAF(NODE, WALKER, HANDLER, CONVERTER, TARGET, NS) OCLACP_LEAF_WALKER(WALKER, HANDLER)
#define OCLACP_UNSUPPORTED_LEAF(NODE, WALKER, HANDLER) OCLACP_LEAF_WALKER(WALKER, HANDLER)
#define OCLACP_KEY_LEAF(NODE, WALKER, HANDLER, TARGET, NS) OCLACP_LEAF_WALKER(WALKER, HANDLER)
#include "ymap_oclacp_openconfig_lacp_leaves.inc"
