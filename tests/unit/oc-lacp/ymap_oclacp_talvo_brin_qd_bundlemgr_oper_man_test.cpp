// Bundles and members of the native operational data, their converters, and the bits of the port state.
#include <string>

#include "oclacp/native_oper.h"
#include "unit/module_test.h"
#include "unit/oc-lacp/nodes.h"

namespace {

using nodes::Named;
using nodes::NodeFunction;
using support::container;
using support::leaf;
using support::Request;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kNameOfBundle[] = "/lacp-bundles/bundles/bundle/bundle-interface";
constexpr char kModeOfBundle[] = "/lacp-bundles/bundles/bundle/data/applied-lacp-mode";

class OperationalData : public support::ModuleTest {
 protected:
  OperationalData() {
    platform.set_operation(YFW_REQUEST_READ_STATE);
    platform.node_info[kNameOfBundle] = "Bundle-Ether1";
    platform.node_info[kModeOfBundle] = "bmd-mode-active";
    platform.lacp_interfaces = {"Bundle-Ether1", "Bundle-Ether1.100"};
  }

  cerrno run(NodeFunction function, const std::string& value = "value") {
    Request request(leaf("leaf", value));
    return function(platform.ctx(), request.root(), platform.output());
  }
};

class BundleEntry : public OperationalData {};
class MemberEntry : public OperationalData {};
class BundleLeaf : public OperationalData {};
class AppliedMode : public OperationalData {};
class PortState : public OperationalData {};

TEST_F(BundleEntry, NamedBundle_IsFoundOrCreatedByItsName) {
  platform.lacp_interfaces.clear();
  EXPECT_EQ(run(ymap_qo_oclacp_talvobrinqdbundlemgroper_list_lvla_lacpbundles_bundles_bundle), YFW_OK);
  EXPECT_EQ(only_addition().path, "/lacp/interfaces/interface");
  EXPECT_EQ(only_addition().key, "name=Bundle-Ether1");
  EXPECT_EQ(only_addition().ns, support::kOpenconfigLacp);
  EXPECT_NE(platform.state().current_list_node, nullptr);
  EXPECT_EQ(platform.count("get_intf_type_if_lacp_configured"), 0U) << "it needs no LACP configuration";
}

TEST_F(BundleEntry, SubInterface_IsNotCreated) {
  platform.node_info[kNameOfBundle] = "Bundle-Ether1.100";
  EXPECT_EQ(run(ymap_qo_oclacp_talvobrinqdbundlemgroper_list_lvla_lacpbundles_bundles_bundle), YFW_OK);
  EXPECT_THAT(added(), IsEmpty());
}

TEST_F(BundleEntry, MissingName_ReturnsTheLookUpStatusWithoutCreating) {
  platform.node_info.erase(kNameOfBundle);
  EXPECT_EQ(run(ymap_qo_oclacp_talvobrinqdbundlemgroper_list_lvla_lacpbundles_bundles_bundle), support::kNodeUnknown);
  platform.script("yfw_map_get_node_info", 0, YFW_OK);
  EXPECT_EQ(run(ymap_qo_oclacp_talvobrinqdbundlemgroper_list_lvla_lacpbundles_bundles_bundle), YFW_OK);
  EXPECT_THAT(added(), IsEmpty());
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
}

TEST_F(BundleEntry, FailedLookUpWithName_UsesTheName) {
  platform.node_info_failures[kNameOfBundle] = 0x77;
  EXPECT_EQ(run(ymap_qo_oclacp_talvobrinqdbundlemgroper_list_lvla_lacpbundles_bundles_bundle), YFW_OK);
  EXPECT_EQ(only_addition().key, "name=Bundle-Ether1");
  platform.node_info[kNameOfBundle] = "Bundle-Ether1.100";
  EXPECT_EQ(run(ymap_qo_oclacp_talvobrinqdbundlemgroper_list_lvla_lacpbundles_bundles_bundle), 0x77U)
      << "that of a sub-interface creates nothing, and the status is the look-up's";
  EXPECT_EQ(platform.additions().size(), 1U);
}

TEST_F(BundleEntry, FailedCreation_ReturnsItsStatus) {
  platform.script("yfw_map_search_or_add_list", 0, 0x77);
  EXPECT_EQ(run(ymap_qo_oclacp_talvobrinqdbundlemgroper_list_lvla_lacpbundles_bundles_bundle), 0x77U);
}

TEST_F(MemberEntry, Member_IsAddedWithoutKeyAndWithNodeInDeletesOnly) {
  const NodeFunction show = ymap_qo_oclacp_talvobrinqdbundlemgroper_list_lvla_lacpbundles_members_member;
  for (const bool deletes : {false, true}) {
    SCOPED_TRACE(deletes);
    Request request(container("member").with(deletes ? YFW_OPERATION_DELETE : YFW_OPERATION_NONE));
    EXPECT_EQ(show(platform.ctx(), request.root(), platform.output()), YFW_OK);
    const support::Addition& addition = platform.additions().back();
    EXPECT_EQ(addition.path, "/lacp/interfaces/interface/members/member");
    EXPECT_EQ(addition.ns, support::kOpenconfigLacp);
    EXPECT_EQ(addition.value, std::nullopt);
    EXPECT_EQ(addition.source, deletes ? request.root() : nullptr);
    EXPECT_EQ(addition.word, 0U);
    EXPECT_EQ(addition.list_flag, 1);
    EXPECT_EQ(addition.last_flag, 0);
  }
  platform.script("yfw_map_datatree_add_path_flagged", 0, 0x77);
  EXPECT_EQ(run(show), 0x77U);
}

const Named<NodeFunction> kBundleLeaves[] = {NODES_NAMED(qd2oc_lacpmode), NODES_NAMED(qd2oc_statesystemidmac),
                                             NODES_NAMED(qd2oc_intfstatesystempriority)};

TEST_F(BundleLeaf, FailedNameLookUp_IsTracedAndReturned) {
  platform.script("yfw_map_get_node_info", 0, 0x77, "\"bundle-interface\"");
  for (const Named<NodeFunction>& one : kBundleLeaves) {
    SCOPED_TRACE(one.name);
    EXPECT_EQ(run(one.function), 0x77U);
    EXPECT_EQ(platform.traced(one.name, std::string(" ") + one.name +
                                            " Unable to get bundle name from lacp-bundle tree : status 0x00000077\n"),
              1U);
    EXPECT_EQ(platform.traced(one.name, "End"), 0U);
  }
  EXPECT_THAT(added(), IsEmpty());
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
}

TEST_F(BundleLeaf, FailedLookUpWithName_IsReturnedInEveryRequest) {
  platform.node_info_failures[kNameOfBundle] = 0x77;
  for (const std::uint32_t operation : {0U, 1U, 8U, 10U, 15U}) {
    platform.set_operation(operation);
    for (const Named<NodeFunction>& one : kBundleLeaves) {
      EXPECT_EQ(run(one.function), 0x77U) << one.name << ", operation " << operation;
    }
  }
  EXPECT_THAT(added(), IsEmpty());
}

TEST_F(BundleLeaf, SubInterfaceOrNoLacp_IsNotReported) {
  for (const char* name : {"Bundle-Ether1.100", "Bundle-Ether2"}) {
    platform.node_info[kNameOfBundle] = name;
    for (const Named<NodeFunction>& one : kBundleLeaves) EXPECT_EQ(run(one.function), YFW_OK) << one.name;
  }
  EXPECT_THAT(added(), IsEmpty());
  for (const Named<NodeFunction>& one : kBundleLeaves) EXPECT_EQ(platform.traced(one.name, "End"), 2U) << one.name;
}

TEST_F(BundleLeaf, MacOrPriority_IsReportedInEveryRequest) {
  for (const std::uint32_t operation : {0U, 1U, 8U, 10U, 15U}) {
    platform.set_operation(operation);
    EXPECT_EQ(run(qd2oc_statesystemidmac, "00:11:22:33:44:55"), YFW_OK);
    EXPECT_EQ(added().back(), "/lacp/interfaces/interface/state/system-id-mac=00:11:22:33:44:55");
    EXPECT_EQ(run(qd2oc_intfstatesystempriority, "0100"), YFW_OK);
    EXPECT_EQ(added().back(), "/lacp/interfaces/interface/state/system-priority=0100");
  }
  EXPECT_EQ(platform.additions().size(), 10U);
  for (const support::Addition& addition : platform.additions()) EXPECT_EQ(addition.last_flag, 0) << addition.path;
}

TEST_F(BundleLeaf, FailedAddition_ReturnsItsStatus) {
  platform.script("yfw_map_datatree_add_path_flagged", 0, 0x77);
  for (const Named<NodeFunction>& one : kBundleLeaves) EXPECT_EQ(run(one.function), 0x77U) << one.name;
}

TEST_F(AppliedMode, Mode_IsReadFromTheTreeNotFromItsNode) {
  EXPECT_EQ(run(qd2oc_lacpmode, "bmd-mode-passive"), YFW_OK);
  EXPECT_THAT(added(), ElementsAre("/lacp/interfaces/interface/state/lacp-mode=ACTIVE"));
  EXPECT_EQ(only_addition().ns, support::kOpenconfigLacp);
  EXPECT_EQ(only_addition().list_flag, 0);
  EXPECT_EQ(only_addition().last_flag, 0);
  platform.node_info[kModeOfBundle] = "bmd-mode-passive";
  EXPECT_EQ(run(qd2oc_lacpmode, "bmd-mode-active"), YFW_OK);
  EXPECT_EQ(added().back(), "/lacp/interfaces/interface/state/lacp-mode=PASSIVE");
}

TEST_F(AppliedMode, OtherMode_IsReportedEmpty) {
  for (const char* mode : {"bmd-mode-off", "active", "bmd-mode-active ", ""}) {
    platform.node_info[kModeOfBundle] = mode;
    EXPECT_EQ(run(qd2oc_lacpmode), YFW_OK);
    EXPECT_EQ(added().back(), "/lacp/interfaces/interface/state/lacp-mode=") << "\"" << mode << "\"";
  }
  EXPECT_EQ(platform.count("yfw_strcpy_s"), 0U);
}

TEST_F(AppliedMode, UnreadableMode_IsReportedEmpty) {
  platform.script("yfw_map_get_node_info", 0, 0x77, "\"applied-lacp-mode\"");
  EXPECT_EQ(run(qd2oc_lacpmode), YFW_OK);
  EXPECT_THAT(added(), ElementsAre("/lacp/interfaces/interface/state/lacp-mode="));
}

TEST_F(AppliedMode, FailedLookUpWithMode_UsesTheMode) {
  platform.node_info_failures[kModeOfBundle] = 0x77;
  EXPECT_EQ(run(qd2oc_lacpmode), YFW_OK);
  EXPECT_THAT(added(), ElementsAre("/lacp/interfaces/interface/state/lacp-mode=ACTIVE"));
}

TEST_F(AppliedMode, OtherRequests_ReportNothing) {
  for (const std::uint32_t operation : {0U, 1U, 8U, 15U}) {
    platform.set_operation(operation);
    EXPECT_EQ(run(qd2oc_lacpmode), YFW_OK) << "operation " << operation;
  }
  EXPECT_THAT(added(), IsEmpty());
  EXPECT_EQ(platform.traced("qd2oc_lacpmode", "End"), 4U);
}

TEST_F(AppliedMode, FailedCopy_IsTracedWithoutEndRecord) {
  platform.script("yfw_strcpy_s", 0, 0x77);
  EXPECT_EQ(run(qd2oc_lacpmode), 0x77U);
  EXPECT_THAT(platform.trace(),
              ElementsAre("TRC qd2oc_lacpmode: Start",
                          "TRC qd2oc_lacpmode:  qd2oc_lacpmode yfw_strcpy_s failed with error : status 0x00000077\n"));
  EXPECT_THAT(added(), IsEmpty());
}

TEST_F(AppliedMode, Mode_IsCopiedIntoTenBytes) {
  EXPECT_EQ(run(qd2oc_lacpmode), YFW_OK);
  EXPECT_EQ(platform.count("yfw_strcpy_s", "\"qd2oc_lacpmode\" size=10 \"ACTIVE\""), 1U);
}

// The six leaves that a port state is reported as, in their order.
std::vector<std::string> leaves_of(unsigned state) {
  const std::string at = "/lacp/interfaces/interface/members/member/state/";
  const auto bit = [state](unsigned number, const char* set, const char* clear) {
    return (state >> number & 1U) != 0 ? set : clear;
  };
  return {at + "activity=" + bit(0, "ACTIVE", "PASSIVE"),
          at + "timeout=" + bit(1, "SHORT", "LONG"),
          at + "synchronization=" + bit(3, "IN_SYNC", "OUT_SYNC"),
          at + "aggregatable=" + bit(2, "true", "false"),
          at + "collecting=" + bit(4, "true", "false"),
          at + "distributing=" + bit(5, "true", "false")};
}

const NodeFunction kPortStateHandlers[] = {
    qd2oc_actorportstate, ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundles_linkdata_actorportstate};

class PortStateText : public support::ModuleTest {
 protected:
  // The leaves that a value of the native leaf is reported as.
  std::vector<std::string> reported(NodeFunction handler, const Request& value) {
    const std::size_t before = platform.additions().size();
    EXPECT_EQ(handler(platform.ctx(), const_cast<Request&>(value).root(), platform.output()), YFW_OK);
    const std::vector<std::string> all = added();
    return {all.begin() + static_cast<std::ptrdiff_t>(before), all.end()};
  }
};

TEST_F(PortStateText, Octet_IsReportedBitByBit) {
  for (const NodeFunction handler : kPortStateHandlers) {
    for (unsigned state = 0; state < 256; ++state) {
      const Request value(leaf("actor-port-state", std::to_string(state)));
      ASSERT_EQ(reported(handler, value), leaves_of(state)) << "port state " << state;
    }
  }
}

TEST_F(PortStateText, NumberBeyondOneOctet_CountsWithItsLowEightBits) {
  for (const NodeFunction handler : kPortStateHandlers) {
    const std::pair<const char*, unsigned> values[] = {{"258", 2},  {"261", 5},          {"256", 0},    {"-1", 255},
                                                       {"-3", 253}, {"4294967295", 255}, {"65535", 255}};
    for (const auto& [value, octet] : values) {
      const Request request(leaf("actor-port-state", value));
      EXPECT_EQ(reported(handler, request), leaves_of(octet)) << value;
    }
  }
}

TEST_F(PortStateText, OtherText_ReadsAsItsLeadingNumberOrZero) {
  for (const NodeFunction handler : kPortStateHandlers) {
    for (const char* value : {"", "down", "x61", "0x3d", "-", "+"}) {
      const Request request(leaf("actor-port-state", value));
      EXPECT_EQ(reported(handler, request), leaves_of(0)) << "\"" << value << "\"";
    }
    for (const char* value : {"61up", " 61", "+61", "61.9"}) {
      const Request request(leaf("actor-port-state", value));
      EXPECT_EQ(reported(handler, request), leaves_of(61)) << "\"" << value << "\"";
    }
    const Request without_value(leaf("actor-port-state"));
    EXPECT_EQ(reported(handler, without_value), leaves_of(0));
  }
}

TEST_F(PortState, Leaves_AreReportedWithTheLastFlag) {
  EXPECT_EQ(run(qd2oc_actorportstate, "61"), YFW_OK);
  EXPECT_EQ(platform.additions().size(), 6U);
  for (const support::Addition& addition : platform.additions()) {
    EXPECT_EQ(addition.ns, support::kOpenconfigLacp);
    EXPECT_EQ(addition.source, nullptr);
    EXPECT_EQ(addition.word, 0U);
    EXPECT_EQ(addition.list_flag, 0);
    EXPECT_EQ(addition.last_flag, 1);
  }
}

TEST_F(PortState, FailedAdditions_AreIgnored) {
  platform.script("yfw_map_datatree_add_path_flagged", 0, 0x77);
  for (const NodeFunction handler : kPortStateHandlers) EXPECT_EQ(run(handler, "61"), YFW_OK);
  EXPECT_EQ(platform.count("yfw_map_datatree_add_path_flagged"), 12U) << "all six are tried";
}

TEST_F(BundleLeaf, BundleName_IsTheKeyOfTheCurrentEntry) {
  const char* name = nullptr;
  EXPECT_EQ(get_bundle_name_from_oper_tree(platform.ctx(), &name), YFW_OK);
  EXPECT_STREQ(name, "Bundle-Ether1");
  EXPECT_EQ(platform.count("yfw_map_get_node_info", "\"/lacp-bundles/bundles/bundle\" \"bundle-interface\""), 1U);
  platform.script("yfw_map_get_node_info", 0, 0x77);
  EXPECT_EQ(get_bundle_name_from_oper_tree(platform.ctx(), &name), 0x77U);
  EXPECT_THAT(platform.trace(), IsEmpty()) << "it records nothing";
}

}  // namespace
