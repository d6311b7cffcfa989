// The hand-written handlers and converters: values, list keys, the key of an interface.
#include <cstring>
#include <string>

#include "oclacp/openconfig_lacp.h"
#include "unit/module_test.h"
#include "yfw/strings.h"

namespace {

using support::interface_entry;
using support::leaf;
using support::Node;
using support::Request;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kMode[] = "/interface-configurations/interface-configuration/lacp/mode";
constexpr char kPeriod[] = "/interface-configurations/interface-configuration/lacp/period";
constexpr char kMac[] = "/interface-configurations/interface-configuration/lacp/system-mac";
constexpr char kEntry[] = "/interface-configurations/interface-configuration";
constexpr char kName[] = "/interface-configurations/interface-configuration/interface-name";
constexpr char kActive[] = "/interface-configurations/interface-configuration/active";
constexpr char kVirtual[] = "/interface-configurations/interface-configuration/interface-virtual";
constexpr char kCompareFailed[] = " yfw_strcmp_s failed with error : status 0x0b000001\n";

class Converters : public support::ModuleTest {
 protected:
  using Function = cerrno (*)(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

  // The value that a converter writes for a value in an edit.
  std::string converted(Function converter, const char* value) {
    Request request(leaf("leaf", value));
    const std::size_t before = platform.additions().size();
    EXPECT_EQ(converter(platform.ctx(), request.root(), platform.output()), YFW_OK);
    EXPECT_EQ(platform.additions().size(), before + 1);
    return platform.additions().back().value.value_or("no value");
  }

  cerrno run(Function converter, const Node& node, std::uint32_t operation = YFW_REQUEST_EDIT) {
    platform.set_operation(operation);
    Request request(node);
    return converter(platform.ctx(), request.root(), platform.output());
  }
};

// ---- lacp-mode

TEST_F(Converters, Mode_IsPassiveUnlessActive) {
  EXPECT_EQ(converted(oc2qd_cfglacpmode, "ACTIVE"), "active");
  EXPECT_EQ(converted(oc2qd_cfglacpmode, "PASSIVE"), "passive");
  EXPECT_EQ(converted(oc2qd_cfglacpmode, "active"), "passive") << "case counts";
  EXPECT_EQ(converted(oc2qd_cfglacpmode, "on"), "passive");
  EXPECT_EQ(converted(oc2qd_cfglacpmode, ""), "passive");
}

TEST_F(Converters, Mode_IsComparedOnce) {
  converted(oc2qd_cfglacpmode, "PASSIVE");
  EXPECT_EQ(platform.count("yfw_strcmp_s", "\"oc2qd_cfglacpmode\" \"PASSIVE\" \"ACTIVE\""), 1U);
  EXPECT_EQ(platform.count("yfw_strcmp_s"), 1U);
  EXPECT_EQ(platform.count("yfw_strcpy_s", "\"oc2qd_cfglacpmode\" size=10 \"passive\""), 1U);
}

TEST_F(Converters, ModeWithoutValue_IsAFailedComparison) {
  EXPECT_EQ(run(oc2qd_cfglacpmode, leaf("lacp-mode")), support::kStringRefused);
  EXPECT_THAT(platform.trace(), ElementsAre("TRC oc2qd_cfglacpmode: Start",
                                            std::string("TRC oc2qd_cfglacpmode:  oc2qd_cfglacpmode") + kCompareFailed));
  EXPECT_THAT(added(), IsEmpty());
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
}

TEST_F(Converters, FailedCopyOfMode_IsTracedWithoutEndRecord) {
  platform.script("yfw_strcpy_s", 1, 0x21);
  EXPECT_EQ(run(oc2qd_cfglacpmode, leaf("lacp-mode", "ACTIVE")), 0x21U);
  EXPECT_EQ(
      platform.traced("oc2qd_cfglacpmode", " oc2qd_cfglacpmode yfw_strcpy_s failed with error : status 0x00000021\n"),
      1U);
  EXPECT_EQ(platform.traced("oc2qd_cfglacpmode", "End"), 0U);
  EXPECT_THAT(added(), IsEmpty());
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
}

// ---- interval

TEST_F(Converters, Interval_IsOneForFastAndThirtyThousandForSlow) {
  EXPECT_EQ(converted(oc2qd_cfginterval, "FAST"), "1");
  EXPECT_EQ(converted(oc2qd_cfginterval, "SLOW"), "30000");
}

TEST_F(Converters, OtherInterval_IsRefused) {
  for (const char* value : {"fast", "slow", "MEDIUM", "", "FASTER"}) {
    EXPECT_EQ(run(oc2qd_cfginterval, leaf("interval", value)), YFW_UNSUPPORTED_INTERVAL) << value;
    EXPECT_EQ(platform.error_tag(), "interval");
    named_free(platform.state().error_tag);
    platform.state().error_tag = nullptr;
  }
  EXPECT_THAT(added(), IsEmpty());
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 5U);
  EXPECT_EQ(
      platform.traced("oc2qd_cfginterval", "\nValue of interval other than 1s and 30s is not supported in high model"),
      5U);
  EXPECT_EQ(platform.traced("oc2qd_cfginterval", "End"), 5U) << "a refused period is an ordinary end";
}

TEST_F(Converters, IntervalWithoutValue_IsRefusedWithoutComparison) {
  EXPECT_EQ(run(oc2qd_cfginterval, leaf("interval")), YFW_UNSUPPORTED_INTERVAL);
  EXPECT_EQ(platform.count("yfw_strcmp_s"), 0U);
}

TEST_F(Converters, RefusedInterval_MarksThenStoresThenRecords) {
  run(oc2qd_cfginterval, leaf("interval", "MEDIUM"));
  EXPECT_LT(position("yfw_oc_error_path"), position("yfw_strdup", "interval"));
  EXPECT_LT(position("yfw_strdup"), position("_lstrace", "Value of interval"));
}

TEST_F(Converters, RefusedInterval_OverwritesTheErrorTagWithoutFreeing) {
  char* const earlier = yfw_strdup("earlier", YFW_ALLOCATION_TAG);
  platform.state().error_tag = earlier;
  run(oc2qd_cfginterval, leaf("interval", "MEDIUM"));
  EXPECT_EQ(platform.error_tag(), "interval");
  EXPECT_EQ(platform.count("named_free"), 0U);
  named_free(earlier);
}

TEST_F(Converters, FailedFirstComparisonOfInterval_ReturnsItsCode) {
  platform.script("yfw_strcmp_s", 1, 0x22);
  EXPECT_EQ(run(oc2qd_cfginterval, leaf("interval", "SLOW")), 0x22U);
  EXPECT_EQ(
      platform.traced("oc2qd_cfginterval", " oc2qd_cfginterval yfw_strcmp_s failed with error : status 0x00000022\n"),
      1U);
  EXPECT_EQ(platform.traced("oc2qd_cfginterval", "End"), 0U);
  EXPECT_EQ(platform.error_tag(), "");
}

TEST_F(Converters, FailedSecondComparisonOfInterval_IsRefused) {
  platform.script("yfw_strcmp_s", 2, 0x22);
  EXPECT_EQ(run(oc2qd_cfginterval, leaf("interval", "SLOW")), YFW_UNSUPPORTED_INTERVAL);
  EXPECT_EQ(platform.error_tag(), "interval");
  EXPECT_THAT(added(), IsEmpty());
}

TEST_F(Converters, FailedCopyOfPeriod_IsTracedWithTwoBlanks) {
  for (const char* value : {"FAST", "SLOW"}) {
    platform.script("yfw_strcpy_s", 0, 0x23);
    EXPECT_EQ(run(oc2qd_cfginterval, leaf("interval", value)), 0x23U);
  }
  EXPECT_EQ(
      platform.traced("oc2qd_cfginterval", " oc2qd_cfginterval  yfw_strcpy_s failed with error : status 0x00000023\n"),
      2U);
  EXPECT_EQ(platform.traced("oc2qd_cfginterval", "End"), 0U);
  EXPECT_THAT(added(), IsEmpty());
}

// ---- Deletes, reads, copies

TEST_F(Converters, Delete_IgnoresTheValue) {
  EXPECT_EQ(run(oc2qd_cfginterval, leaf("interval", "MEDIUM").with(YFW_OPERATION_DELETE)), YFW_OK);
  EXPECT_EQ(run(oc2qd_cfglacpmode, leaf("lacp-mode").with(YFW_OPERATION_DELETE)), YFW_OK);
  EXPECT_THAT(added(), ElementsAre(kPeriod, kMode));
  EXPECT_EQ(platform.count("yfw_strcmp_s"), 0U);
}

TEST_F(Converters, Read_CopiesTheValueUnchanged) {
  for (const std::uint32_t operation : {0U, 10U}) {
    EXPECT_EQ(run(oc2qd_cfginterval, leaf("interval", "FAST"), operation), YFW_OK);
    EXPECT_EQ(run(oc2qd_cfglacpmode, leaf("lacp-mode", "whatever"), operation), YFW_OK);
  }
  EXPECT_EQ(added(), (std::vector<std::string>{std::string(kPeriod) + "=FAST", std::string(kMode) + "=whatever",
                                               std::string(kPeriod) + "=FAST", std::string(kMode) + "=whatever"}));
  for (const support::Addition& addition : platform.additions()) EXPECT_EQ(addition.source, nullptr);
}

TEST_F(Converters, SystemIdMac_IsCopiedUnchanged) {
  EXPECT_EQ(converted(oc2qd_cfgsystemidmac, "00:11:22:33:44:55"), "00:11:22:33:44:55");
  EXPECT_EQ(only_addition().path, kMac);
  EXPECT_EQ(only_addition().last_flag, 1);
}

TEST_F(Converters, SystemPriority_IsCopiedUnchanged) {
  EXPECT_EQ(converted(oc2qd_intfcfgsystempriority, "065535"), "065535");
  EXPECT_EQ(only_addition().path, "/interface-configurations/interface-configuration/lacp/system-priority");
}

TEST_F(Converters, Edit_CarriesItsOperation) {
  run(oc2qd_cfglacpmode, leaf("lacp-mode", "ACTIVE").with(YFW_OPERATION_CREATE));
  EXPECT_EQ(only_addition().operation, std::uint32_t{YFW_OPERATION_CREATE});
}

TEST_F(Converters, FailedAddition_ReturnsItsStatusAfterEndRecord) {
  platform.script("yfw_map_datatree_add_path_flagged", 0, 0x24);
  for (const Function converter :
       {oc2qd_cfglacpmode, oc2qd_cfgsystemidmac, oc2qd_intfcfgsystempriority, oc2qd_cfginterval}) {
    EXPECT_EQ(run(converter, leaf("leaf", "FAST")), 0x24U);
  }
  EXPECT_EQ(platform.traced("oc2qd_cfglacpmode", "End"), 1U);
}

TEST_F(Converters, ConfiguredName_IsIgnoredAfterAskingForDelete) {
  EXPECT_EQ(run(oc2qd_config_name_ignore, leaf("name", "a")), YFW_OK);
  EXPECT_EQ(run(oc2qd_config_name_ignore, leaf("name", "a").with(YFW_OPERATION_DELETE)), YFW_OK);
  EXPECT_EQ(platform.count("yfw_map_is_request_delete", "name"), 2U);
  EXPECT_EQ(run(oc2qd_config_name_ignore, leaf("name", "a"), YFW_REQUEST_READ_CONFIG), YFW_OK);
  EXPECT_EQ(platform.count("yfw_map_is_request_delete"), 2U) << "a read is not asked";
  EXPECT_THAT(added(), IsEmpty());
}

// ---- Paths of operational state

TEST_F(Converters, LastFlag_IsSetForTheAppliedModeOnly) {
  EXPECT_EQ(run(oc2qd_appliedlacpmode, leaf("lacp-mode"), YFW_REQUEST_READ_STATE), YFW_OK);
  EXPECT_EQ(run(oc2qd_statesystemidmac, leaf("system-id-mac"), YFW_REQUEST_READ_STATE), YFW_OK);
  EXPECT_EQ(run(oc2qd_intfstatesystempriority, leaf("system-priority"), YFW_REQUEST_READ_STATE), YFW_OK);
  EXPECT_EQ(run(oc2qd_actorportstate, leaf("activity"), YFW_REQUEST_READ_STATE), YFW_OK);
  EXPECT_THAT(added(), ElementsAre("/lacp-bundles/bundles/bundle/data/applied-lacp-mode",
                                   "/lacp-bundles/bundles/bundle/data/bundle-system-id/system-mac-addr/macaddr",
                                   "/lacp-bundles/bundles/bundle/data/bundle-system-id/system-prio",
                                   "/lacp-bundles/bundles/bundle/members/member/link-data/actor-port-state"));
  EXPECT_EQ(platform.additions().at(0).last_flag, 1);
  for (std::size_t i = 1; i < 4; ++i) EXPECT_EQ(platform.additions()[i].last_flag, 0);
  for (const support::Addition& addition : platform.additions()) EXPECT_EQ(addition.ns, support::kBundlemgrOper);
}

TEST_F(Converters, StateInEdit_AddsNothing) {
  for (const Function converter :
       {oc2qd_appliedlacpmode, oc2qd_statesystemidmac, oc2qd_intfstatesystempriority, oc2qd_actorportstate}) {
    EXPECT_EQ(run(converter, leaf("leaf", "value")), YFW_OK);
  }
  EXPECT_THAT(added(), IsEmpty());
}

TEST_F(Converters, StateInEdit_AsksForDeleteForTheAppliedModeOnly) {
  run(oc2qd_statesystemidmac, leaf("leaf"));
  run(oc2qd_intfstatesystempriority, leaf("leaf"));
  run(oc2qd_actorportstate, leaf("leaf"));
  EXPECT_EQ(platform.count("yfw_map_is_request_delete"), 0U);
  EXPECT_EQ(run(oc2qd_appliedlacpmode, leaf("leaf").with(YFW_OPERATION_DELETE)), YFW_OK);
  EXPECT_EQ(platform.count("yfw_map_is_request_delete"), 1U);
  run(oc2qd_appliedlacpmode, leaf("leaf"), YFW_REQUEST_READ_STATE);
  EXPECT_EQ(platform.count("yfw_map_is_request_delete"), 1U) << "a read is not asked";
}

// ---- The selection of the native list

class InterfaceTargets : public support::ModuleTest {
 protected:
  void SetUp() override { std::memset(entries, 0, sizeof entries); }

  void set_path(int index, const char* path) {
    std::strncpy(entries[index].path, path, sizeof entries[index].path - 1);
  }

  xpath_list_type_t entries[3];
};

TEST_F(InterfaceTargets, InterfaceConfiguration_IsSelected) {
  set_path(0, "/interface-configurations/interface-configuration");
  set_path(1, "/lacp-bundles/bundles/bundle");
  EXPECT_EQ(oc2qd_intf_name(platform.ctx(), 2, entries), YFW_OK);
  EXPECT_EQ(entries[0].selected, 1U);
  EXPECT_EQ(entries[1].selected, 0U);
  EXPECT_THAT(platform.trace(), ElementsAre("TRC oc2qd_intf_name: Start", "TRC oc2qd_intf_name: End"));
}

TEST_F(InterfaceTargets, SeveralMatches_SelectTheFirstOnly) {
  set_path(0, "/lacp-bundles/bundles/bundle");
  set_path(1, "/interface-configurations/interface-configuration");
  set_path(2, "/interface-configurations/other");
  EXPECT_EQ(oc2qd_intf_name(platform.ctx(), 3, entries), YFW_OK);
  EXPECT_EQ(entries[0].selected, 0U);
  EXPECT_EQ(entries[1].selected, 1U);
  EXPECT_EQ(entries[2].selected, 0U);
}

TEST_F(InterfaceTargets, CountOfZero_ChangesNothing) {
  set_path(0, "/interface-configurations/interface-configuration");
  EXPECT_EQ(oc2qd_intf_name(platform.ctx(), 0, entries), YFW_OK);
  EXPECT_EQ(entries[0].selected, 0U);
}

TEST_F(InterfaceTargets, PathOutsideTheContainer_IsNotSelected) {
  set_path(0, "/interface-configurations");
  set_path(1, "/interface-configurationsX/a");
  EXPECT_EQ(oc2qd_intf_name(platform.ctx(), 2, entries), YFW_OK);
  EXPECT_EQ(entries[0].selected + entries[1].selected, 0U);
}

TEST_F(InterfaceTargets, Selection_ChangesNothingElse) {
  set_path(0, "/interface-configurations/interface-configuration");
  entries[0].list_entry = 7;
  entries[0].value[0] = 'v';
  xpath_list_type_t expected = entries[0];
  expected.selected = 1;
  EXPECT_EQ(oc2qd_intf_name(platform.ctx(), 1, entries), YFW_OK);
  EXPECT_EQ(std::memcmp(&entries[0], &expected, sizeof expected), 0);
}

TEST_F(InterfaceTargets, Record_HasItsFixedSizesAndOrder) {
  EXPECT_EQ(sizeof entries[0].path, 250U);
  EXPECT_EQ(sizeof entries[0].ns, 110U);
  EXPECT_EQ(sizeof entries[0].value, 256U);
  EXPECT_LT(offsetof(xpath_list_type_t, path), offsetof(xpath_list_type_t, ns));
  EXPECT_LT(offsetof(xpath_list_type_t, ns), offsetof(xpath_list_type_t, selected));
  EXPECT_LT(offsetof(xpath_list_type_t, selected), offsetof(xpath_list_type_t, list_entry));
}

using InterfaceTargetsDeathTest = InterfaceTargets;

TEST_F(InterfaceTargetsDeathTest, NullContext_Aborts) {
  EXPECT_DEATH(oc2qd_intf_name(nullptr, 0, entries),
               "cerrno oc2qd_intf_name\\(yfw_map_ctx, int, xpath_list_type_t \\*\\): "
               "Assertion `\\(\\(void \\*\\)0\\) != ctx' failed");
}

// ---- List keys

class ListKeys : public support::ModuleTest {
 protected:
  cerrno interface_key(Request& request) {
    return ymap_oq_oclacp_openconfiglacp_list_lvla_lacp_interfaces_interface(platform.ctx(), request.root(),
                                                                             platform.output());
  }
  cerrno member_key(Request& request) {
    return ymap_oq_oclacp_openconfiglacp_list_lvla_lacp_members_member(platform.ctx(), request.root(),
                                                                       platform.output());
  }

  Request entry{interface_entry("Bundle-Ether1")};
};

TEST_F(ListKeys, InterfaceInEdit_AddsTheInterfaceConfigurationOnly) {
  EXPECT_EQ(interface_key(entry), YFW_OK);
  EXPECT_EQ(only_addition().path, kEntry);
  EXPECT_EQ(only_addition().ns, support::kIfmgrCfg);
  EXPECT_EQ(only_addition().value, std::nullopt);
  EXPECT_EQ(only_addition().source, entry.root());
  EXPECT_EQ(only_addition().word, 0U);
  EXPECT_EQ(only_addition().list_flag, 1);
  EXPECT_EQ(only_addition().last_flag, 0);
}

TEST_F(ListKeys, InterfaceInRead_HasNoNode) {
  for (const std::uint32_t operation : {0U, 10U}) {
    platform.set_operation(operation);
    EXPECT_EQ(interface_key(entry), YFW_OK);
    EXPECT_EQ(platform.additions().back().path, kEntry);
    EXPECT_EQ(platform.additions().back().source, nullptr);
  }
}

TEST_F(ListKeys, SecondInterface_StartsFromAnUnselectedTable) {
  EXPECT_EQ(interface_key(entry), YFW_OK);
  EXPECT_EQ(interface_key(entry), YFW_OK);
  EXPECT_THAT(added(), ElementsAre(kEntry, kEntry));
}

TEST_F(ListKeys, InterfaceInDelete_CallsTheDeletionOnce) {
  Request deleted(interface_entry("Bundle-Ether1").with(YFW_OPERATION_DELETE));
  EXPECT_EQ(interface_key(deleted), YFW_NOTHING_TO_DELETE);
  EXPECT_EQ(platform.traced("oc_to_qd_all_lacp_cfg_delete", "Start"), 1U);
  EXPECT_THAT(added(), IsEmpty());
}

TEST_F(ListKeys, FailedAdditionOfInterface_ReturnsItsStatus) {
  platform.script("yfw_map_datatree_add_path_flagged", 0, 0x31);
  EXPECT_EQ(interface_key(entry), 0x31U);
}

TEST_F(ListKeys, MemberInEdit_AddsTheMemberList) {
  EXPECT_EQ(member_key(entry), YFW_OK);
  EXPECT_EQ(only_addition().path, "/lacp-bundles/bundles/bundle/members/member");
  EXPECT_EQ(only_addition().ns, support::kBundlemgrOper);
  EXPECT_EQ(only_addition().value, std::nullopt);
  EXPECT_EQ(only_addition().source, entry.root());
  EXPECT_EQ(only_addition().list_flag, 1);
  EXPECT_EQ(only_addition().last_flag, 0);
}

TEST_F(ListKeys, MemberInRead_HasNoNode) {
  platform.set_operation(YFW_REQUEST_READ_STATE);
  EXPECT_EQ(member_key(entry), YFW_OK);
  EXPECT_EQ(only_addition().source, nullptr);
}

// ---- The key leaf of an interface

class InterfaceName : public support::ModuleTest {
 protected:
  cerrno run(Request& request, std::uint32_t operation = YFW_REQUEST_EDIT) {
    platform.set_operation(operation);
    return ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_interface_name(platform.ctx(), request.root(),
                                                                       platform.output());
  }

  static std::string named(const char* value) { return std::string(kName) + "=" + value; }
  static std::string active(const char* value) { return std::string(kActive) + "=" + value; }

  Request bundle{leaf("name", "Bundle-Ether1")};
};

TEST_F(InterfaceName, VirtualInterface_AddsNameActiveAndVirtual) {
  platform.add_virtual("Bundle-Ether1");
  EXPECT_EQ(run(bundle), YFW_OK);
  EXPECT_THAT(added(), ElementsAre(named("Bundle-Ether1"), active("act"), kVirtual));
}

TEST_F(InterfaceName, PhysicalInterface_AddsNameAndActive) {
  platform.add_physical("Bundle-Ether1");
  EXPECT_EQ(run(bundle), YFW_OK);
  EXPECT_THAT(added(), ElementsAre(named("Bundle-Ether1"), active("act")));
}

TEST_F(InterfaceName, Edit_CarriesTheKeyLeaf) {
  platform.add_virtual("Bundle-Ether1");
  run(bundle);
  ASSERT_EQ(platform.additions().size(), 3U);
  for (const support::Addition& addition : platform.additions()) {
    EXPECT_EQ(addition.source, bundle.root());
    EXPECT_EQ(addition.ns, support::kIfmgrCfg);
    EXPECT_EQ(addition.word, 0U);
    EXPECT_EQ(addition.last_flag, 0);
  }
}

TEST_F(InterfaceName, Edit_MarksNameAndActiveAsListKeys) {
  platform.add_virtual("Bundle-Ether1");
  run(bundle);
  ASSERT_EQ(platform.additions().size(), 3U);
  EXPECT_EQ(platform.additions()[0].list_flag, 1);
  EXPECT_EQ(platform.additions()[1].list_flag, 1);
  EXPECT_EQ(platform.additions()[2].list_flag, 0);
}

TEST_F(InterfaceName, Delete_GivesItsValueToActive) {
  Request deleting(leaf("name", "Bundle-Ether1").with(YFW_OPERATION_REMOVE));
  platform.add_virtual("Bundle-Ether1");
  EXPECT_EQ(run(deleting), YFW_OK);
  EXPECT_THAT(added(), ElementsAre(named("Bundle-Ether1"), active("Bundle-Ether1")));
  EXPECT_EQ(platform.count("imc_interface_find"), 0U) << "a deleted interface is not looked up";
}

TEST_F(InterfaceName, Read_RequestsNameAndActiveWithoutNode) {
  for (const std::uint32_t operation : {0U, 10U}) {
    const std::size_t before = platform.additions().size();
    EXPECT_EQ(run(bundle, operation), YFW_OK);
    ASSERT_EQ(platform.additions().size(), before + 2);
    for (std::size_t i = before; i < before + 2; ++i) {
      EXPECT_EQ(platform.additions()[i].source, nullptr);
      EXPECT_EQ(platform.additions()[i].list_flag, 1);
    }
  }
  EXPECT_THAT(added(), ElementsAre(named("Bundle-Ether1"), active("act"), named("Bundle-Ether1"), active("act")));
  EXPECT_EQ(platform.count("imc_interface_find"), 0U);
}

TEST_F(InterfaceName, ReadWithClosedKeyGate_RequestsNothing) {
  struct Case {
    std::uint32_t word;
    std::uint8_t level;
    bool asked;
  };
  for (const Case& one : {Case{0, 0, true}, Case{0, 2, true}, Case{1, 0, false}, Case{1, 2, false},
                          Case{0x80000000, 2, false}, Case{1, 3, true}, Case{1, 255, true}}) {
    SCOPED_TRACE(std::to_string(one.word) + ", " + std::to_string(one.level));
    platform.state().key_gate = {.word = one.word, .level = one.level};
    const std::size_t before = platform.additions().size();
    EXPECT_EQ(run(bundle, YFW_REQUEST_READ_CONFIG), YFW_OK);
    EXPECT_EQ(platform.additions().size() - before, one.asked ? 2U : 0U);
  }
}

TEST_F(InterfaceName, EditWithClosedKeyGate_AddsTheName) {
  platform.state().key_gate = {.word = 1, .level = 0};
  platform.add_physical("Bundle-Ether1");
  EXPECT_EQ(run(bundle), YFW_OK);
  EXPECT_EQ(platform.additions().size(), 2U);
}

TEST_F(InterfaceName, FailedAdditions_ReturnTheStatusOfTheLast) {
  platform.add_virtual("Bundle-Ether1");
  platform.script("yfw_map_datatree_add_path_flagged", 1, 0x41, "/interface-name");
  platform.script("yfw_map_datatree_add_path_flagged", 1, 0x42, "/active");
  EXPECT_EQ(run(bundle), YFW_OK) << "name and active failed, virtual did not";
  platform.script("yfw_map_datatree_add_path_flagged", 0, 0x43, "/interface-virtual");
  EXPECT_EQ(run(bundle), 0x43U);
}

TEST_F(InterfaceName, FailedActiveAsLastAddition_ReturnsItsStatus) {
  platform.add_physical("Bundle-Ether1");
  platform.script("yfw_map_datatree_add_path_flagged", 0, 0x42, "/active");
  EXPECT_EQ(run(bundle), 0x42U);
  EXPECT_EQ(run(bundle, YFW_REQUEST_READ_CONFIG), 0x42U);
}

TEST_F(InterfaceName, NameWithSlashes_IsLookedUpInEntryFormAndAddedUnchanged) {
  Request request(leaf("name", "GigabitEthernet0/0/0/1"));
  platform.add_physical("GigabitEthernet0_0_0_1");
  EXPECT_EQ(run(request), YFW_OK);
  EXPECT_EQ(platform.count("imc_interface_find", "\"GigabitEthernet0_0_0_1\""), 1U);
  EXPECT_THAT(added(), ElementsAre(named("GigabitEthernet0/0/0/1"), active("act")));
}

}  // namespace
