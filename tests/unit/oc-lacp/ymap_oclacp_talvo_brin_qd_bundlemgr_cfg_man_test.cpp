// The converters of an interface's LACP configuration, and the priority of the device.
#include <string>

#include "oclacp/native_config.h"
#include "unit/module_test.h"
#include "unit/oc-lacp/nodes.h"
#include "yfw/strings.h"

namespace {

using nodes::Named;
using nodes::NodeFunction;
using support::leaf;
using support::Request;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kNameOfEntry[] = "/interface-configurations/interface-configuration/interface-name";

const Named<NodeFunction> kConverters[] = {NODES_NAMED(qd2oc_cfglacpmode), NODES_NAMED(qd2oc_cfginterval),
                                           NODES_NAMED(qd2oc_intfcfgsystempriority), NODES_NAMED(qd2oc_cfgsystemidmac)};

class Converter : public support::ModuleTest {
 protected:
  Converter() {
    platform.set_operation(YFW_REQUEST_READ_CONFIG);
    platform.node_info[kNameOfEntry] = "Bundle-Ether1";
    platform.lacp_interfaces = {"Bundle-Ether1", "Bundle-Ether1.100"};
  }

  cerrno run(NodeFunction function, const std::string& value) {
    Request request(leaf("leaf", value));
    return function(platform.ctx(), request.root(), platform.output());
  }

  void suppress() {
    platform.descriptor().options_584 = 0x01;
    platform.descriptor().option_mode = YFW_OPTION_MODE_SUPPRESS;
  }
};

class ConfiguredLeaf : public Converter {};
class ConfiguredMode : public Converter {};
class ConfiguredPeriod : public Converter {};
class GlobalPriority : public Converter {};

TEST_F(ConfiguredLeaf, FailedNameLookUp_IsTracedAndReturned) {
  platform.script("yfw_map_get_node_info", 0, 0x77);
  for (const Named<NodeFunction>& one : kConverters) {
    SCOPED_TRACE(one.name);
    EXPECT_EQ(run(one.function, "1000"), 0x77U);
    EXPECT_EQ(platform.traced(one.name, std::string(one.name) + ": Unable to get bundle name. Returning from here. rc "
                                                                "status 0x00000077\n"),
              1U);
    EXPECT_EQ(platform.traced(one.name, "End"), 0U);
  }
  EXPECT_THAT(added(), IsEmpty());
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
}

TEST_F(ConfiguredLeaf, FailedLookUpWithName_IsReturned) {
  platform.node_info_failures[kNameOfEntry] = 0x77;
  for (const Named<NodeFunction>& one : kConverters) EXPECT_EQ(run(one.function, "1000"), 0x77U) << one.name;
  EXPECT_THAT(added(), IsEmpty());
}

TEST_F(ConfiguredLeaf, SubInterfaceOrNoLacp_IsNotReported) {
  for (const char* name : {"Bundle-Ether1.100", "MgmtEth0/0/0/0"}) {
    platform.node_info[kNameOfEntry] = name;
    for (const Named<NodeFunction>& one : kConverters) EXPECT_EQ(run(one.function, "1000"), YFW_OK) << one.name;
  }
  EXPECT_THAT(added(), IsEmpty());
  for (const Named<NodeFunction>& one : kConverters) EXPECT_EQ(platform.traced(one.name, "End"), 2U) << one.name;
}

TEST_F(ConfiguredLeaf, AnyRequest_ReportsTheLeaf) {
  for (const std::uint32_t operation : {0U, 1U, 8U, 10U, 15U}) {
    platform.set_operation(operation);
    for (const Named<NodeFunction>& one : kConverters) EXPECT_EQ(run(one.function, "1000"), YFW_OK) << one.name;
  }
  EXPECT_EQ(platform.additions().size(), 20U);
  for (const support::Addition& addition : platform.additions()) {
    EXPECT_EQ(addition.ns, support::kOpenconfigLacp);
    EXPECT_EQ(addition.source, nullptr);
    EXPECT_EQ(addition.word, 0U);
    EXPECT_EQ(addition.list_flag, 0);
    EXPECT_EQ(addition.last_flag, 0);
  }
}

TEST_F(ConfiguredLeaf, FailedAddition_ReturnsItsStatus) {
  platform.script("yfw_map_datatree_add_path_flagged", 0, 0x77);
  for (const Named<NodeFunction>& one : kConverters) {
    EXPECT_EQ(run(one.function, "1000"), 0x77U) << one.name;
    EXPECT_EQ(platform.traced(one.name, "End"), 1U) << one.name;
  }
}

TEST_F(ConfiguredLeaf, PriorityOrMac_IsCopiedUnchanged) {
  EXPECT_EQ(run(qd2oc_intfcfgsystempriority, "0100"), YFW_OK);
  EXPECT_EQ(run(qd2oc_cfgsystemidmac, "00-11:22.x"), YFW_OK);
  EXPECT_THAT(added(), ElementsAre("/lacp/interfaces/interface/config/system-priority=0100",
                                   "/lacp/interfaces/interface/config/system-id-mac=00-11:22.x"));
}

TEST_F(ConfiguredLeaf, SuppressingOptions_SuppressModeAndPeriodOnly) {
  suppress();
  for (const Named<NodeFunction>& one : kConverters) {
    EXPECT_EQ(run(one.function, "1000"), YFW_OK) << one.name;
    EXPECT_EQ(platform.traced(one.name, "End"), 1U) << one.name;
  }
  EXPECT_THAT(added(), ElementsAre("/lacp/interfaces/interface/config/system-priority=1000",
                                   "/lacp/interfaces/interface/config/system-id-mac=1000"));
}

TEST_F(ConfiguredMode, Mode_IsPassiveUnlessActive) {
  for (const char* value : {"active", "passive", "ACTIVE", "actively", "", "whatever"}) {
    EXPECT_EQ(run(qd2oc_cfglacpmode, value), YFW_OK);
    EXPECT_EQ(added().back(), std::string("/lacp/interfaces/interface/config/lacp-mode=") +
                                  (value == std::string("active") ? "ACTIVE" : "PASSIVE"))
        << "\"" << value << "\"";
  }
}

TEST_F(ConfiguredMode, ModeOn_IsTracedAndNotReported) {
  EXPECT_EQ(run(qd2oc_cfglacpmode, "on"), YFW_OK);
  EXPECT_THAT(added(), IsEmpty());
  EXPECT_THAT(platform.trace(),
              ElementsAre("TRC qd2oc_cfglacpmode: Start",
                          "TRC qd2oc_cfglacpmode: qd2oc_cfglacpmode: Configured LACP Mode is ON. Returning from here\n",
                          "TRC qd2oc_cfglacpmode: End"));
}

TEST_F(ConfiguredMode, Mode_IsConvertedBeforeTheInterfaceIsChecked) {
  EXPECT_EQ(run(qd2oc_cfglacpmode, "active"), YFW_OK);
  EXPECT_LT(position("yfw_strcpy_s", "\"qd2oc_cfglacpmode\" size=10 \"ACTIVE\""),
            position("get_intf_type_if_lacp_configured"));
}

TEST_F(ConfiguredMode, FailedComparisonForUnmappedInterface_IsReturned) {
  platform.node_info[kNameOfEntry] = "Bundle-Ether1.100";
  for (const char* known : {"\"on\"", "\"active\""}) {
    platform.script("yfw_strcmp_s", 1, 0x77, std::string("\"passive\" ") + known);
    EXPECT_EQ(run(qd2oc_cfglacpmode, "passive"), 0x77U) << known;
  }
  EXPECT_EQ(
      platform.traced("qd2oc_cfglacpmode", " qd2oc_cfglacpmode yfw_strcmp_s failed with error : status 0x00000077\n"),
      2U);
  EXPECT_EQ(platform.traced("qd2oc_cfglacpmode", "End"), 0U);
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
}

TEST_F(ConfiguredMode, FailedComparisons_AreRecordedAtDifferentPlaces) {
  const std::string text = " qd2oc_cfglacpmode yfw_strcmp_s failed with error : status 0x00000077\n";
  platform.script("yfw_strcmp_s", 1, 0x77, "\"on\"");
  EXPECT_EQ(run(qd2oc_cfglacpmode, "passive"), 0x77U);
  const support::Place first = support::place_of(platform, text);
  platform.script("yfw_strcmp_s", 1, 0x77, "\"active\"");
  EXPECT_EQ(run(qd2oc_cfglacpmode, "passive"), 0x77U);
  support::expect_two_places(first, support::place_of(platform, text));
}

TEST_F(ConfiguredMode, ModeWithoutValue_FailsInItsFirstComparison) {
  Request request(leaf("mode"));
  EXPECT_EQ(qd2oc_cfglacpmode(platform.ctx(), request.root(), platform.output()), support::kStringRefused);
  EXPECT_THAT(added(), IsEmpty());
}

TEST_F(ConfiguredMode, FailedCopy_IsTracedWithoutEndRecord) {
  platform.script("yfw_strcpy_s", 0, 0x77);
  EXPECT_EQ(run(qd2oc_cfglacpmode, "active"), 0x77U);
  EXPECT_THAT(platform.trace(),
              ElementsAre("TRC qd2oc_cfglacpmode: Start",
                          "TRC qd2oc_cfglacpmode:  qd2oc_cfglacpmode yfw_strcpy_s failed with error : status "
                          "0x00000077\n"));
  EXPECT_EQ(platform.count("get_intf_type_if_lacp_configured"), 0U);
}

TEST_F(ConfiguredPeriod, SupportedPeriod_BecomesFastOrSlow) {
  for (const char* value : {"true", "1000"}) {
    EXPECT_EQ(run(qd2oc_cfginterval, value), YFW_OK);
    EXPECT_EQ(added().back(), "/lacp/interfaces/interface/config/interval=FAST") << value;
  }
  EXPECT_EQ(run(qd2oc_cfginterval, "30000"), YFW_OK);
  EXPECT_EQ(added().back(), "/lacp/interfaces/interface/config/interval=SLOW");
  EXPECT_EQ(platform.additions().size(), 3U);
}

TEST_F(ConfiguredPeriod, OtherPeriod_IsRefused) {
  unsigned refused = 0;
  for (const char* value : {"200", "1", "false", "TRUE", "01000", "30001", ""}) {
    SCOPED_TRACE(value);
    EXPECT_EQ(run(qd2oc_cfginterval, value), YFW_UNSUPPORTED_INTERVAL);
    EXPECT_EQ(platform.error_tag(), "interval");
    EXPECT_EQ(platform.count("yfw_oc_error_path"), ++refused);
  }
  EXPECT_THAT(added(), IsEmpty());
}

TEST_F(ConfiguredPeriod, RefusedPeriod_IsRecordedWithEndRecord) {
  EXPECT_EQ(run(qd2oc_cfginterval, "200"), YFW_UNSUPPORTED_INTERVAL);
  EXPECT_THAT(
      platform.trace(),
      ElementsAre("TRC qd2oc_cfginterval: Start",
                  "ERR qd2oc_cfginterval: \nValue of interval other than 1s and 30s is not supported in high model",
                  "TRC qd2oc_cfginterval: End"));
}

TEST_F(ConfiguredPeriod, RefusedPeriod_RecordsThenMarksThenStoresWithoutFreeing) {
  char* const held = yfw_strdup("held", YFW_ALLOCATION_TAG);
  platform.state().error_tag = held;
  EXPECT_EQ(run(qd2oc_cfginterval, "200"), YFW_UNSUPPORTED_INTERVAL);
  EXPECT_LT(position("_lstrace", "Value of interval"), position("yfw_oc_error_path"));
  EXPECT_LT(position("yfw_oc_error_path"), position("yfw_strdup", "interval"));
  EXPECT_EQ(platform.error_tag(), "interval");
  EXPECT_EQ(platform.count("named_free"), 0U) << "what the field held is overwritten";
  EXPECT_EQ(platform.seen().copies.count(held), 1U);
}

TEST_F(ConfiguredPeriod, UnsupportedPeriodOfUnmappedInterface_IsNotAnError) {
  for (const char* name : {"Bundle-Ether1.100", "MgmtEth0/0/0/0"}) {
    platform.node_info[kNameOfEntry] = name;
    EXPECT_EQ(run(qd2oc_cfginterval, "200"), YFW_OK) << name;
  }
  EXPECT_EQ(platform.count("yfw_strcmp_s"), 0U) << "the interface is looked at first";
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
}

TEST_F(ConfiguredPeriod, FailedComparisonWithTrue_ReturnsItsCode) {
  platform.script("yfw_strcmp_s", 0, 0x77, "\"true\"");
  EXPECT_EQ(run(qd2oc_cfginterval, "30000"), 0x77U);
  EXPECT_THAT(platform.trace(),
              ElementsAre("TRC qd2oc_cfginterval: Start",
                          "TRC qd2oc_cfginterval:  qd2oc_cfginterval yfw_strcmp_s failed with error : status "
                          "0x00000077\n"));
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
}

TEST_F(ConfiguredPeriod, FailedComparisonWithMilliseconds_RefusesThePeriod) {
  for (const char* known : {"\"1000\"", "\"30000\""}) {
    SCOPED_TRACE(known);
    platform.script("yfw_strcmp_s", 1, 0x77, std::string("\"30000\" ") + known);
    EXPECT_EQ(run(qd2oc_cfginterval, "30000"), YFW_UNSUPPORTED_INTERVAL);
    platform.state().error_tag = nullptr;
  }
  EXPECT_EQ(platform.traced("qd2oc_cfginterval", "End"), 2U);
  EXPECT_THAT(added(), IsEmpty());
  for (const std::string& line : platform.trace()) {
    EXPECT_EQ(line.find("yfw_strcmp_s failed"), std::string::npos) << "that code is not told";
  }
}

TEST_F(ConfiguredPeriod, FailedCopy_IsTracedWithoutEndRecord) {
  platform.script("yfw_strcpy_s", 0, 0x77);
  EXPECT_EQ(run(qd2oc_cfginterval, "30000"), 0x77U);
  EXPECT_THAT(platform.trace(),
              ElementsAre("TRC qd2oc_cfginterval: Start",
                          "TRC qd2oc_cfginterval:  qd2oc_cfginterval yfw_strcpy_s failed with error : status "
                          "0x00000077\n"));
}

TEST_F(ConfiguredPeriod, UnsupportedPeriodUnderSuppressingOptions_IsRefused) {
  suppress();
  EXPECT_EQ(run(qd2oc_cfginterval, "200"), YFW_UNSUPPORTED_INTERVAL);
}

TEST_F(GlobalPriority, Priority_IsReportedUnchangedWithoutInterfaceLookUp) {
  platform.node_info.clear();
  platform.lacp_interfaces.clear();
  for (const std::uint32_t operation : {0U, 1U, 10U}) {
    platform.set_operation(operation);
    EXPECT_EQ(run(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_leaf_lvla_lacp_systempriority, "100"), YFW_OK);
  }
  EXPECT_THAT(added(), testing::Each("/lacp/config/system-priority=100"));
  EXPECT_EQ(platform.additions().size(), 3U);
  EXPECT_EQ(platform.additions()[0].ns, support::kOpenconfigLacp);
  EXPECT_EQ(platform.additions()[0].last_flag, 0);
  EXPECT_EQ(platform.count("get_intf_type_if_lacp_configured") + platform.count("yfw_map_get_node_info"), 0U);
}

TEST_F(GlobalPriority, SuppressingOptions_SuppressWithSuccess) {
  suppress();
  EXPECT_EQ(run(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_leaf_lvla_lacp_systempriority, "100"), YFW_OK);
  EXPECT_THAT(added(), IsEmpty());
  EXPECT_EQ(platform.traced("ymap_qo_oclacp_talvobrinqdbundlemgrcfg_leaf_lvla_lacp_systempriority", "End"), 1U);
}

TEST_F(GlobalPriority, FailedAddition_ReturnsItsStatus) {
  platform.script("yfw_map_datatree_add_path_flagged", 0, 0x77);
  EXPECT_EQ(run(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_leaf_lvla_lacp_systempriority, "100"), 0x77U);
}

}  // namespace
