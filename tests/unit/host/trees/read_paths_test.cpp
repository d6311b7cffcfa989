#include "host/trees/read_paths.h"

#include "tests/unit/host/trees/output_log_test.h"

namespace oclacp::host {
namespace {

class ReadPathsTest : public OutputLogTest {
 protected:
  OutputLog read_{paths_, false};
};

const std::string kList = "/Talvo-Brin-QD-ifmgr-cfg:interface-configurations/interface-configuration";
const std::string kLacp = "/Talvo-Brin-QD-bundlemgr-cfg:lacp";

TEST_F(ReadPathsTest, LeafOfAnEntry_ListedWithModulesAndKeys) {
  open(read_, "a", nullptr);
  add_lacp(read_, "period", nullptr, nullptr);
  EXPECT_THAT(list_read_paths(read_),
              testing::ElementsAre(kList + "[active='act'][interface-name='a']" + kLacp + "/period"));
}

TEST_F(ReadPathsTest, EntryWithoutKeys_ListedWithoutPredicates) {
  open(read_, nullptr);
  add_lacp(read_, "period", nullptr, nullptr);
  EXPECT_THAT(list_read_paths(read_), testing::ElementsAre(kList + kLacp + "/period"));
}

TEST_F(ReadPathsTest, KeysAddedAfterTheLeaf_AreListed) {
  add_lacp(read_, "period", nullptr, nullptr);
  name_entry(read_, "a", nullptr);
  EXPECT_THAT(list_read_paths(read_),
              testing::ElementsAre(kList + "[active='act'][interface-name='a']" + kLacp + "/period"));
}

TEST_F(ReadPathsTest, PathAddedTwice_IsListedOnce) {
  add(read_, "/lacp/system-priority", kBundlemgr, nullptr, nullptr);
  add(read_, "/lacp/system-priority", kBundlemgr, nullptr, nullptr);
  EXPECT_THAT(list_read_paths(read_), testing::ElementsAre(kLacp + "/system-priority"));
}

TEST_F(ReadPathsTest, LeafWithAValue_IsListedWithTheValue) {
  add(read_, "/lacp/system-priority", kBundlemgr, "7", nullptr);
  add(read_, "/lacp/system-priority", kBundlemgr, nullptr, nullptr);
  EXPECT_THAT(list_read_paths(read_), testing::ElementsAre(kLacp + "/system-priority = 7", kLacp + "/system-priority"));
}

TEST_F(ReadPathsTest, EntryWithoutLeaves_IsListedItself) {
  open(read_, "a", nullptr);
  EXPECT_THAT(list_read_paths(read_), testing::ElementsAre(kList + "[active='act'][interface-name='a']"));
}

TEST_F(ReadPathsTest, KeyWithoutAValue_IsListedAsALeaf) {
  open(read_, nullptr);
  add(read_, std::string(kEntry) + "/interface-name", kIfmgr, nullptr, nullptr);
  add(read_, std::string(kEntry) + "/active", kIfmgr, "act", nullptr);
  EXPECT_THAT(list_read_paths(read_), testing::ElementsAre(kList + "[active='act']/interface-name"));
}

TEST_F(ReadPathsTest, OuterEntryWithAnInnerEntry_IsNotListedItself) {
  const std::string bundle = "/lacp-bundles/bundles/bundle";
  EXPECT_EQ(read_.add(bundle, kBundlemgrOper, nullptr, nullptr, true), YFW_OK);
  EXPECT_EQ(read_.add(bundle + "/members/member", kBundlemgrOper, nullptr, nullptr, true), YFW_OK);
  EXPECT_THAT(list_read_paths(read_),
              testing::ElementsAre("/Talvo-Brin-QD-bundlemgr-oper:lacp-bundles/bundles/bundle/members/member"));
}

}  // namespace
}  // namespace oclacp::host
