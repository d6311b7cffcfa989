// Entries of the native interface configuration, their names, and the dispatcher of what augments them.
#include <cstring>
#include <string>

#include "oclacp/native_config.h"
#include "unit/module_test.h"

namespace {

using support::Addition;
using support::container;
using support::leaf;
using support::Node;
using support::Request;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kNameOfEntry[] = "/interface-configurations/interface-configuration/interface-name";
constexpr char kEntryHandler[] =
    "ymap_qo_oclacp_talvobrinqdifmgrcfg_list_lvla_interfaceconfigurations_interfaceconfiguration";
constexpr char kNameHandler[] =
    "ymap_qo_oclacp_talvobrinqdifmgrcfg_leaf_lvla_interfaceconfigurations_interfaceconfiguration_interfacename";

Node entry(const std::string& configuration_class) {
  return container("interface-configuration", {leaf("active", configuration_class), leaf("interface-name", "in-tree")})
      .in(support::kIfmgrCfg);
}

class InterfaceEntry : public support::ModuleTest {
 protected:
  InterfaceEntry() {
    platform.node_info[kNameOfEntry] = "Bundle-Ether1";
    platform.lacp_interfaces = {"Bundle-Ether1", "Bundle-Ether1.100"};
  }

  cerrno show(Request& request) {
    return ymap_qo_oclacp_talvobrinqdifmgrcfg_list_lvla_interfaceconfigurations_interfaceconfiguration(
        platform.ctx(), request.root(), platform.output());
  }
};

TEST_F(InterfaceEntry, ActiveEntry_IsFoundOrCreatedByItsNativeName) {
  Request request(entry("act"));
  EXPECT_EQ(show(request), YFW_OK);
  EXPECT_EQ(only_addition().path, "/lacp/interfaces/interface");
  EXPECT_EQ(only_addition().key, "name=Bundle-Ether1");
  EXPECT_EQ(only_addition().ns, support::kOpenconfigLacp);
  EXPECT_NE(platform.state().current_list_node, nullptr) << "the slot holds the entry";
  EXPECT_STREQ(platform.state().interface_name, "Bundle-Ether1");
  EXPECT_EQ(platform.traced(kEntryHandler, "End"), 1U);
}

TEST_F(InterfaceEntry, Name_IsLookedUpOnTheHierarchy) {
  Request request(entry("act"));
  EXPECT_EQ(show(request), YFW_OK);
  EXPECT_EQ(platform.count("yfw_map_get_node_info",
                           "\"/interface-configurations/interface-configuration\" \"interface-name\""),
            1U);
}

TEST_F(InterfaceEntry, PreConfiguration_IsSkippedBeforeTheNameLookUp) {
  Request request(entry("pre"));
  EXPECT_EQ(show(request), YFW_SKIP_SUBTREE);
  EXPECT_EQ(platform.count("yfw_map_get_node_info"), 0U);
  EXPECT_EQ(platform.traced(kEntryHandler, "End"), 1U);
  EXPECT_THAT(added(), IsEmpty());
}

TEST_F(InterfaceEntry, PreConfiguration_IsDecidedByTheFirstChildOnly) {
  Request second(container("interface-configuration", {leaf("interface-name", "a"), leaf("active", "pre")}));
  EXPECT_EQ(show(second), YFW_OK);
  Request whatever_it_is(container("interface-configuration", {leaf("anything", "pre")}));
  EXPECT_EQ(show(whatever_it_is), YFW_SKIP_SUBTREE);
}

TEST_F(InterfaceEntry, PreConfiguration_IsComparedExactly) {
  for (const char* value : {"PRE", "pre ", "prefix", ""}) {
    Request request(entry(value));
    EXPECT_EQ(show(request), YFW_OK) << "\"" << value << "\"";
  }
  Request without_value(container("interface-configuration", {leaf("active"), leaf("interface-name", "a")}));
  EXPECT_EQ(show(without_value), YFW_OK);
  Request without_children(container("interface-configuration"));
  EXPECT_EQ(show(without_children), YFW_OK);
}

TEST_F(InterfaceEntry, MissingName_IsUnsupportedWhateverTheLookUpStatus) {
  platform.node_info.clear();
  Request request(entry("act"));
  EXPECT_EQ(show(request), YFW_UNSUPPORTED_NODE) << "the look-up fails";
  platform.script("yfw_map_get_node_info", 0, YFW_OK);
  EXPECT_EQ(show(request), YFW_UNSUPPORTED_NODE) << "the look-up succeeds and gives none";
  EXPECT_THAT(added(), IsEmpty());
  EXPECT_EQ(platform.error_tag(), "");
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
  EXPECT_THAT(
      platform.trace(),
      ElementsAre(std::string("TRC ") + kEntryHandler + ": Start", std::string("TRC ") + kEntryHandler + ": End",
                  std::string("TRC ") + kEntryHandler + ": Start", std::string("TRC ") + kEntryHandler + ": End"))
      << "it is a plain status";
}

TEST_F(InterfaceEntry, FailedLookUpWithName_ReturnsItsStatus) {
  platform.node_info_failures[kNameOfEntry] = 0x77;
  Request merging(entry("act"));
  EXPECT_EQ(show(merging), 0x77U);
  Request deleting(entry("act").with(YFW_OPERATION_DELETE));
  EXPECT_EQ(show(deleting), 0x77U);
  EXPECT_THAT(added(), IsEmpty());
}

TEST_F(InterfaceEntry, InterfaceWithoutLacp_AddsNothing) {
  platform.node_info[kNameOfEntry] = "MgmtEth0/0/0/0";
  Request request(entry("act"));
  EXPECT_EQ(show(request), YFW_OK);
  EXPECT_THAT(added(), IsEmpty());
  EXPECT_EQ(platform.count("get_intf_type_if_lacp_configured", "\"MgmtEth0/0/0/0\""), 1U);
}

TEST_F(InterfaceEntry, SubInterface_AddsNothingWithoutAskingForLacp) {
  platform.node_info[kNameOfEntry] = "Bundle-Ether1.100";
  Request request(entry("act"));
  EXPECT_EQ(show(request), YFW_OK);
  EXPECT_THAT(added(), IsEmpty());
  EXPECT_EQ(platform.count("get_intf_type_if_lacp_configured"), 0U);
}

TEST_F(InterfaceEntry, DeletedEntry_IsAddedWithItsNodeAndTheSlotAsWord) {
  for (const std::uint32_t edit : {std::uint32_t{YFW_OPERATION_DELETE}, std::uint32_t{YFW_OPERATION_REMOVE}}) {
    Request request(entry("act").with(edit));
    EXPECT_EQ(show(request), YFW_OK);
    const Addition& addition = platform.additions().back();
    EXPECT_EQ(addition.path, "/lacp/interfaces/interface");
    EXPECT_EQ(addition.ns, support::kOpenconfigLacp);
    EXPECT_EQ(addition.value, std::nullopt);
    EXPECT_EQ(addition.source, request.root());
    EXPECT_EQ(addition.word, reinterpret_cast<std::uintptr_t>(&platform.state().current_list_node));
    EXPECT_EQ(addition.list_flag, 1);
    EXPECT_EQ(addition.last_flag, 0);
  }
  EXPECT_EQ(platform.count("yfw_map_search_or_add_list"), 0U);
  EXPECT_EQ(platform.count("yfw_map_copy_trim_path_list_ctx", "\"/lacp/interfaces/interface\""), 2U);
  EXPECT_LT(position("yfw_map_datatree_add_path_flagged"), position("yfw_map_copy_trim_path_list_ctx"));
}

TEST_F(InterfaceEntry, DeletedEntryWithoutLacp_AddsNothing) {
  platform.node_info[kNameOfEntry] = "MgmtEth0/0/0/0";
  Request request(entry("act").with(YFW_OPERATION_DELETE));
  EXPECT_EQ(show(request), YFW_OK);
  EXPECT_THAT(added(), IsEmpty());
  EXPECT_EQ(platform.count("yfw_map_copy_trim_path_list_ctx"), 0U);
}

TEST_F(InterfaceEntry, FailedAddition_ReturnsItsStatus) {
  platform.script("yfw_map_search_or_add_list", 0, 0x77);
  platform.script("yfw_map_datatree_add_path_flagged", 0, 0x78);
  Request merging(entry("act"));
  EXPECT_EQ(show(merging), 0x77U);
  Request deleting(entry("act").with(YFW_OPERATION_DELETE));
  EXPECT_EQ(show(deleting), 0x78U);
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
}

class InterfaceName : public support::ModuleTest {
 protected:
  InterfaceName() { platform.lacp_interfaces = {"Bundle-Ether1", "Bundle-Ether1.100", std::string(300, 'x')}; }

  cerrno report(Request& request) {
    return ymap_qo_oclacp_talvobrinqdifmgrcfg_leaf_lvla_interfaceconfigurations_interfaceconfiguration_interfacename(
        platform.ctx(), request.root(), platform.output());
  }
  cerrno report(const std::string& name, std::uint32_t operation) {
    platform.set_operation(operation);
    Request request(leaf("interface-name", name));
    return report(request);
  }
};

TEST_F(InterfaceName, ConfigRead_ReportsTheNameUnchanged) {
  EXPECT_EQ(report("Bundle-Ether1", YFW_REQUEST_READ_CONFIG), YFW_OK);
  EXPECT_EQ(only_addition().path, "/lacp/interfaces/interface/name");
  EXPECT_EQ(only_addition().value, "Bundle-Ether1");
  EXPECT_EQ(only_addition().ns, support::kOpenconfigLacp);
  EXPECT_EQ(only_addition().source, nullptr);
  EXPECT_EQ(only_addition().word, 0U);
  EXPECT_EQ(only_addition().list_flag, 0);
  EXPECT_EQ(only_addition().last_flag, 0);
}

TEST_F(InterfaceName, StateRead_ReportsTheNameAsStateToo) {
  for (const std::uint32_t operation : {0U, 1U, 8U, 15U}) EXPECT_EQ(report("Bundle-Ether1", operation), YFW_OK);
  EXPECT_THAT(added(), testing::Each("/lacp/interfaces/interface/name=Bundle-Ether1"));
  EXPECT_EQ(report("Bundle-Ether1", YFW_REQUEST_READ_STATE), YFW_OK);
  ASSERT_EQ(platform.additions().size(), 6U);
  EXPECT_EQ(added()[4], "/lacp/interfaces/interface/name=Bundle-Ether1");
  EXPECT_EQ(added()[5], "/lacp/interfaces/interface/state/name=Bundle-Ether1");
}

TEST_F(InterfaceName, FailedAddition_ReturnsTheStatusOfTheLast) {
  platform.script("yfw_map_datatree_add_path_flagged", 0, 0x77, "\"/lacp/interfaces/interface/name\"");
  EXPECT_EQ(report("Bundle-Ether1", YFW_REQUEST_READ_CONFIG), 0x77U);
  EXPECT_EQ(report("Bundle-Ether1", YFW_REQUEST_READ_STATE), YFW_OK);
  platform.script("yfw_map_datatree_add_path_flagged", 0, 0x78, "\"/lacp/interfaces/interface/state/name\"");
  EXPECT_EQ(report("Bundle-Ether1", YFW_REQUEST_READ_STATE), 0x78U);
}

TEST_F(InterfaceName, MissingValue_IsRecordedAsMalformed) {
  Request request(leaf("interface-name"));
  EXPECT_EQ(report(request), YFW_MALFORMED_TREE);
  EXPECT_THAT(platform.trace(),
              ElementsAre(std::string("TRC ") + kNameHandler + ": Start",
                          std::string("ERR ") + kNameHandler + ": Data interface name does not exists",
                          std::string("TRC ") + kNameHandler + ": End"));
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
}

TEST_F(InterfaceName, SubInterfaceOrNoLacp_IsNotReported) {
  EXPECT_EQ(report("Bundle-Ether1.100", YFW_REQUEST_READ_STATE), YFW_OK);
  EXPECT_EQ(platform.count("get_intf_type_if_lacp_configured"), 0U);
  EXPECT_EQ(report("MgmtEth0/0/0/0", YFW_REQUEST_READ_STATE), YFW_OK);
  EXPECT_THAT(added(), IsEmpty());
}

TEST_F(InterfaceName, Name_IsKeptInTheClearedScratchBuffer) {
  std::memset(platform.state().interface_name, 'y', sizeof platform.state().interface_name);
  EXPECT_EQ(report("Bundle-Ether1.100", YFW_REQUEST_READ_CONFIG), YFW_OK);
  EXPECT_STREQ(platform.state().interface_name, "Bundle-Ether1.100");
  for (std::size_t i = 17; i < sizeof platform.state().interface_name; ++i) {
    ASSERT_EQ(platform.state().interface_name[i], '\0') << "byte " << i;
  }
}

TEST_F(InterfaceName, TooLongName_IsCutInTheScratchBufferOnly) {
  EXPECT_EQ(report(std::string(300, 'x'), YFW_REQUEST_READ_CONFIG), YFW_OK);
  EXPECT_EQ(std::string(platform.state().interface_name), std::string(199, 'x'));
  EXPECT_EQ(only_addition().value, std::string(300, 'x'));
  EXPECT_EQ(platform.state().output_list_count, 0U) << "nothing behind the buffer is written";
}

TEST_F(InterfaceName, Callback_ReportsTheSameUnderItsOwnName) {
  platform.set_operation(YFW_REQUEST_READ_STATE);
  Request request(leaf("interface-name", "Bundle-Ether1"));
  EXPECT_EQ(qd_to_oc_interface_name_leaf_cb(platform.ctx(), request.root(), platform.output()), YFW_OK);
  EXPECT_THAT(added(), ElementsAre("/lacp/interfaces/interface/name=Bundle-Ether1",
                                   "/lacp/interfaces/interface/state/name=Bundle-Ether1"));
  EXPECT_THAT(platform.trace(),
              ElementsAre("TRC qd_to_oc_interface_name_leaf_cb: Start", "TRC qd_to_oc_interface_name_leaf_cb: End"));
}

class AugmentDispatcher : public support::ModuleTest {
 protected:
  cerrno hand(Node node) {
    Request request(std::move(node));
    const cerrno status =
        ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_parse_augments(
            platform.ctx(), request.root(), platform.output());
    EXPECT_THAT(support::left_behind(platform, request), IsEmpty());
    return status;
  }
  [[nodiscard]] unsigned started(char level) const {
    return platform.traced(
        std::string("ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvl") + level + "_interface_configuration",
        "Start");
  }
};

TEST_F(AugmentDispatcher, NodeOfTheModule_GoesToItsWalkerOrThatOfBundleMember) {
  for (const char* tag : {"bundle", "lacp", "bundle-member", "bfd", "mlacp", "unheard-of"}) {
    EXPECT_EQ(hand(container(tag).in(support::kBundlemgrCfg)), YFW_OK) << tag;
  }
  EXPECT_EQ(started('b'), 1U);
  EXPECT_EQ(started('c'), 1U);
  EXPECT_EQ(started('d'), 4U);
  EXPECT_EQ(started('a') + started('e'), 0U) << "the walkers of bfd and mlacp are never reached";
}

TEST_F(AugmentDispatcher, NodeOfOtherModule_IsIgnored) {
  for (const char* ns : {"urn:other", support::kBundlemgrOper, support::kOpenconfigLacp}) {
    EXPECT_EQ(hand(container("lacp").in(ns)), YFW_OK) << ns;
  }
  EXPECT_EQ(started('b') + started('c') + started('d'), 0U);
}

TEST_F(AugmentDispatcher, FailedWalker_ReturnsItsStatus) {
  Node tagless = container("", {}).in(support::kBundlemgrCfg);
  tagless.tag = std::nullopt;
  EXPECT_EQ(hand(std::move(tagless)), YFW_MALFORMED_TREE);
}

class InterfaceOfTree : public support::ModuleTest {};

TEST_F(InterfaceOfTree, Name_IsTheKeyOfTheCurrentEntry) {
  platform.node_info[kNameOfEntry] = "Bundle-Ether1";
  const char* name = nullptr;
  EXPECT_EQ(get_intf_name_from_tree(platform.ctx(), &name), YFW_OK);
  EXPECT_STREQ(name, "Bundle-Ether1");
  platform.script("yfw_map_get_node_info", 0, 0x77);
  EXPECT_EQ(get_intf_name_from_tree(platform.ctx(), &name), 0x77U);
  EXPECT_THAT(platform.trace(), IsEmpty()) << "it records nothing";
}

}  // namespace
