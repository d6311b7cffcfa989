// Whole walks of native data: what reaches OpenConfig, and what does not.
#include <algorithm>
#include <string>
#include <vector>

#include "oclacp/native_config.h"
#include "oclacp/native_oper.h"
#include "unit/module_test.h"
#include "unit/oc-lacp/nodes.h"

namespace {

using nodes::NodeFunction;
using support::container;
using support::leaf;
using support::Node;
using support::Request;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class NativeData : public support::ModuleTest {
 protected:
  NativeData() { platform.lacp_interfaces = {"Bundle-Ether1", "Bundle-Ether1.100", "Bundle-Ether2"}; }

  cerrno walk(NodeFunction walker, Node root, std::uint32_t operation) {
    platform.set_operation(operation);
    Request request(std::move(root));
    const cerrno status = walker(platform.ctx(), request.root(), platform.output());
    EXPECT_THAT(support::left_behind(platform, request), IsEmpty());
    return status;
  }
  cerrno walk_interfaces(std::vector<Node> entries, std::uint32_t operation = YFW_REQUEST_READ_CONFIG) {
    return walk(ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations,
                container("interface-configurations", std::move(entries)).in(support::kIfmgrCfg), operation);
  }
  cerrno walk_bundles(std::vector<Node> bundles, std::uint32_t operation = YFW_REQUEST_READ_STATE) {
    return walk(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles,
                container("lacp-bundles", {container("bundles", std::move(bundles))}).in(support::kBundlemgrOper),
                operation);
  }
  cerrno walk_data(Node global, std::uint32_t operation = YFW_REQUEST_READ_STATE) {
    return walk(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata,
                container("lacp-data", {std::move(global)}).in(support::kBundlemgrOper), operation);
  }
};

class InterfaceConfiguration : public NativeData {};
class GlobalLacp : public NativeData {};
class Bundles : public NativeData {};
class DeviceIdentity : public NativeData {};

Node entry(const std::string& configuration_class, const std::string& name, std::vector<Node> children = {}) {
  Node node = container("interface-configuration", {leaf("active", configuration_class), leaf("interface-name", name)});
  node.children.insert(node.children.end(), children.begin(), children.end());
  return node;
}

Node of_bundles(const std::string& tag, std::vector<Node> children) {
  return container(tag, std::move(children)).in(support::kBundlemgrCfg);
}

Node lacp() {
  return of_bundles("lacp", {leaf("mode", "active"), leaf("period", "1000"), leaf("system-priority", "100"),
                             leaf("system-mac", "00:11:22:33:44:55")});
}

TEST_F(InterfaceConfiguration, PreConfiguration_ReportsNothingAndTheNextEntryIsWalked) {
  EXPECT_EQ(walk_interfaces({entry("pre", "Bundle-Ether1", {lacp()}), entry("act", "Bundle-Ether2")}), YFW_OK);
  EXPECT_THAT(added(), ElementsAre("/lacp/interfaces/interface", "/lacp/interfaces/interface/name=Bundle-Ether2"));
  EXPECT_EQ(platform.traced("qd2oc_cfglacpmode", "Start"), 0U) << "no child of it is looked at";
}

TEST_F(InterfaceConfiguration, InterfaceWithoutLacp_ReportsNothing) {
  EXPECT_EQ(walk_interfaces({entry("act", "MgmtEth0/0/0/0",
                                   {container("dampening"), container("mtus", {container("mtu", {leaf("owner", "a")})}),
                                    container("encapsulation"), lacp()})}),
            YFW_OK);
  EXPECT_THAT(added(), IsEmpty());
}

TEST_F(InterfaceConfiguration, SubInterface_ReportsNothing) {
  EXPECT_EQ(walk_interfaces({entry("act", "Bundle-Ether1.100", {lacp()})}, YFW_REQUEST_READ_STATE), YFW_OK);
  EXPECT_THAT(added(), IsEmpty());
}

TEST_F(InterfaceConfiguration, StateRead_ReportsTheNameAsState) {
  for (const std::uint32_t operation : {0U, 1U, 8U, 15U, 10U}) {
    EXPECT_EQ(walk_interfaces({entry("act", "Bundle-Ether1")}, operation), YFW_OK);
    EXPECT_EQ(added().back(), operation == YFW_REQUEST_READ_STATE
                                  ? "/lacp/interfaces/interface/state/name=Bundle-Ether1"
                                  : "/lacp/interfaces/interface/name=Bundle-Ether1")
        << "operation " << operation;
  }
}

TEST_F(InterfaceConfiguration, DeletedEntry_ReportsTheListPathMarkedForDeletion) {
  EXPECT_EQ(walk_interfaces({entry("act", "Bundle-Ether1").with(YFW_OPERATION_DELETE)}, YFW_REQUEST_EDIT), YFW_OK);
  ASSERT_FALSE(platform.additions().empty());
  EXPECT_EQ(platform.additions()[0].path, "/lacp/interfaces/interface");
  EXPECT_EQ(platform.additions()[0].operation, std::uint32_t{YFW_OPERATION_DELETE});
  EXPECT_NE(platform.additions()[0].source, nullptr);
  EXPECT_EQ(platform.count("yfw_map_search_or_add_list"), 0U);
}

TEST_F(InterfaceConfiguration, BfdAndMlacp_AreDispatchedAndIgnored) {
  EXPECT_EQ(walk_interfaces({entry("act", "Bundle-Ether1",
                                   {of_bundles("bfd", {container("address-family")}), of_bundles("mlacp", {})})}),
            YFW_OK);
  EXPECT_EQ(platform.traced("ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvld_interface_configuration",
                            "Unsupported tag. Ignoring."),
            2U);
  EXPECT_EQ(platform.traced("ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bfd", "Start"), 0U);
  EXPECT_EQ(platform.additions().size(), 2U) << "the entry and its name";
}

TEST_F(InterfaceConfiguration, UnknownAndForeignChildren_AreSkipped) {
  EXPECT_EQ(walk_interfaces({entry("act", "Bundle-Ether1",
                                   {leaf("description", "core"), leaf("other", "1").in("urn:other"), lacp()})}),
            YFW_OK);
  EXPECT_EQ(platform.additions().size(), 6U);
}

TEST_F(InterfaceConfiguration, AllFourLacpLeaves_AreReported) {
  EXPECT_EQ(walk_interfaces({entry("act", "Bundle-Ether1", {lacp()})}), YFW_OK);
  EXPECT_THAT(added(), ElementsAre("/lacp/interfaces/interface", "/lacp/interfaces/interface/name=Bundle-Ether1",
                                   "/lacp/interfaces/interface/config/lacp-mode=ACTIVE",
                                   "/lacp/interfaces/interface/config/interval=FAST",
                                   "/lacp/interfaces/interface/config/system-priority=100",
                                   "/lacp/interfaces/interface/config/system-id-mac=00:11:22:33:44:55"));
}

TEST_F(InterfaceConfiguration, LacpWithoutMode_ReportsNoMode) {
  EXPECT_EQ(walk_interfaces({entry("act", "Bundle-Ether1", {of_bundles("lacp", {leaf("period", "30000")})})}), YFW_OK);
  EXPECT_THAT(added(), Not(Contains(HasSubstr("lacp-mode"))));
  EXPECT_EQ(platform.traced("qd2oc_cfglacpmode", "Start"), 0U);
}

TEST_F(InterfaceConfiguration, BundleAndMemberSettings_ReportTheEntryOnly) {
  EXPECT_EQ(walk_interfaces({entry(
                "act", "Bundle-Ether1",
                {of_bundles("bundle", {leaf("lacp-delay", "1"), container("minimum-active", {container("bandwidth")}),
                                       container("maximum-active", {container("links")}),
                                       container("bundle-load-balancing", {container("hash-function")})}),
                 of_bundles("bundle-member", {container("id", {leaf("port-activity", "active")})}),
                 of_bundles("lacp", {container("talvo-extensions", {leaf("enable")}),
                                     container("timeout", {leaf("expected", "1")}), leaf("unheard-of", "1")})})}),
            YFW_OK);
  EXPECT_EQ(platform.additions().size(), 2U);
  EXPECT_EQ(
      platform.traced("ymap_qo_oclacp_talvobrinqdbundlemgrcfg_man_leaf_lvla_bundlemember_id_portactivity", "Start"), 0U)
      << "the port activity's handler is never called";
}

TEST_F(InterfaceConfiguration, UnsupportedPeriod_EndsTheWalkOfAllInterfaces) {
  EXPECT_EQ(walk_interfaces({entry("act", "Bundle-Ether1",
                                   {of_bundles("lacp", {leaf("period", "200"), leaf("system-priority", "100")})}),
                             entry("act", "Bundle-Ether2")}),
            YFW_UNSUPPORTED_INTERVAL);
  EXPECT_EQ(platform.error_tag(), "interval");
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 1U) << "those above pass the code up and mark nothing";
  EXPECT_THAT(added(), ElementsAre("/lacp/interfaces/interface", "/lacp/interfaces/interface/name=Bundle-Ether1"));
}

TEST_F(InterfaceConfiguration, EntryWithoutName_EndsTheWalk) {
  EXPECT_EQ(walk_interfaces({container("interface-configuration", {leaf("active", "act")}), entry("act", "a")}),
            YFW_UNSUPPORTED_NODE);
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
  EXPECT_EQ(platform.traced("ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration",
                            "Start"),
            1U);
}

TEST_F(InterfaceConfiguration, TooLongNameForScratchBuffer_IsTheWholeKey) {
  const std::string name(300, 'x');
  platform.lacp_interfaces = {name};
  EXPECT_EQ(walk_interfaces({entry("act", name)}), YFW_OK);
  EXPECT_EQ(platform.additions()[0].key, "name=" + name);
  EXPECT_EQ(platform.additions()[1].value, name);
}

TEST_F(InterfaceConfiguration, SkipFromLeafBelowContainer_ContinuesWithTheNextEntry) {
  platform.script("yfw_map_datatree_add_path_flagged", 1, YFW_SKIP_SUBTREE, "/config/lacp-mode\"");
  EXPECT_EQ(walk_interfaces({entry("act", "Bundle-Ether1", {lacp(), container("dampening")}),
                             entry("act", "Bundle-Ether2", {lacp()})}),
            YFW_OK);
  EXPECT_THAT(added(), Contains("/lacp/interfaces/interface/config/interval=FAST").Times(1));
  EXPECT_THAT(added(), Contains("/lacp/interfaces/interface/name=Bundle-Ether2"));
  EXPECT_EQ(platform.traced("ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration",
                            "Processing tag 'dampening'"),
            0U);
}

TEST_F(InterfaceConfiguration, SkipFromMtuEntry_EndsTheInterfaceEntryToo) {
  platform.script("yfw_map_update_current_list_node", 1, YFW_SKIP_SUBTREE, "/mtus/mtu\"");
  EXPECT_EQ(
      walk_interfaces(
          {entry("act", "Bundle-Ether1",
                 {container("mtus", {container("mtu", {leaf("owner", "a")}), container("mtu", {leaf("owner", "b")})}),
                  lacp()}),
           entry("act", "Bundle-Ether2", {lacp()})}),
      YFW_OK);
  EXPECT_EQ(platform.traced("ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_mtus_mtu", "Start"), 1U);
  EXPECT_THAT(added(), Contains("/lacp/interfaces/interface/config/interval=FAST").Times(1));
}

TEST_F(InterfaceConfiguration, EndOfEntry_RestoresTheSlotAndClearsTheName) {
  yfw_datatree found{};
  platform.state().current_list_node = &found;
  std::ranges::fill(platform.state().interface_name, 'x');
  platform.node_info["/interface-configurations/interface-configuration/interface-name"] = "Bundle-Ether1";
  Request request(entry("act", "Bundle-Ether1", {lacp()}).in(support::kIfmgrCfg));
  platform.script("yfw_map_datatree_add_path_flagged", 3, 0x77);
  EXPECT_EQ(ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration(
                platform.ctx(), request.root(), platform.output()),
            0x77U);
  EXPECT_EQ(platform.count("yfw_map_search_or_add_list"), 1U);
  EXPECT_EQ(platform.state().current_list_node, &found);
  EXPECT_TRUE(std::ranges::all_of(platform.state().interface_name, [](char c) { return c == '\0'; }));
}

TEST_F(InterfaceConfiguration, MtuEntry_LeavesTheScratchOfItsInterface) {
  platform.before("yfw_map_datatree_add_path_flagged", 2, [this] {
    EXPECT_NE(platform.state().current_list_node, nullptr);
    EXPECT_STREQ(platform.state().interface_name, "Bundle-Ether1");
  });
  EXPECT_EQ(walk_interfaces(
                {entry("act", "Bundle-Ether1", {container("mtus", {container("mtu", {leaf("owner", "a")})}), lacp()})}),
            YFW_OK);
  EXPECT_EQ(platform.count("yfw_map_datatree_add_path_flagged"), 5U);
}

TEST_F(InterfaceConfiguration, SuppressingOptions_SuppressModeAndIntervalOnly) {
  platform.descriptor().options_638 = 0x06;
  platform.descriptor().option_mode = YFW_OPTION_MODE_SUPPRESS;
  EXPECT_EQ(walk_interfaces({entry("act", "Bundle-Ether1", {lacp()})}), YFW_OK);
  EXPECT_THAT(added(), ElementsAre("/lacp/interfaces/interface", "/lacp/interfaces/interface/name=Bundle-Ether1",
                                   "/lacp/interfaces/interface/config/system-priority=100",
                                   "/lacp/interfaces/interface/config/system-id-mac=00:11:22:33:44:55"));
}

TEST_F(GlobalLacp, Priority_IsReportedUnlessSuppressedByOptions) {
  const auto run = [this] {
    return walk(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp,
                container("lacp", {leaf("system-priority", "100")}).in(support::kBundlemgrCfg),
                YFW_REQUEST_READ_CONFIG);
  };
  EXPECT_EQ(run(), YFW_OK);
  EXPECT_THAT(added(), ElementsAre("/lacp/config/system-priority=100"));
  platform.descriptor().options_60c = 0x3f800;
  EXPECT_EQ(run(), YFW_OK);
  EXPECT_EQ(platform.additions().size(), 2U) << "under another mode";
  platform.descriptor().option_mode = YFW_OPTION_MODE_SUPPRESS;
  EXPECT_EQ(run(), YFW_OK);
  EXPECT_EQ(platform.additions().size(), 2U);
}

TEST_F(GlobalLacp, SkipFromLeaf_IsTheStatusOfTheWalk) {
  platform.script("yfw_map_datatree_add_path_flagged", 1, YFW_SKIP_SUBTREE);
  EXPECT_EQ(walk(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp,
                 container("lacp", {leaf("system-priority", "100"), leaf("system-priority", "200")})
                     .in(support::kBundlemgrCfg),
                 YFW_REQUEST_READ_CONFIG),
            YFW_SKIP_SUBTREE);
  EXPECT_THAT(added(), IsEmpty());
}

TEST_F(GlobalLacp, OtherContainerTag_IsWalked) {
  EXPECT_EQ(
      walk(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp,
           container("whatever", {leaf("system-priority", "100")}).in(support::kBundlemgrCfg), YFW_REQUEST_READ_CONFIG),
      YFW_OK);
  EXPECT_THAT(added(), ElementsAre("/lacp/config/system-priority=100"));
}

Node bundle(const std::string& name) {
  return container(
      "bundle",
      {leaf("bundle-interface", name),
       container("data", {container("bundle-system-id",
                                    {container("system-mac-addr", {leaf("macaddr", "m")}), leaf("system-prio", "100")}),
                          leaf("applied-lacp-mode", "bmd-mode-active")}),
       container("members", {container("member", {leaf("member-interface", "GigabitEthernet0/0/0/0"),
                                                  container("counters", {leaf("unheard-of", "1"),
                                                                         leaf("illegal-packets-received", "7"),
                                                                         leaf("last-change", "1700000000")})})})});
}

TEST_F(Bundles, SubInterface_ReportsLeavesWithoutEntryAndLacpState) {
  EXPECT_EQ(walk_bundles({bundle("Bundle-Ether1.100")}), YFW_OK);
  EXPECT_EQ(platform.count("yfw_map_search_or_add_list"), 0U);
  EXPECT_THAT(added(), Not(Contains(HasSubstr("/state/lacp-mode"))));
  EXPECT_THAT(added(), Not(Contains(HasSubstr("/state/system-id-mac"))));
  EXPECT_THAT(added(), Not(Contains(HasSubstr("/state/system-priority"))));
  EXPECT_THAT(added(), Contains("/lacp/interfaces/interface/state/name=Bundle-Ether1.100"));
  EXPECT_THAT(added(), Contains("/lacp/interfaces/interface/members/member/interface=GigabitEthernet0/0/0/0"));
}

TEST_F(Bundles, IllegalPackets_FeedTwoErrorCountersOnly) {
  EXPECT_EQ(walk_bundles({bundle("Bundle-Ether1")}), YFW_OK);
  const std::string counters = "/lacp/interfaces/interface/members/member/state/counters/";
  EXPECT_THAT(added(), Contains(counters + "lacp-errors=7"));
  EXPECT_THAT(added(), Contains(counters + "lacp-unknown-errors=7"));
  EXPECT_THAT(added(), Not(Contains(HasSubstr("lacp-tx-errors"))));
}

TEST_F(Bundles, LastChange_IsCopiedVerbatimAsState) {
  EXPECT_EQ(walk_bundles({bundle("Bundle-Ether1")}), YFW_OK);
  EXPECT_THAT(added(), Contains("/lacp/interfaces/interface/members/member/state/last-change=1700000000"));
}

TEST_F(Bundles, OtherRequests_ReportNothing) {
  for (const std::uint32_t operation : {0U, 1U, 8U, 15U}) {
    EXPECT_EQ(walk_bundles({bundle("Bundle-Ether1")}, operation), YFW_OK) << "operation " << operation;
  }
  EXPECT_THAT(added(), IsEmpty());
}

TEST_F(Bundles, BundleWithoutName_EndsTheWalkWithTheLookUpStatus) {
  EXPECT_EQ(walk_bundles({container("bundle", {container("members")}), bundle("Bundle-Ether1")}),
            support::kNodeUnknown);
  EXPECT_THAT(added(), IsEmpty());
}

TEST_F(Bundles, Mode_IsThatOfTheCurrentBundle) {
  Node passive = bundle("Bundle-Ether2");
  passive.children[1].children[1].value = "bmd-mode-passive";
  EXPECT_EQ(walk_bundles({bundle("Bundle-Ether1"), passive}), YFW_OK);
  EXPECT_THAT(added(), Contains("/lacp/interfaces/interface/state/lacp-mode=ACTIVE").Times(1));
  EXPECT_THAT(added(), Contains("/lacp/interfaces/interface/state/lacp-mode=PASSIVE").Times(1));
}

TEST_F(Bundles, ListSlot_IsThatOfTheCurrentBundle) {
  yfw_datatree found{};
  platform.state().current_list_node = &found;
  platform.set_operation(YFW_REQUEST_READ_STATE);
  Request request(container("lacp-bundles", {container("bundles", {bundle("Bundle-Ether1"), bundle("Bundle-Ether1.100"),
                                                                   bundle("Bundle-Ether2")})})
                      .in(support::kBundlemgrOper));
  std::vector<bool> is_own;
  for (unsigned nth = 1; nth <= 3; ++nth) {
    platform.before("yfw_map_update_current_list_node", 2 * nth,
                    [&] { is_own.push_back(platform.state().current_list_node != &found); });
  }
  EXPECT_EQ(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles(platform.ctx(), request.root(), platform.output()),
            YFW_OK);
  EXPECT_THAT(is_own, ElementsAre(true, false, true)) << "below the sub-interface none was found or created";
  EXPECT_EQ(platform.state().current_list_node, &found);
}

TEST_F(Bundles, InterfaceNameBuffer_IsUnchanged) {
  std::ranges::fill(platform.state().interface_name, 'x');
  platform.set_operation(YFW_REQUEST_READ_STATE);
  Request request(
      container("lacp-bundles", {container("bundles", {bundle("Bundle-Ether1")})}).in(support::kBundlemgrOper));
  EXPECT_EQ(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles(platform.ctx(), request.root(), platform.output()),
            YFW_OK);
  EXPECT_EQ(platform.state().interface_name[0], 'x');
}

TEST_F(Bundles, SkipFromLeafBelowContainer_ContinuesWithTheNextBundle) {
  platform.script("yfw_map_datatree_add_path_flagged", 1, YFW_SKIP_SUBTREE, "/state/system-priority\"");
  EXPECT_EQ(walk_bundles({bundle("Bundle-Ether1"), bundle("Bundle-Ether2")}), YFW_OK);
  EXPECT_THAT(added(), Contains("/lacp/interfaces/interface/state/lacp-mode=ACTIVE").Times(1));
  EXPECT_THAT(added(), Contains("/lacp/interfaces/interface/members/member").Times(1));
  EXPECT_THAT(added(), Contains("/lacp/interfaces/interface/state/name=Bundle-Ether2"));
}

TEST_F(Bundles, SkipFromLeafBelowMember_EndsThatMemberOnly) {
  Node one = bundle("Bundle-Ether1");
  one.children[2].children.push_back(one.children[2].children[0]);
  platform.script("yfw_map_datatree_add_path_flagged", 1, YFW_SKIP_SUBTREE, "/lacp-unknown-errors\"");
  EXPECT_EQ(walk_bundles({one}), YFW_OK);
  EXPECT_THAT(added(), Contains("/lacp/interfaces/interface/members/member").Times(2));
  EXPECT_THAT(added(), Contains(HasSubstr("/last-change=")).Times(1)) << "that of the second member";
}

TEST_F(DeviceIdentity, SkipFromLeaf_IsTheStatusOfTheWalk) {
  platform.script("yfw_map_datatree_add_path_flagged", 1, YFW_SKIP_SUBTREE);
  EXPECT_EQ(walk_data(container(
                "global",
                {container("system-id", {container("system-id", {leaf("system-prio", "1"), leaf("system-prio", "2")}),
                                         container("system-id", {leaf("system-prio", "3")})})})),
            YFW_SKIP_SUBTREE);
  EXPECT_THAT(added(), IsEmpty());
}

TEST_F(DeviceIdentity, Identity_IsReportedAsPriorityWithoutAddress) {
  EXPECT_EQ(walk_data(container(
                "global",
                {container("system-id", {container("system-id", {container("system-mac-addr", {leaf("macaddr", "m")}),
                                                                 leaf("system-prio", "32768")})})})),
            YFW_OK);
  EXPECT_THAT(added(), ElementsAre("/lacp/state/system-priority=32768"));
  EXPECT_EQ(platform.count("yfw_add_to_output_list_ctx") + platform.count("yfw_map_update_current_list_node"), 0U)
      << "there are no lists here";
}

TEST_F(DeviceIdentity, PriorityInOuterSystemId_IsIgnored) {
  EXPECT_EQ(walk_data(container("global", {container("system-id", {leaf("system-prio", "1")})})), YFW_OK);
  EXPECT_THAT(added(), IsEmpty());
  EXPECT_EQ(platform.traced("ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_global_systemid",
                            "Unsupported tag. Ignoring."),
            1U);
}

TEST_F(DeviceIdentity, OtherRequests_ReportNothing) {
  for (const std::uint32_t operation : {0U, 1U, 8U, 15U}) {
    EXPECT_EQ(
        walk_data(container("global", {container("system-id", {container("system-id", {leaf("system-prio", "1")})})}),
                  operation),
        YFW_OK);
  }
  EXPECT_THAT(added(), IsEmpty());
}

TEST_F(DeviceIdentity, ForeignChild_GoesToTheAugmentParserInAnyRequest) {
  for (const std::uint32_t operation : {0U, 10U}) {
    EXPECT_EQ(walk(ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata,
                   container("lacp-data", {leaf("global").in("urn:other"), leaf("other").in("urn:other")})
                       .in(support::kBundlemgrOper),
                   operation),
              YFW_OK);
  }
  EXPECT_EQ(platform.traced("ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata_parse_augments", "Start"), 3U)
      << "a child with a known tag is one of them when it is not walked";
}

}  // namespace
