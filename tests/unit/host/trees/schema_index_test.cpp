#include "host/trees/schema_index.h"

#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

class SchemaIndexTest : public testing::Test {
 protected:
  SchemaIndex paths_{schemas().native()};
};

std::string modules_of(const Target& target) {
  std::string names;
  for (const lysc_node* node : target.chain) {
    names += std::string(names.empty() ? "" : " ") + node->module->name + ":" + node->name;
  }
  return names;
}

TEST_F(SchemaIndexTest, LeafOfAnAugmentingModule_IsFound) {
  const Target* target = paths_.find("/interface-configurations/interface-configuration/lacp/period", kBundlemgr);
  ASSERT_NE(target, nullptr);
  EXPECT_EQ(modules_of(*target),
            "Talvo-Brin-QD-ifmgr-cfg:interface-configurations Talvo-Brin-QD-ifmgr-cfg:interface-configuration "
            "Talvo-Brin-QD-bundlemgr-cfg:lacp Talvo-Brin-QD-bundlemgr-cfg:period");
  EXPECT_EQ(target->lists.size(), 1U);
  EXPECT_TRUE(target->is_leaf());
  EXPECT_FALSE(target->is_key());
}

TEST_F(SchemaIndexTest, PathLookedUpAgain_IsTheSameTarget) {
  const Target* target = paths_.find("/lacp/system-priority", kBundlemgr);
  EXPECT_EQ(paths_.find("/lacp/system-priority", kBundlemgr), target);
  EXPECT_EQ(paths_.find("/lacp/system-priority/", kBundlemgr), target);
}

TEST_F(SchemaIndexTest, ListWithATrailingSlash_IsTheSameTarget) {
  const Target* target = paths_.find("/interface-configurations/interface-configuration/", kIfmgr);
  ASSERT_NE(target, nullptr);
  EXPECT_TRUE(target->is_list());
  EXPECT_EQ(paths_.find("/interface-configurations/interface-configuration", kIfmgr), target);
}

TEST_F(SchemaIndexTest, KeysOfAList_HaveTheirIndex) {
  EXPECT_EQ(paths_.find("/interface-configurations/interface-configuration/active", kIfmgr)->key_index, 0U);
  EXPECT_EQ(paths_.find("/interface-configurations/interface-configuration/interface-name", kIfmgr)->key_index, 1U);
  EXPECT_FALSE(paths_.find("/interface-configurations/interface-configuration/interface-virtual", kIfmgr)->is_key());
}

TEST_F(SchemaIndexTest, LeafInNestedLists_ListsBothInOrder) {
  const Target* target = paths_.find("/lacp-bundles/bundles/bundle/members/member/member-interface", kBundlemgrOper);
  ASSERT_NE(target, nullptr);
  ASSERT_EQ(target->lists.size(), 2U);
  EXPECT_STREQ(target->lists[0]->name, "bundle");
  EXPECT_STREQ(target->lists[1]->name, "member");
}

TEST_F(SchemaIndexTest, UnknownOrMalformedPath_IsNotFound) {
  EXPECT_EQ(paths_.find("/lacp/colour", kBundlemgr), nullptr);
  EXPECT_EQ(paths_.find("lacp/system-priority", kBundlemgr), nullptr);
  EXPECT_EQ(paths_.find("", kBundlemgr), nullptr);
  EXPECT_EQ(paths_.find("/", kBundlemgr), nullptr);
  EXPECT_EQ(paths_.find("/lacp//system-priority", kBundlemgr), nullptr);
}

TEST_F(SchemaIndexTest, OtherNamespace_IsNotFound) {
  EXPECT_EQ(paths_.find("/lacp/system-priority", kIfmgr), nullptr);
  EXPECT_EQ(paths_.find("/lacp/system-priority", "urn:no-such"), nullptr);
  ASSERT_NE(paths_.find("/lacp/system-priority", kBundlemgr), nullptr);
  EXPECT_EQ(paths_.find("/lacp/system-priority", kIfmgr), nullptr) << "also when the path is known";
}

}  // namespace
}  // namespace oclacp::host
