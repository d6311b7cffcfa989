#include "server/datastores/change.h"

#include "tests/unit/server/datastores/server_test.h"

namespace oclacp::server {
namespace {

using host::print_tree;
using testing::IsNull;
using testing::NotNull;
using testing::SizeIs;

Changes between(const std::vector<unsigned>& before, const std::vector<unsigned>& after) {
  return find_changes(running(priorities(before)).get(), running(priorities(after)).get());
}

std::string print(const host::TreePtr& tree) {
  return print_tree(schemas().native(), tree.get(), LYD_JSON);
}

TEST(FindChanges, EachKind_IsTold) {
  const Changes changes = between({1, 2, 0}, {9, 0, 3});
  ASSERT_THAT(changes, SizeIs(7));
  EXPECT_EQ(describe(changes[0]),
            "/Talvo-Brin-QD-ifmgr-cfg:interface-configurations/interface-configuration[active='act']"
            "[interface-name='i0']/Talvo-Brin-QD-bundlemgr-cfg:lacp/system-priority: changed from '1' to '9'");
  EXPECT_EQ(changes[1].kind, ChangeKind::kDeleted);
  EXPECT_FALSE(changes[1].is_leaf);
  EXPECT_EQ(changes[4].kind, ChangeKind::kAdded);
  EXPECT_FALSE(changes[4].is_leaf);
  EXPECT_EQ(changes[6].after, "3");
}

TEST(FindChanges, SameConfiguration_HasNone) {
  EXPECT_THAT(between({1, 2}, {1, 2}), testing::IsEmpty());
  EXPECT_THAT(find_changes(nullptr, nullptr), testing::IsEmpty());
}

TEST(WithChanges, Made_IsTheOtherConfigurationAndBack) {
  const std::vector<std::vector<unsigned>> all = {{}, {1}, {0, 2}, {1, 2}, {3, 2}, {3, 0, 4}};
  for (const auto& before : all) {
    for (const auto& after : all) {
      const host::TreePtr from = running(priorities(before));
      const host::TreePtr to = running(priorities(after));
      const Changes changes = find_changes(from.get(), to.get());
      const host::TreePtr there = with_changes(schemas().native(), from.get(), changes);
      EXPECT_THAT(find_changes(there.get(), to.get()), testing::IsEmpty());
      const host::TreePtr back = with_changes(schemas().native(), there.get(), reversed(changes));
      EXPECT_THAT(find_changes(back.get(), from.get()), testing::IsEmpty()) << print(back);
      EXPECT_EQ(find_departure(to.get(), changes), "");
    }
  }
}

TEST(WithChanges, WhatIsDoneAlready_IsNoFailure) {
  const Changes changes = between({1, 2, 0}, {9, 0, 3});
  const host::TreePtr done = running(priorities({9, 0, 3}));
  EXPECT_THAT(find_changes(done.get(), with_changes(schemas().native(), done.get(), changes).get()),
              testing::IsEmpty());
}

TEST(FindCollision, Apart_IsNone) {
  EXPECT_THAT(find_collision(between({1, 2, 3}, {9, 2, 3}), between({1, 2, 3}, {1, 2, 0})), IsNull());
  EXPECT_THAT(find_collision(between({0, 1}, {1, 1}), between({0, 1}, {0, 2})), IsNull());
}

TEST(FindCollision, SameNodeOrAboveIt_IsFoundFromEitherSide) {
  const Changes change = between({1, 2}, {9, 2});
  const Changes other = between({1, 2}, {8, 2});
  const Changes removal = between({1, 2}, {0, 2});
  EXPECT_THAT(find_collision(change, other), NotNull());
  EXPECT_THAT(find_collision(change, removal), NotNull());
  EXPECT_THAT(find_collision(removal, change), NotNull());
}

TEST(FindCollision, NameThatBeginsLikeAnother_IsAnotherEntry) {
  const Changes ours = {{ChangeKind::kAdded, false, "/m:l[k='a/b']", "", ""}};
  const Changes theirs = {{ChangeKind::kChanged, true, "/m:l[k='a/bc']/x", "1", "2"},
                          {ChangeKind::kChanged, true, "/m:l[k='a']/x", "1", "2"}};
  EXPECT_THAT(find_collision(ours, theirs), IsNull());
  EXPECT_THAT(find_collision(theirs, ours), IsNull());
}

TEST(ShownSide, EitherOrNone_IsTold) {
  const Changes changes = between({1}, {9});
  const auto shown = [&](const std::vector<unsigned>& values) {
    return shown_side(running(priorities(values)).get(), changes[0]);
  };
  EXPECT_EQ(shown({1}), Shown::kBefore);
  EXPECT_EQ(shown({9}), Shown::kAfter);
  EXPECT_EQ(shown({5}), Shown::kNeither);
  EXPECT_EQ(shown({}), Shown::kNeither);
}

}  // namespace
}  // namespace oclacp::server
