// Replaces: two passes, the first of which deletes what is there.
#include "unit/frame/walker_model.h"

namespace {

using model::log;
using model::Visit;
using support::container;
using support::leaf;
using support::Request;
using testing::ElementsAre;

YMAP_DEFINE_HANDLER(top, ymap::walk_container, model::kContainer)
YMAP_DEFINE_HANDLER(entry, ymap::walk_list_entry, model::kList)

constexpr std::uint32_t kPasses = YFW_REPLACE_FIRST_PASS | YFW_REPLACE_SECOND_PASS;

class Replace : public model::WalkerTest {
 protected:
  cerrno walk(Request& of) { return top(platform.ctx(), of.root(), platform.output()); }
  cerrno walk_entry(Request& of) { return entry(platform.ctx(), of.root(), platform.output()); }

  Request request{container("top", {leaf("first"), leaf("second")}).in(model::kNs).with(YFW_OPERATION_REPLACE)};
  Request list_request{container("entry", {leaf("id", "a"), leaf("first")}).in(model::kNs).with(YFW_OPERATION_REPLACE)};
};

TEST_F(Replace, Container_IsExpandedInFirstPassAndWalkedInSecond) {
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "first", "second", "augments", "handler", "first", "second"))
      << "the first pass expands the container, the second walks what is named";
  expect_nothing_left(request);
}

TEST_F(Replace, FirstPass_RemovesWithTheChildrenHidden) {
  walk(request);
  for (std::size_t i = 0; i < 4; ++i) {
    const Visit& visit = log.visits.at(i);
    EXPECT_EQ(visit.node, request.root());
    EXPECT_EQ(visit.operation, std::uint32_t{YFW_OPERATION_REMOVE});
    EXPECT_EQ(visit.children, 0U);
    EXPECT_EQ(visit.flags, std::uint32_t{YFW_FLAG_OPERATION_CHANGED}) << "changed, and without subtree";
    EXPECT_EQ(visit.child_count, 0U);
    EXPECT_EQ(visit.marks.replace_flags & kPasses, std::uint32_t{YFW_REPLACE_FIRST_PASS});
    EXPECT_EQ(visit.marks.replace_restore, 1U);
  }
}

TEST_F(Replace, SecondPass_MergesWithTheChildrenRestored) {
  walk(request);
  const Visit& handler = log.visits.at(4);
  EXPECT_EQ(handler.child_count, 2U);
  EXPECT_EQ(handler.children, 2U);
  EXPECT_EQ(handler.operation, std::uint32_t{YFW_OPERATION_NONE});
  EXPECT_EQ(handler.flags, std::uint32_t{YFW_FLAG_OPERATION_CHANGED | YFW_FLAG_SUBTREE});
  EXPECT_EQ(handler.marks.replace_flags & kPasses, std::uint32_t{YFW_REPLACE_SECOND_PASS});
  EXPECT_EQ(handler.marks.replace_restore, 1U);
  EXPECT_EQ(log.visits.at(5).node, &request.root()->children[0]);
}

TEST_F(Replace, Container_IsEnteredOnce) {
  walk(request);
  EXPECT_EQ(platform.count("yfw_map_add_to_node_hierarchy"), 1U);
  EXPECT_EQ(platform.traced("top", "Start"), 1U);
  EXPECT_EQ(platform.traced("top", "End"), 1U);
}

TEST_F(Replace, EndOfWalk_RestoresTheOperation) {
  walk(request);
  EXPECT_EQ(request.root()->operation, std::uint32_t{YFW_OPERATION_REPLACE});
  EXPECT_EQ(request.root()->flags, std::uint32_t{YFW_FLAG_SUBTREE});
}

TEST_F(Replace, ContainerWithoutSubtreeFlag_GetsNone) {
  Request bare(container("top").in(model::kNs).with(YFW_OPERATION_REPLACE));
  EXPECT_EQ(walk(bare), YFW_OK);
  EXPECT_EQ(bare.root()->flags, 0U);
  EXPECT_THAT(visited(), ElementsAre("handler", "first", "second", "augments", "handler"));
  expect_nothing_left(bare);
}

TEST_F(Replace, SkipInFirstPass_ContinuesWithTheSecond) {
  log.answers["handler"] = {YFW_SKIP_SUBTREE};
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "handler", "first", "second"));
  EXPECT_EQ(platform.traced("top", "End"), 1U) << "a replace ends with an End record";
  expect_nothing_left(request);
}

TEST_F(Replace, SkipInSecondPass_SucceedsWithEndRecord) {
  log.answers["handler"] = {YFW_OK, YFW_SKIP_SUBTREE};
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "first", "second", "augments", "handler"));
  EXPECT_EQ(platform.traced("top", "End"), 1U);
  expect_nothing_left(request);
}

TEST_F(Replace, SkipInOuterReplace_HasAnEndRecord) {
  Request plain(container("top", {leaf("first")}).in(model::kNs));
  platform.state().replace_flags = YFW_REPLACE_SECOND_PASS;
  log.answers["handler"] = {YFW_SKIP_SUBTREE};
  EXPECT_EQ(walk(plain), YFW_OK);
  EXPECT_EQ(platform.traced("top", "End"), 1U) << "the request's flags say whether a replace is running";
}

TEST_F(Replace, ErrorInFirstPass_EndsTheWalkAndRestoresEverything) {
  log.answers["handler"] = {0x55};
  EXPECT_EQ(walk(request), 0x55U);
  EXPECT_THAT(visited(), ElementsAre("handler"));
  EXPECT_EQ(platform.traced("top", "End"), 1U);
  expect_nothing_left(request);
}

TEST_F(Replace, ErrorInSecondPass_RestoresEverything) {
  log.answers["second"] = {YFW_OK, 0x66};
  EXPECT_EQ(walk(request), 0x66U);
  expect_nothing_left(request);
}

TEST_F(Replace, InnerReplace_RestoresTheMarksOfTheOuter) {
  platform.state().replace_flags = YFW_REPLACE_SECOND_PASS;
  platform.state().replace_restore = 1;
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_EQ(platform.state().replace_flags, std::uint32_t{YFW_REPLACE_SECOND_PASS});
  EXPECT_EQ(platform.state().replace_restore, 1U);
  EXPECT_EQ(request.fields(), request.fields_as_built());
}

TEST_F(Replace, ListEntry_ChecksKeysOnceAndRunsTheHandlerTwice) {
  EXPECT_EQ(walk_entry(list_request), YFW_OK);
  EXPECT_EQ(platform.count("yfw_map_check_oc_leafref"), 1U);
  EXPECT_EQ(platform.count("yfw_map_update_current_list_node"), 1U);
  EXPECT_THAT(visited(), ElementsAre("handler", "handler", "key", "first"));
  expect_nothing_left(list_request);
}

TEST_F(Replace, FirstPassOfListEntry_RemovesWithTheChildrenHidden) {
  walk_entry(list_request);
  const Visit& first = log.visits.at(0);
  EXPECT_EQ(first.operation, std::uint32_t{YFW_OPERATION_REMOVE});
  EXPECT_EQ(first.children, 0U);
  EXPECT_EQ(first.marks.replace_flags, std::uint32_t{YFW_REPLACE_FIRST_PASS});
  EXPECT_EQ(first.marks.replace_restore, 1U);
  const Visit& second = log.visits.at(1);
  EXPECT_EQ(second.operation, std::uint32_t{YFW_OPERATION_NONE});
  EXPECT_EQ(second.children, 2U);
  EXPECT_EQ(second.marks.replace_flags, std::uint32_t{YFW_REPLACE_SECOND_PASS});
}

TEST_F(Replace, SkipInFirstPassOfListEntry_ContinuesWithTheSecond) {
  log.answers["handler"] = {YFW_SKIP_SUBTREE};
  EXPECT_EQ(walk_entry(list_request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "handler", "key", "first"));
  EXPECT_EQ(platform.traced("entry", "End"), 1U);
  expect_nothing_left(list_request);
}

TEST_F(Replace, ErrorInFirstPassOfListEntry_EndsTheWalk) {
  log.answers["handler"] = {0x55};
  EXPECT_EQ(walk_entry(list_request), 0x55U);
  EXPECT_THAT(visited(), ElementsAre("handler"));
  expect_nothing_left(list_request);
}

}  // namespace
