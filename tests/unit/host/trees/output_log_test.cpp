#include "host/trees/output_log.h"

#include "host/base/status_text.h"
#include "tests/unit/host/trees/output_log_test.h"

namespace oclacp::host {
namespace {

class EditLogTest : public OutputLogTest {
 protected:
  uint32_t operation_of(const std::string& path, const char* ns, const char* value, const yfw_datatree* from) {
    EXPECT_EQ(add(edit_, path, ns, value, from), YFW_OK) << edit_.complaint();
    return edit_.additions().back().operation;
  }
};

TEST_F(EditLogTest, Leaf_IsInTheEntryOpenedLast) {
  open(edit_, "a", merge_);
  EXPECT_EQ(add_lacp(edit_, "mode", "active", merge_), YFW_OK);
  EXPECT_EQ(last_entry_name(edit_), "a");
  open(edit_, "b", merge_);
  EXPECT_EQ(add_lacp(edit_, "mode", "active", merge_), YFW_OK);
  EXPECT_EQ(last_entry_name(edit_), "b");
  EXPECT_EQ(edit_.entries().size(), 2U);
}

TEST_F(EditLogTest, LeafOutsideOfLists_IsInNoEntry) {
  open(edit_, "a", merge_);
  EXPECT_EQ(add(edit_, "/lacp/system-priority", kBundlemgr, "1", merge_), YFW_OK);
  EXPECT_EQ(edit_.additions().back().entry, OutputLog::kNoEntry);
}

TEST_F(EditLogTest, LeafWithoutACurrentEntry_OpensOne) {
  EXPECT_EQ(add_lacp(edit_, "mode", "active", merge_), YFW_OK);
  EXPECT_EQ(last_entry_name(edit_), "unnamed");
  name_entry(edit_, "a", merge_);
  EXPECT_EQ(edit_.entries().size(), 1U);
  EXPECT_TRUE(edit_.entries()[0].has_keys());
}

TEST_F(EditLogTest, ListPathWithATrailingSlash_OpensAnEntry) {
  EXPECT_EQ(edit_.add(std::string(kEntry) + "/", kIfmgr, nullptr, merge_, true), YFW_OK);
  EXPECT_EQ(edit_.add(std::string(kEntry) + "/", kIfmgr, nullptr, merge_, true), YFW_OK);
  EXPECT_EQ(edit_.entries().size(), 2U);
}

TEST_F(EditLogTest, NextInputEntry_ClosesTheOutputEntry) {
  edit_.enter_list("/lacp/interfaces/interface");
  open(edit_, "a", merge_);
  edit_.enter_list("/lacp/interfaces/interface");
  EXPECT_EQ(add_lacp(edit_, "mode", "active", merge_), YFW_OK);
  EXPECT_EQ(last_entry_name(edit_), "unnamed") << "the leaf landed in the neighbour of a skipped entry";
}

TEST_F(EditLogTest, InnerInputList_LeavesTheOuterEntryOpen) {
  edit_.enter_list("/lacp/interfaces/interface");
  open(edit_, "a", merge_);
  for (int member = 0; member < 2; ++member) {
    edit_.enter_list("/lacp/interfaces/interface/members/member");
    EXPECT_EQ(add_lacp(edit_, "mode", "active", merge_), YFW_OK);
    EXPECT_EQ(last_entry_name(edit_), "a");
  }
}

TEST_F(EditLogTest, LeavingAnInputList_ClosesItsOutputEntries) {
  const size_t outside = edit_.list_depth();
  edit_.enter_list("/lacp/interfaces/interface");
  open(edit_, "a", merge_);
  edit_.leave_lists(outside);
  EXPECT_EQ(add_lacp(edit_, "mode", "active", merge_), YFW_OK);
  EXPECT_EQ(last_entry_name(edit_), "unnamed");
}

TEST_F(EditLogTest, ListWithTheSamePrefix_IsNotAnInnerList) {
  edit_.enter_list("/a/b");
  open(edit_, "a", merge_);
  edit_.enter_list("/a/bc");
  EXPECT_EQ(add_lacp(edit_, "mode", "active", merge_), YFW_OK);
  EXPECT_EQ(last_entry_name(edit_), "unnamed");
}

TEST_F(EditLogTest, NextOuterOutputEntry_ClosesTheInnerEntry) {
  OutputLog read(paths_, false);
  const std::string bundle = "/lacp-bundles/bundles/bundle";
  const std::string member = bundle + "/members/member";
  const auto add_entry = [&](const std::string& list) {
    EXPECT_EQ(read.add(list, kBundlemgrOper, nullptr, nullptr, true), YFW_OK);
    return read.additions().back().entry;
  };
  const int first_bundle = add_entry(bundle);
  const int first_member = add_entry(member);
  EXPECT_EQ(read.entries()[static_cast<size_t>(first_member)].parent, first_bundle);
  const int second_bundle = add_entry(bundle);
  EXPECT_EQ(add(read, member + "/member-interface", kBundlemgrOper, nullptr, nullptr), YFW_OK);
  const int opened = read.additions().back().entry;
  EXPECT_NE(opened, first_member);
  EXPECT_EQ(read.entries()[static_cast<size_t>(opened)].parent, second_bundle);
}

TEST_F(EditLogTest, OtherValueForAKey_OpensAnotherEntry) {
  open(edit_, "a", merge_);
  name_entry(edit_, "a", merge_);
  EXPECT_EQ(edit_.entries().size(), 1U);
  name_entry(edit_, "b", merge_);
  EXPECT_EQ(edit_.entries().size(), 2U);
  EXPECT_EQ(last_entry_name(edit_), "b");
}

TEST_F(EditLogTest, DeletionOfTheSource_AppliesToTheNode) {
  const std::string leaf = "/lacp/system-priority";
  EXPECT_EQ(operation_of(leaf, kBundlemgr, nullptr, source(YFW_OPERATION_DELETE)), uint32_t{YFW_OPERATION_DELETE});
  EXPECT_EQ(operation_of(leaf, kBundlemgr, nullptr, source(YFW_OPERATION_REMOVE)), uint32_t{YFW_OPERATION_REMOVE});
  EXPECT_EQ(operation_of(leaf, kBundlemgr, nullptr, source_below(YFW_OPERATION_DELETE)),
            uint32_t{YFW_OPERATION_REMOVE});
  EXPECT_EQ(operation_of(leaf, kBundlemgr, "1", merge_), uint32_t{YFW_OPERATION_NONE});
}

TEST_F(EditLogTest, ReplaceOrCreate_AppliesToLeavesOnly) {
  for (const uint32_t operation : {YFW_OPERATION_REPLACE, YFW_OPERATION_CREATE}) {
    const yfw_datatree* from = source(operation);
    EXPECT_EQ(operation_of("/lacp/system-priority", kBundlemgr, "1", from), operation);
    EXPECT_EQ(operation_of(kEntry, kIfmgr, nullptr, from), uint32_t{YFW_OPERATION_NONE});
    EXPECT_EQ(operation_of(std::string(kEntry) + "/active", kIfmgr, "act", from), uint32_t{YFW_OPERATION_NONE});
    EXPECT_EQ(operation_of(std::string(kEntry) + "/lacp", kBundlemgr, nullptr, from), uint32_t{YFW_OPERATION_NONE});
  }
}

TEST_F(EditLogTest, RemoveAboveTheSource_DoesNotApplyToEntriesAndKeys) {
  const yfw_datatree* from = source_below(YFW_OPERATION_REMOVE);
  EXPECT_EQ(operation_of(kEntry, kIfmgr, nullptr, from), uint32_t{YFW_OPERATION_NONE});
  EXPECT_EQ(operation_of(std::string(kEntry) + "/active", kIfmgr, "act", from), uint32_t{YFW_OPERATION_NONE});
  EXPECT_EQ(operation_of(kEntry, kIfmgr, nullptr, source(YFW_OPERATION_DELETE)), uint32_t{YFW_OPERATION_DELETE});
}

TEST_F(EditLogTest, LeafWithoutAValue_IsRefusedUnlessOfTypeEmpty) {
  EXPECT_EQ(operation_of(std::string(kEntry) + "/interface-virtual", kIfmgr, nullptr, merge_),
            uint32_t{YFW_OPERATION_NONE});
  EXPECT_EQ(add(edit_, "/lacp/system-priority", kBundlemgr, nullptr, merge_), kMissingValue);
  EXPECT_EQ(edit_.complaint(), "native /lacp/system-priority: the leaf needs a value");
  EXPECT_EQ(add(edit_, "/lacp/system-priority", kBundlemgr, nullptr, nullptr), kMissingValue);
}

TEST_F(EditLogTest, UnknownPath_IsRefused) {
  EXPECT_EQ(add(edit_, "/no/such", kBundlemgr, "1", merge_), kUnknownPath);
  EXPECT_EQ(edit_.complaint(), "native /no/such: no such native node");
  EXPECT_TRUE(edit_.additions().empty());
}

TEST_F(EditLogTest, Read_TakesAnyValueAndNone) {
  OutputLog read(paths_, false);
  EXPECT_EQ(add_lacp(read, "period", "FAST", nullptr), YFW_OK);
  EXPECT_TRUE(read.additions().back().has_value);
  EXPECT_EQ(add_lacp(read, "period", nullptr, nullptr), YFW_OK);
  EXPECT_FALSE(read.additions().back().has_value);
  EXPECT_EQ(add_lacp(read, "period", "", nullptr), YFW_OK);
  EXPECT_TRUE(read.additions().back().has_value);
}

TEST_F(EditLogTest, Value_IsCopied) {
  std::string value = "active";
  EXPECT_EQ(add_lacp(edit_, "mode", value.c_str(), merge_), YFW_OK);
  value = "passive";
  EXPECT_EQ(edit_.additions().back().value, "active");
}

TEST_F(EditLogTest, DropIf_ForgetsWhatIsChosenInOrder) {
  const yfw_datatree* other = source(YFW_OPERATION_REMOVE);
  open(edit_, "a", merge_);
  open(edit_, "b", other);
  EXPECT_EQ(add_lacp(edit_, "mode", "active", merge_), YFW_OK);
  edit_.drop_if([&](const OutputLog::Addition& addition) { return addition.source == other; });
  ASSERT_EQ(edit_.additions().size(), 4U);
  EXPECT_TRUE(edit_.additions().front().target->is_list());
  EXPECT_EQ(edit_.additions().back().value, "active");
}

}  // namespace
}  // namespace oclacp::host
