// The walkers of the native operational data: the bundles with their members, and the device-wide LACP identity. A
// walker that is called from its parent alone is of this file.
#include <span>

#include "frame/native_handlers.h"
#include "frame/native_walker.h"
#include "frame/request_handlers.h"
#include "models.h"
#include "oclacp/native_oper.h"

using ymap::NativeChild;
using ymap::NativeContainer;
using ymap::NativeList;
using ymap::NativeTree;

// clang-format off

// /lacp-bundles/bundles/bundle/data/bundle-system-id/system-mac-addr
static constexpr NativeChild kLacpbundlesBundlesystemidSystemmacaddrChildren[] = {
    {.tag = "macaddr", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_systemmacaddr_macaddr, .is_leaf = true},
};
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundlesystemid_systemmacaddr, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrOper, .tree = NativeTree::kOperational, .children = kLacpbundlesBundlesystemidSystemmacaddrChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundlesystemid_systemmacaddr_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_bundlesystemid_systemmacaddr})

// /lacp-bundles/bundles/bundle/data/bundle-system-id
static constexpr NativeChild kLacpbundlesDataBundlesystemidChildren[] = {
    {.tag = "system-mac-addr", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundlesystemid_systemmacaddr},
    {.tag = "system-prio", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_bundlesystemid_systemprio, .is_leaf = true},
};
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_data_bundlesystemid, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrOper, .tree = NativeTree::kOperational, .children = kLacpbundlesDataBundlesystemidChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_data_bundlesystemid_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_data_bundlesystemid})

// /lacp-bundles/bundles/bundle/data
static constexpr NativeChild kLacpbundlesBundleDataChildren[] = {
    {.tag = "bundle-system-id", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_data_bundlesystemid},
    {.tag = "applied-lacp-mode", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_data_appliedlacpmode, .is_leaf = true},
};
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundle_data, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrOper, .tree = NativeTree::kOperational, .children = kLacpbundlesBundleDataChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundle_data_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_bundle_data})

// /lacp-bundles/bundles/bundle/members/member/counters
static constexpr NativeChild kLacpbundlesMemberCountersChildren[] = {
    {.tag = "lacpd-us-received", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_counters_lacpdusreceived, .is_leaf = true},
    {.tag = "lacpd-us-transmitted", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_counters_lacpdustransmitted, .is_leaf = true},
    {.tag = "illegal-packets-received", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_counters_illegalpacketsreceived, .is_leaf = true},
    {.tag = "excess-lacpd-us-received", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_counters_excesslacpdusreceived, .is_leaf = true},
    {.tag = "last-change", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_counters_lastchange, .is_leaf = true},
    {.tag = "lacp-timeout-transitions", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_counters_lacptimeouttransitions, .is_leaf = true},
};
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_member_counters, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrOper, .tree = NativeTree::kOperational, .children = kLacpbundlesMemberCountersChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_member_counters_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_member_counters})

// /lacp-bundles/bundles/bundle/members/member/link-data
static constexpr NativeChild kLacpbundlesMemberLinkdataChildren[] = {
    {.tag = "actor-system-mac-address", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_linkdata_actorsystemmacaddress, .is_leaf = true},
    {.tag = "actor-operational-key", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_linkdata_actoroperationalkey, .is_leaf = true},
    {.tag = "partner-system-mac-address", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_linkdata_partnersystemmacaddress, .is_leaf = true},
    {.tag = "partner-operational-key", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_linkdata_partneroperationalkey, .is_leaf = true},
    {.tag = "actor-port-id", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_linkdata_actorportid, .is_leaf = true},
    {.tag = "partner-port-id", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_linkdata_partnerportid, .is_leaf = true},
    {.tag = "actor-port-state", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_linkdata_actorportstate, .is_leaf = true},
};
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_member_linkdata, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrOper, .tree = NativeTree::kOperational, .children = kLacpbundlesMemberLinkdataChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_member_linkdata_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_member_linkdata})

// /lacp-bundles/bundles/bundle/members/member
static constexpr NativeChild kLacpbundlesMembersMemberChildren[] = {
    {.tag = "member-interface", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_member_memberinterface, .is_leaf = true},
    {.tag = "counters", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_member_counters},
    {.tag = "link-data", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_member_linkdata},
};
static constexpr const char* kLacpbundlesMembersMemberKeys[] = {"member-interface"};
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_members_member, ymap::walk_native_list_entry, NativeList{
    .node = {.ns = oclacp::kBundlemgrOper, .tree = NativeTree::kOperational, .children = kLacpbundlesMembersMemberChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_members_member_parse_augments},
    .path = "/lacp-bundles/bundles/bundle/members/member",
    .keys = kLacpbundlesMembersMemberKeys,
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgroper_list_lvla_lacpbundles_members_member})

// /lacp-bundles/bundles/bundle/members
static constexpr NativeChild kLacpbundlesBundleMembersChildren[] = {
    {.tag = "member", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_members_member, .may_skip = true},
};
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundle_members, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrOper, .tree = NativeTree::kOperational, .children = kLacpbundlesBundleMembersChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundle_members_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_bundle_members})

// /lacp-bundles/bundles/bundle
static constexpr NativeChild kLacpbundlesBundlesBundleChildren[] = {
    {.tag = "data", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundle_data},
    {.tag = "members", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundle_members},
    {.tag = "bundle-interface", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_bundle_bundleinterface, .is_leaf = true},
};
static constexpr const char* kLacpbundlesBundlesBundleKeys[] = {"bundle-interface"};
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundles_bundle, ymap::walk_native_list_entry, NativeList{
    .node = {.ns = oclacp::kBundlemgrOper, .tree = NativeTree::kOperational, .children = kLacpbundlesBundlesBundleChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundles_bundle_parse_augments},
    .path = "/lacp-bundles/bundles/bundle",
    .keys = kLacpbundlesBundlesBundleKeys,
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgroper_list_lvla_lacpbundles_bundles_bundle,
    .restores_list_slot = true})

// /lacp-bundles/bundles
static constexpr NativeChild kLacpbundlesBundlesChildren[] = {
    {.tag = "bundle", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundles_bundle, .may_skip = true},
};
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundles, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrOper, .tree = NativeTree::kOperational, .children = kLacpbundlesBundlesChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundles_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles_bundles})

// /lacp-bundles
static constexpr NativeChild kLacpbundlesChildren[] = {
    {.tag = "bundles", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundles},
};
YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrOper, .tree = NativeTree::kOperational, .children = kLacpbundlesChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpbundles})

// /lacp-data/global/system-id/system-id/system-mac-addr
static constexpr NativeChild kLacpdataSystemidSystemmacaddrChildren[] = {
    {.tag = "macaddr", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpdata_systemmacaddr_macaddr, .is_leaf = true},
};
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_systemid_systemmacaddr, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrOper, .tree = NativeTree::kOperational, .children = kLacpdataSystemidSystemmacaddrChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_systemid_systemmacaddr_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata_systemid_systemmacaddr})

// /lacp-data/global/system-id/system-id
static constexpr NativeChild kLacpdataSystemidSystemidChildren[] = {
    {.tag = "system-mac-addr", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_systemid_systemmacaddr},
    {.tag = "system-prio", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpdata_systemid_systemprio, .is_leaf = true},
};
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_systemid_systemid, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrOper, .tree = NativeTree::kOperational, .children = kLacpdataSystemidSystemidChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_systemid_systemid_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata_systemid_systemid})

// /lacp-data/global/system-id
static constexpr NativeChild kLacpdataGlobalSystemidChildren[] = {
    {.tag = "system-id", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_systemid_systemid},
};
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_global_systemid, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrOper, .tree = NativeTree::kOperational, .children = kLacpdataGlobalSystemidChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_global_systemid_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata_global_systemid})

// /lacp-data/global
static constexpr NativeChild kLacpdataGlobalChildren[] = {
    {.tag = "system-id", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_global_systemid},
};
static YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_global, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrOper, .tree = NativeTree::kOperational, .children = kLacpdataGlobalChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_global_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata_global})

// /lacp-data
static constexpr NativeChild kLacpdataChildren[] = {
    {.tag = "global", .walk = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_global},
};
YMAP_DEFINE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata, ymap::walk_native_container, NativeContainer{
    .node = {.ns = oclacp::kBundlemgrOper, .tree = NativeTree::kOperational, .children = kLacpdataChildren, .parse_augments = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_parse_augments},
    .handler = ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvla_lacpdata})

// Children of foreign namespaces
YMAP_DEFINE_SIMPLE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundlesystemid_systemmacaddr_parse_augments, ymap::refuse_added_augment)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_data_bundlesystemid_parse_augments, ymap::refuse_added_augment)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundle_data_parse_augments, ymap::refuse_added_augment)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_member_counters_parse_augments, ymap::refuse_added_augment)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_member_linkdata_parse_augments, ymap::refuse_added_augment)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_members_member_parse_augments, ymap::refuse_added_augment)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundle_members_parse_augments, ymap::refuse_added_augment)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundles_bundle_parse_augments, ymap::refuse_added_augment)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_bundles_parse_augments, ymap::refuse_added_augment)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles_parse_augments, ymap::refuse_added_augment)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_systemid_systemmacaddr_parse_augments, ymap::refuse_added_augment)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_systemid_systemid_parse_augments, ymap::refuse_added_augment)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_global_systemid_parse_augments, ymap::refuse_added_augment)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_global_parse_augments, ymap::refuse_added_augment)
YMAP_DEFINE_SIMPLE_HANDLER(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_parse_augments, ymap::refuse_added_augment)

// clang-format on
