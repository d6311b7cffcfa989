#include <string>

#include "oclacp/openconfig_lacp.h"
#include "unit/module_test.h"

namespace {

using support::container;
using support::interface_entry;
using support::lacp_with_interfaces;
using support::leaf;
using support::Node;
using support::Request;
using testing::IsEmpty;

constexpr char kDeletion[] = "oclacp_to_qd_bundle_lacp_config_delete";
constexpr char kEntry[] = "/interface-configurations/interface-configuration/";
constexpr char kActive[] = "/interface-configurations/interface-configuration/active";
constexpr char kName[] = "/interface-configurations/interface-configuration/interface-name";
constexpr char kLacp[] = "/interface-configurations/interface-configuration/lacp";
constexpr char kPriority[] = "/lacp/system-priority";
constexpr cerrno kFailure = 0x61;

class Deletion : public support::ModuleTest {
 protected:
  void SetUp() override { platform.store_items = {"Bundle-Ether1/lacp/", "Bundle-Ether2/lacp/"}; }

  cerrno run(Request& request) {
    return oclacp_to_qd_bundle_lacp_config_delete(platform.ctx(), request.root(), platform.output());
  }

  // What a deleted interface adds.
  static std::vector<std::string> deletion_of(const std::string& name) {
    return {kEntry, std::string(kActive) + "=act", std::string(kName) + "=" + name, kLacp};
  }

  static Node entry_of(const char* name, std::uint32_t operation = YFW_OPERATION_DELETE) {
    return interface_entry(name).with(operation);
  }

  Request entry{entry_of("Bundle-Ether2")};
  Request unconfigured{entry_of("Bundle-Ether7")};
  Request all{container("lacp").with(YFW_OPERATION_REMOVE)};
};

// ---- The data store

TEST_F(Deletion, Interface_QueriesTheDataStoreForInterfacesWithLacp) {
  run(entry);
  EXPECT_EQ(platform.count("_sysdb_bind", "\"/cfg/if/act/\" flags=4"), 1U);
  EXPECT_EQ(platform.count("sysdb_find", "\".*/lacp/\" \"\" flags=4"), 1U);
}

TEST_F(Deletion, EndOfDeletion_ReleasesTheListBeforeTheConnection) {
  run(entry);
  EXPECT_LT(position("sysdb_list_free"), position("_sysdb_unbind"));
  EXPECT_LT(position("_sysdb_unbind"), position("_lstrace", "End"));
  EXPECT_THAT(support::left_behind(platform, entry), IsEmpty());
}

TEST_F(Deletion, FailedBind_IsRecordedWithPathAndError) {
  platform.script("_sysdb_bind", 0, kFailure);
  EXPECT_EQ(run(entry), YFW_NOTHING_TO_DELETE);
  EXPECT_EQ(platform.traced(kDeletion, "Unable to bind to Sysdb: path:/cfg/if/act/, error:status 0x00000061"), 1U);
  EXPECT_EQ(platform.count("sysdb_find"), 0U);
  EXPECT_EQ(platform.count("_sysdb_unbind"), 0U);
  EXPECT_THAT(added(), IsEmpty());
}

TEST_F(Deletion, FailedFind_IsRecordedWithTheBoundPathAndUnbinds) {
  platform.script("sysdb_find", 0, kFailure);
  EXPECT_EQ(run(entry), YFW_NOTHING_TO_DELETE);
  EXPECT_EQ(platform.traced(kDeletion, "Unable to find items in Sysdb: path:/cfg/if/act/, error:status 0x00000061"),
            1U);
  EXPECT_EQ(platform.count("sysdb_list_free"), 0U);
  EXPECT_EQ(platform.count("_sysdb_unbind"), 1U);
}

TEST_F(Deletion, FailedIteration_IsRecordedAndReleasesEverything) {
  platform.script("sysdb_list_next", 2, kFailure);
  EXPECT_EQ(run(entry), YFW_NOTHING_TO_DELETE);
  EXPECT_EQ(platform.traced(kDeletion, "Unable to iterate the sysdb list: error:status 0x00000061"), 1U);
  EXPECT_THAT(added(), IsEmpty());
  EXPECT_THAT(support::left_behind(platform, entry), IsEmpty());
}

TEST_F(Deletion, FailedIterationForAllOfLacp_SkipsTheSubtree) {
  platform.script("sysdb_list_next", 2, kFailure);
  EXPECT_EQ(run(all), YFW_SKIP_SUBTREE);
  EXPECT_EQ(added(), deletion_of("Bundle-Ether1"));
}

TEST_F(Deletion, FailedRelease_IsIgnored) {
  platform.script("sysdb_list_free", 0, kFailure);
  platform.script("_sysdb_unbind", 0, kFailure);
  EXPECT_EQ(run(entry), YFW_SKIP_SUBTREE);
}

TEST_F(Deletion, EmptyDataStore_AddsNothingAndFreesNoList) {
  platform.store_items.clear();
  EXPECT_EQ(run(entry), YFW_NOTHING_TO_DELETE);
  EXPECT_EQ(run(all), YFW_SKIP_SUBTREE);
  EXPECT_THAT(added(), IsEmpty());
  EXPECT_EQ(platform.count("sysdb_list_free"), 0U);
  EXPECT_EQ(platform.count("_sysdb_unbind"), 2U);
}

TEST_F(Deletion, SuccessfulIteration_SetsTheDoneMark) {
  for (Request* request : {&entry, &unconfigured, &all}) {
    platform.state().deletion_done = 9;
    run(*request);
    EXPECT_EQ(platform.state().deletion_done, 1U);
  }
  platform.store_items.clear();
  platform.state().deletion_done = 9;
  run(unconfigured);
  EXPECT_EQ(platform.state().deletion_done, 1U) << "there was nothing to walk";
}

TEST_F(Deletion, StartOfIteration_ClearsTheDoneMark) {
  platform.state().deletion_done = 9;
  std::uint32_t seen = 9;
  platform.before("sysdb_list_next", 1, [&] { seen = platform.state().deletion_done; });
  run(entry);
  EXPECT_EQ(seen, 0U);
}

TEST_F(Deletion, FailedIteration_LeavesTheDoneMarkClear) {
  platform.state().deletion_done = 9;
  platform.script("sysdb_list_next", 0, kFailure);
  run(entry);
  EXPECT_EQ(platform.state().deletion_done, 0U);
}

TEST_F(Deletion, FailedFind_LeavesTheDoneMarkUnchanged) {
  platform.state().deletion_done = 9;
  platform.script("sysdb_find", 0, kFailure);
  run(entry);
  EXPECT_EQ(platform.state().deletion_done, 9U);
}

// ---- One interface

TEST_F(Deletion, Interface_DeletesItsLacpContainerAndSkipsTheSubtree) {
  EXPECT_EQ(run(entry), YFW_SKIP_SUBTREE);
  EXPECT_EQ(added(), deletion_of("Bundle-Ether2"));
  EXPECT_EQ(platform.traced(kDeletion, "End"), 1U);
}

TEST_F(Deletion, Additions_HaveTheirNamespacesAndFlags) {
  run(entry);
  ASSERT_EQ(platform.additions().size(), 4U);
  struct Expected {
    const char* ns;
    int list_flag;
    int last_flag;
    std::uint32_t operation;
  };
  const Expected expected[] = {{support::kIfmgrCfg, 1, 0, YFW_OPERATION_NONE},
                               {support::kIfmgrCfg, 0, 0, YFW_OPERATION_NONE},
                               {support::kIfmgrCfg, 0, 0, YFW_OPERATION_NONE},
                               {support::kBundlemgrCfg, 0, 1, YFW_OPERATION_REMOVE}};
  for (std::size_t i = 0; i < 4; ++i) {
    const support::Addition& addition = platform.additions()[i];
    SCOPED_TRACE(addition.path);
    EXPECT_EQ(addition.ns, expected[i].ns);
    EXPECT_EQ(addition.list_flag, expected[i].list_flag);
    EXPECT_EQ(addition.last_flag, expected[i].last_flag);
    EXPECT_EQ(addition.word, 0U);
    EXPECT_EQ(addition.source, entry.root());
    EXPECT_EQ(addition.operation, expected[i].operation);
  }
}

TEST_F(Deletion, MatchedEntry_KeepsTheWorkingOperation) {
  run(entry);
  EXPECT_EQ(entry.root()->operation, std::uint32_t{YFW_OPERATION_REMOVE});
  EXPECT_NE(entry.root()->flags & YFW_FLAG_OPERATION_CHANGED, 0U);
}

TEST_F(Deletion, UnmatchedEntry_IsUnchanged) {
  EXPECT_EQ(run(unconfigured), YFW_NOTHING_TO_DELETE);
  EXPECT_EQ(unconfigured.fields(), unconfigured.fields_as_built());
}

TEST_F(Deletion, Interface_StopsAtTheFirstMatch) {
  platform.store_items = {"Bundle-Ether2/lacp/", "Bundle-Ether2/other/lacp/", "Bundle-Ether3/lacp/"};
  EXPECT_EQ(run(entry), YFW_SKIP_SUBTREE);
  EXPECT_EQ(platform.count("sysdb_list_next"), 1U);
  EXPECT_EQ(added(), deletion_of("Bundle-Ether2"));
}

TEST_F(Deletion, ItemNameContainedInTheInterfaceName_Matches) {
  Request request(entry_of("Bundle-Ether10"));
  platform.store_items = {"Bundle-Ether1/lacp/", "Bundle-Ether10/lacp/"};
  EXPECT_EQ(run(request), YFW_SKIP_SUBTREE);
  EXPECT_EQ(added(), deletion_of("Bundle-Ether1"));
}

TEST_F(Deletion, LongerItemName_DoesNotMatch) {
  Request request(entry_of("Bundle-Ether1"));
  platform.store_items = {"Bundle-Ether10/lacp/"};
  EXPECT_EQ(run(request), YFW_NOTHING_TO_DELETE);
}

TEST_F(Deletion, NameInOtherCase_DoesNotMatch) {
  Request request(entry_of("bundle-ether1"));
  EXPECT_EQ(run(request), YFW_NOTHING_TO_DELETE);
}

TEST_F(Deletion, DisplayName_IsThatOfTheInterfaceManager) {
  platform.display_names["Bundle-Ether2"] = "BE2";
  run(entry);
  EXPECT_EQ(platform.count("imc_display_namestring", "\"Bundle-Ether2\" size=64"), 1U);
  EXPECT_EQ(added(), deletion_of("BE2"));
}

TEST_F(Deletion, FailedDisplayName_IsNotAnError) {
  platform.script("imc_display_namestring", 0, kFailure);
  EXPECT_EQ(run(entry), YFW_SKIP_SUBTREE);
  EXPECT_EQ(added(), deletion_of(""));
}

TEST_F(Deletion, DeleteOfInterfaceWithoutLacp_IsRefused) {
  EXPECT_EQ(run(unconfigured), YFW_NOTHING_TO_DELETE);
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 1U);
  EXPECT_EQ(platform.error_tag(), "");
  EXPECT_EQ(platform.traced(kDeletion, "End"), 1U);
}

TEST_F(Deletion, RemoveOfInterfaceWithoutLacp_IsNotAnError) {
  Request request(entry_of("Bundle-Ether7", YFW_OPERATION_REMOVE));
  EXPECT_EQ(run(request), YFW_OK);
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
}

TEST_F(Deletion, RemoveWithFailedBind_IsNotAnError) {
  Request request(entry_of("Bundle-Ether2", YFW_OPERATION_REMOVE));
  platform.script("_sysdb_bind", 0, kFailure);
  EXPECT_EQ(run(request), YFW_OK);
}

TEST_F(Deletion, EntryWithoutOperation_ReturnsTheLastStatus) {
  Request request(interface_entry("Bundle-Ether7"));
  EXPECT_EQ(run(request), YFW_OK);
  platform.script("sysdb_find", 0, kFailure);
  EXPECT_EQ(run(request), kFailure);
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
}

TEST_F(Deletion, UnmatchedEntryInReplace_IsSkipped) {
  platform.state().replace_restore = 1;
  EXPECT_EQ(run(unconfigured), YFW_SKIP_SUBTREE);
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
}

TEST_F(Deletion, EntryWithoutChildren_MatchesNothing) {
  Request hidden(entry_of("Bundle-Ether2"));
  hidden.root()->children = nullptr;
  hidden.root()->child_count = 0;
  hidden.root()->flags = 0;
  EXPECT_EQ(run(hidden), YFW_NOTHING_TO_DELETE);
}

TEST_F(Deletion, FirstChildWithoutValue_MatchesNothing) {
  Request request(container("interface", {leaf("name")}).with(YFW_OPERATION_DELETE));
  EXPECT_EQ(run(request), YFW_NOTHING_TO_DELETE);
}

TEST_F(Deletion, NameOfEntry_IsTheValueOfItsFirstChild) {
  Request request(container("interface", {leaf("other", "Bundle-Ether1"), leaf("name", "Bundle-Ether2")})
                      .with(YFW_OPERATION_DELETE));
  EXPECT_EQ(run(request), YFW_SKIP_SUBTREE);
  EXPECT_EQ(added(), deletion_of("Bundle-Ether1"));
}

TEST_F(Deletion, ItemWithoutName_IsSkipped) {
  platform.store_items = {"/", "Bundle-Ether2/lacp/"};
  EXPECT_EQ(run(entry), YFW_SKIP_SUBTREE);
  EXPECT_EQ(added(), deletion_of("Bundle-Ether2"));
}

// ---- Additions that fail

TEST_F(Deletion, FailedAddition_ReturnsItsCodeAndLeavesTheDataStoreOpen) {
  for (unsigned nth = 1; nth <= 4; ++nth) {
    SCOPED_TRACE(nth);
    support::Platform own;
    own.store_items = {"Bundle-Ether2/lacp/"};
    own.script("yfw_map_datatree_add_path_flagged", nth, kFailure);
    Request request(entry_of("Bundle-Ether2"));
    EXPECT_EQ(oclacp_to_qd_bundle_lacp_config_delete(own.ctx(), request.root(), own.output()), kFailure);
    EXPECT_EQ(own.additions().size(), nth - 1) << "nothing is added after the failure";
    EXPECT_EQ(own.traced(kDeletion, "End"), 1U);
    EXPECT_EQ(own.count("yfw_oc_error_path"), 0U);
    EXPECT_EQ(own.seen().lists.size(), 1U);
    EXPECT_EQ(own.seen().connections.size(), 1U);
    const std::uint32_t left = nth < 4 ? YFW_OPERATION_NONE : YFW_OPERATION_REMOVE;
    EXPECT_EQ(request.root()->operation, left);
    EXPECT_NE(request.root()->flags & YFW_FLAG_OPERATION_CHANGED, 0U);
    EXPECT_EQ(own.state().deletion_done, 0U);
  }
}

TEST_F(Deletion, FailedAddition_RecordsItsEndAtAnotherPlace) {
  Request request(entry_of("Bundle-Ether2"));
  EXPECT_EQ(run(request), YFW_SKIP_SUBTREE);
  const support::Place ordinary = support::place_of(platform, "End");
  platform.script("yfw_map_datatree_add_path_flagged", 1, kFailure);
  EXPECT_EQ(run(request), kFailure);
  support::expect_two_places(ordinary, support::place_of(platform, "End"));
}

// ---- All of LACP

TEST_F(Deletion, AllOfLacp_DeletesEveryItemAndSkipsTheSubtree) {
  platform.store_items.emplace_back("GigabitEthernet0_0_0_1/lacp/");
  EXPECT_EQ(run(all), YFW_SKIP_SUBTREE);
  std::vector<std::string> expected;
  for (const char* name : {"Bundle-Ether1", "Bundle-Ether2", "GigabitEthernet0/0/0/1"}) {
    for (const std::string& path : deletion_of(name)) expected.push_back(path);
  }
  EXPECT_EQ(added(), expected);
}

TEST_F(Deletion, AllOfLacp_DeletesAnInterfaceOncePerItem) {
  platform.store_items = {"Bundle-Ether1/lacp/", "Bundle-Ether1/sub/lacp/"};
  EXPECT_EQ(run(all), YFW_SKIP_SUBTREE);
  EXPECT_EQ(platform.additions().size(), 8U);
}

TEST_F(Deletion, FailedDataStoreForAllOfLacp_SkipsTheSubtree) {
  for (const char* function : {"_sysdb_bind", "sysdb_find", "sysdb_list_next"}) {
    platform.script(function, 1, kFailure);
    EXPECT_EQ(run(all), YFW_SKIP_SUBTREE) << function;
  }
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
}

TEST_F(Deletion, OtherContainer_DeletesEveryItem) {
  Request interfaces(container("interfaces").with(YFW_OPERATION_REMOVE));
  EXPECT_EQ(run(interfaces), YFW_SKIP_SUBTREE);
  EXPECT_EQ(platform.additions().size(), 8U);
}

// ---- The functions around it

TEST_F(Deletion, GlobalPriority_IsAddedWithNodeAndWithoutValue) {
  EXPECT_EQ(delete_global_lacp(platform.ctx(), all.root(), platform.output()), YFW_OK);
  EXPECT_EQ(only_addition().path, kPriority);
  EXPECT_EQ(only_addition().ns, support::kBundlemgrCfg);
  EXPECT_EQ(only_addition().value, std::nullopt);
  EXPECT_EQ(only_addition().source, all.root());
  EXPECT_EQ(only_addition().operation, std::uint32_t{YFW_OPERATION_REMOVE});
  EXPECT_EQ(only_addition().list_flag, 0);
  EXPECT_EQ(only_addition().last_flag, 0);
}

TEST_F(Deletion, FailedGlobalPriority_ReturnsItsStatus) {
  platform.script("yfw_map_datatree_add_path_flagged", 0, kFailure);
  EXPECT_EQ(delete_global_lacp(platform.ctx(), all.root(), platform.output()), kFailure);
  EXPECT_EQ(platform.traced("delete_global_lacp", "End"), 1U);
}

TEST_F(Deletion, AllConfiguration_StartsWithTheGlobalPriority) {
  EXPECT_EQ(oc_to_qd_all_lacp_cfg_delete(platform.ctx(), all.root(), platform.output()), YFW_SKIP_SUBTREE);
  ASSERT_EQ(platform.additions().size(), 9U);
  EXPECT_EQ(platform.additions()[0].path, kPriority);
}

TEST_F(Deletion, FailedGlobalPriorityOfAllConfiguration_IsIgnored) {
  platform.script("yfw_map_datatree_add_path_flagged", 1, kFailure);
  EXPECT_EQ(oc_to_qd_all_lacp_cfg_delete(platform.ctx(), all.root(), platform.output()), YFW_SKIP_SUBTREE);
  EXPECT_EQ(platform.additions().size(), 8U);
}

TEST_F(Deletion, Entry_LeavesTheGlobalPriorityUnchanged) {
  EXPECT_EQ(oc_to_qd_all_lacp_cfg_delete(platform.ctx(), entry.root(), platform.output()), YFW_SKIP_SUBTREE);
  EXPECT_EQ(added(), deletion_of("Bundle-Ether2"));
  EXPECT_EQ(platform.traced("delete_global_lacp", "Start"), 0U);
}

TEST_F(Deletion, AllConfiguration_ReturnsTheStatusOfTheInterfaces) {
  EXPECT_EQ(oc_to_qd_all_lacp_cfg_delete(platform.ctx(), unconfigured.root(), platform.output()),
            YFW_NOTHING_TO_DELETE);
  EXPECT_EQ(platform.traced("oc_to_qd_all_lacp_cfg_delete", "End"), 1U);
}

TEST_F(Deletion, LacpInRequest_DeletesEveryInterfaceAndTheGlobalPriority) {
  Request request(container("lacp").with(YFW_OPERATION_DELETE));
  EXPECT_EQ(ymap_oq_oclacp_openconfiglacp_lvla_lacp(platform.ctx(), request.root(), platform.output()), YFW_OK);
  std::vector<std::string> expected = {kPriority, kPriority};
  for (const char* name : {"Bundle-Ether1", "Bundle-Ether2"}) {
    for (const std::string& path : deletion_of(name)) expected.push_back(path);
  }
  EXPECT_EQ(added(), expected);
  EXPECT_THAT(support::left_behind(platform, request), IsEmpty());
}

TEST_F(Deletion, EntryInRequest_WalksNothingBelowIt) {
  Request request(lacp_with_interfaces({entry_of("Bundle-Ether2")}));
  EXPECT_EQ(ymap_oq_oclacp_openconfiglacp_lvla_lacp(platform.ctx(), request.root(), platform.output()), YFW_OK);
  EXPECT_EQ(added(), deletion_of("Bundle-Ether2"));
  EXPECT_EQ(platform.traced("ymap_oq_oclacp_openconfiglacp_lvla_lacp_interface_name", "Start"), 0U);
  EXPECT_THAT(support::left_behind(platform, request), IsEmpty());
}

}  // namespace
