// Containers: steps of an ordinary walk, content matches, and the expansion of a container that is named as a whole.
#include "unit/frame/walker_model.h"
#include "yfw/strings.h"

namespace {

using model::log;
using support::container;
using support::leaf;
using support::Node;
using support::Request;
using testing::ElementsAre;
using testing::IsEmpty;

YMAP_DEFINE_HANDLER(top, ymap::walk_container, model::kContainer)
YMAP_DEFINE_HANDLER(top_expanded_in_order, ymap::walk_container, model::kContainerExpandedInOrder)
YMAP_DEFINE_HANDLER(strict_top, ymap::walk_container, model::kStrictContainer)

Node node(std::vector<Node> children = {}) {
  return container("top", std::move(children)).in(model::kNs);
}

class ContainerWalker : public model::WalkerTest {
 protected:
  cerrno walk(Request& request) { return top(platform.ctx(), request.root(), platform.output()); }
  cerrno walk(Request& request, std::uint32_t operation) {
    platform.set_operation(operation);
    return walk(request);
  }
};

TEST_F(ContainerWalker, NullArgument_IsInvalid) {
  Request request(node());
  EXPECT_EQ(top(platform.ctx(), nullptr, platform.output()), YFW_INVALID_ARGUMENTS);
  EXPECT_EQ(top(platform.ctx(), request.root(), nullptr), YFW_INVALID_ARGUMENTS);
  EXPECT_THAT(visited(), IsEmpty());
  EXPECT_EQ(platform.traced("top", "End"), 0U);
}

TEST_F(ContainerWalker, MissingChildArray_IsMalformed) {
  Request request(node({leaf("first")}));
  request.root()->children = nullptr;
  EXPECT_EQ(walk(request), YFW_MALFORMED_TREE);
  EXPECT_THAT(platform.trace(), ElementsAre("TRC top: Start", "ERR top: Failed to get subtrees!", "TRC top: End"));
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
  EXPECT_THAT(visited(), IsEmpty());
}

TEST_F(ContainerWalker, MissingChildArrayOfCountZero_IsNotAnError) {
  Request request(node());
  request.root()->flags |= YFW_FLAG_SUBTREE;
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler"));
}

TEST_F(ContainerWalker, ChildrenWithoutSubtreeFlag_AreIgnored) {
  Request request(node({leaf("first")}));
  request.root()->flags = 0;
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler"));
  EXPECT_EQ(log.visits[0].child_count, 0U);
}

TEST_F(ContainerWalker, StrictDeleteWithSubtree_IsRefusedBeforeEntering) {
  Request request(node({leaf("first")}).with(YFW_OPERATION_DELETE));
  EXPECT_EQ(strict_top(platform.ctx(), request.root(), platform.output()), YFW_INVALID_ARGUMENTS);
  EXPECT_THAT(platform.trace(),
              ElementsAre("TRC strict_top: Start", "TRC strict_top: Delete request with subtree present",
                          "TRC strict_top: End"));
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
  EXPECT_EQ(platform.count("yfw_map_add_to_node_hierarchy"), 0U);
  EXPECT_THAT(visited(), IsEmpty());
}

TEST_F(ContainerWalker, DeleteWithSubtree_IsWalked) {
  Request request(node({leaf("first")}).with(YFW_OPERATION_DELETE));
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "first"));
}

TEST_F(ContainerWalker, StrictDeleteInExpansionOrWithPendingKey_IsWalked) {
  Request request(node({leaf("first")}).with(YFW_OPERATION_DELETE));
  platform.state().whole_subtree = 1;
  EXPECT_EQ(strict_top(platform.ctx(), request.root(), platform.output()), YFW_OK);
  platform.state().whole_subtree = 0;
  platform.state().key_pending = YFW_KEY_PENDING_KEY_ONLY;
  EXPECT_EQ(strict_top(platform.ctx(), request.root(), platform.output()), YFW_OK);
}

TEST_F(ContainerWalker, Walk_EntersAndLeavesTheNode) {
  Request request(node({leaf("first")}));
  std::size_t depth = 0;
  platform.before("yfw_map_do_these_match", 1, [&] { depth = platform.seen().hierarchy.size(); });
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_EQ(depth, 1U);
  EXPECT_EQ(platform.count("yfw_map_add_to_node_hierarchy", "top container"), 1U);
  EXPECT_EQ(request.root()->node_kind, std::uint32_t{YFW_NODE_CONTAINER});
  EXPECT_EQ(request.root()->hierarchy_flags, std::uint32_t{YFW_HIERARCHY_ENTERED});
  expect_nothing_left(request);
}

TEST_F(ContainerWalker, EndOfWalk_LeavesTheNodeBeforeTheEndRecord) {
  Request request(node());
  walk(request);
  EXPECT_LT(position("yfw_map_remove_from_node_hierarchy"), position("_lstrace", "End"));
}

TEST_F(ContainerWalker, WalkInExpansion_DoesNotEnterTheNode) {
  Request request(node());
  platform.state().whole_subtree = 1;
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_EQ(platform.count("yfw_map_add_to_node_hierarchy"), 0U);
  EXPECT_EQ(platform.count("yfw_map_remove_from_node_hierarchy"), 0U);
  EXPECT_EQ(request.root()->node_kind, 0U);
  EXPECT_EQ(request.root()->hierarchy_flags, 0U);
}

TEST_F(ContainerWalker, EnteringInRead_KeepsEveryFourthFilterBit) {
  for (const std::uint32_t operation : {0U, 10U}) {
    log = {};
    Request request(node({leaf("first")}));
    platform.state().filter_bits = 0xFFFFFFFF;
    walk(request, operation);
    ASSERT_FALSE(log.visits.empty());
    EXPECT_EQ(log.visits[0].marks.filter_bits, 0x11111110U) << "operation " << operation;
  }
}

TEST_F(ContainerWalker, EnteringInEdit_LeavesFilterBitsUnchanged) {
  Request request(node({leaf("first")}));
  platform.state().filter_bits = 0xFFFFFFFF;
  walk(request, YFW_REQUEST_EDIT);
  ASSERT_FALSE(log.visits.empty());
  EXPECT_EQ(log.visits[0].marks.filter_bits, 0xFFFFFFFFU);
}

TEST_F(ContainerWalker, ReadInExpansion_LeavesFilterBitsUnchangedForTheHandler) {
  Request request(node());
  platform.state().whole_subtree = 1;
  platform.state().filter_bits = 0xF;
  walk(request, YFW_REQUEST_READ_CONFIG);
  ASSERT_FALSE(log.visits.empty());
  EXPECT_EQ(log.visits[0].marks.filter_bits, 0xFU);
}

TEST_F(ContainerWalker, Handler_GetsTheNumberOfChildren) {
  Request request(node({leaf("first"), leaf("second")}));
  walk(request);
  EXPECT_EQ(log.visits.at(0).child_count, 2U);
}

TEST_F(ContainerWalker, OuterContentMatchExpansion_HidesChildrenFromTheHandler) {
  Request request(node({leaf("first", "value")}));
  platform.state().whole_subtree = 1;
  platform.state().filter_bits = YFW_FILTER_EXPAND;
  walk(request, YFW_REQUEST_READ_CONFIG);
  EXPECT_EQ(log.visits.at(0).child_count, 0U);
  EXPECT_THAT(visited(), ElementsAre("handler", "first", "second", "augments")) << "the node is expanded too";
}

TEST_F(ContainerWalker, SkipFromHandler_SucceedsWithoutEndRecord) {
  Request request(node({leaf("first")}));
  log.answers["handler"] = {YFW_SKIP_SUBTREE};
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler"));
  EXPECT_EQ(platform.traced("top", "End"), 0U);
  EXPECT_EQ(platform.count("yfw_map_remove_from_node_hierarchy", "top"), 1U);
  expect_nothing_left(request);
}

TEST_F(ContainerWalker, SkipInExpansion_LeavesTheHierarchyUnchanged) {
  Request request(node());
  platform.state().whole_subtree = 1;
  log.answers["handler"] = {YFW_SKIP_SUBTREE};
  EXPECT_EQ(walk(request, YFW_REQUEST_READ_CONFIG), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler"));
  EXPECT_EQ(platform.count("yfw_map_remove_from_node_hierarchy"), 0U);
  EXPECT_EQ(platform.traced("top", "End"), 0U);
}

TEST_F(ContainerWalker, ErrorFromHandler_EndsTheWalk) {
  Request request(node({leaf("first")}));
  log.answers["handler"] = {0x55};
  EXPECT_EQ(walk(request), 0x55U);
  EXPECT_THAT(visited(), ElementsAre("handler"));
  EXPECT_EQ(platform.traced("top", "End"), 1U);
  expect_nothing_left(request);
}

TEST_F(ContainerWalker, Children_AreWalkedInRequestOrder) {
  Request request(node({leaf("second"), leaf("first"), leaf("second")}));
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "second", "first", "second"));
  EXPECT_EQ(log.visits[1].node, &request.root()->children[0]);
  EXPECT_EQ(log.visits[3].node, &request.root()->children[2]);
}

TEST_F(ContainerWalker, Tags_AreTestedInTableOrder) {
  Request request(node({leaf("second")}));
  walk(request);
  EXPECT_LT(position("yfw_map_do_these_match", "\"second\" \"first\""),
            position("yfw_map_do_these_match", "\"second\" \"second\""));
}

TEST_F(ContainerWalker, ChildWithoutTag_EndsTheWalkAsMalformed) {
  Node untagged;
  Request request(node({leaf("first"), untagged, leaf("second")}));
  EXPECT_EQ(walk(request), YFW_MALFORMED_TREE);
  EXPECT_THAT(visited(), ElementsAre("handler", "first"));
  EXPECT_EQ(platform.traced("top", "Tag name is not available!"), 1U);
  EXPECT_EQ(platform.traced("top", "End"), 1U);
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
  EXPECT_EQ(platform.error_tag(), "");
  expect_nothing_left(request);
}

TEST_F(ContainerWalker, OperationalState_IsWalkedInStateReadsOnly) {
  Request request(node({leaf("status")}));
  EXPECT_EQ(walk(request, YFW_REQUEST_READ_STATE), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "status"));
  log = {};
  EXPECT_EQ(walk(request, YFW_REQUEST_READ_CONFIG), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler")) << "a read of configuration passes it over";
  log = {};
  EXPECT_EQ(walk(request, YFW_REQUEST_EDIT), YFW_UNSUPPORTED_NODE) << "an edit does not know it";
  EXPECT_THAT(visited(), ElementsAre("handler"));
}

TEST_F(ContainerWalker, UnknownTagInEdit_IsAnError) {
  Request request(node({leaf("unheard-of"), leaf("first")}));
  EXPECT_EQ(walk(request), YFW_UNSUPPORTED_NODE);
  EXPECT_THAT(visited(), ElementsAre("handler"));
  EXPECT_EQ(platform.error_tag(), "unheard-of");
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 1U);
  EXPECT_EQ(platform.traced("top", "End"), 1U);
  expect_nothing_left(request);
}

TEST_F(ContainerWalker, UnknownTag_IsRecordedThenStoredThenMarked) {
  Request request(node({leaf("unheard-of")}));
  walk(request);
  const std::size_t recorded = position("_lstrace", "Unsupported tag is specified in the request.");
  const std::size_t stored = position("yfw_strdup", "unheard-of");
  EXPECT_LT(recorded, stored);
  EXPECT_LT(stored, position("yfw_oc_error_path"));
}

TEST_F(ContainerWalker, UnknownTag_ReplacesTheErrorTag) {
  Request request(node({leaf("unheard-of")}));
  platform.state().error_tag = yfw_strdup("earlier", YFW_ALLOCATION_TAG);
  walk(request);
  EXPECT_EQ(platform.error_tag(), "unheard-of");
  EXPECT_EQ(platform.seen().copies.size(), 1U) << "the earlier tag is not freed";
}

TEST_F(ContainerWalker, UnknownTagInRead_IsSkipped) {
  for (const std::uint32_t operation : {0U, 10U}) {
    log = {};
    Request request(node({leaf("unheard-of"), leaf("first")}));
    EXPECT_EQ(walk(request, operation), YFW_OK);
    EXPECT_THAT(visited(), ElementsAre("handler", "first"));
  }
  EXPECT_EQ(platform.traced("top", "Unsupported tag is specified in the request."), 0U);
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
  EXPECT_EQ(platform.error_tag(), "");
}

TEST_F(ContainerWalker, ForeignChild_GoesToTheAugmentParser) {
  Request request(node({leaf("other").in("urn:other"), leaf("first")}));
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "augments", "first"));
  EXPECT_EQ(log.visits[1].node, &request.root()->children[0]);
}

TEST_F(ContainerWalker, KnownTagOfOtherNamespace_IsWalked) {
  Request request(node({leaf("first").in("urn:other")}));
  walk(request);
  EXPECT_THAT(visited(), ElementsAre("handler", "first"));
}

TEST_F(ContainerWalker, ErrorFromChild_EndsTheWalkWithItsCode) {
  Request request(node({leaf("first"), leaf("second")}));
  log.answers["first"] = {0x66};
  EXPECT_EQ(walk(request), 0x66U);
  EXPECT_THAT(visited(), ElementsAre("handler", "first"));
  EXPECT_EQ(platform.traced("top", "End"), 1U);
  expect_nothing_left(request);
}

TEST_F(ContainerWalker, ErrorFromAugmentParser_IsReturned) {
  Request request(node({leaf("other").in("urn:other"), leaf("first")}));
  log.answers["augments"] = {YFW_UNKNOWN_AUGMENT};
  EXPECT_EQ(walk(request), YFW_UNKNOWN_AUGMENT);
  EXPECT_THAT(visited(), ElementsAre("handler", "augments"));
}

// ---- Content matches

void match_content(yfw_map_ctx ctx) {
  ctx->request->filter_bits |= YFW_FILTER_CONTENT_MATCH | YFW_FILTER_REQUEST_MATCH;
}
void select_leaf(yfw_map_ctx ctx) {
  ctx->request->filter_bits |= YFW_FILTER_SELECTION;
}

TEST_F(ContainerWalker, ContentMatchesOnly_ExpandTheContainer) {
  Request request(node({leaf("first", "value")}));
  log.actions["first"] = match_content;
  EXPECT_EQ(walk(request, YFW_REQUEST_READ_CONFIG), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "first", "first", "second", "augments"));
  EXPECT_EQ(log.visits[1].node, &request.root()->children[0]);
  for (std::size_t i = 2; i < 5; ++i) EXPECT_EQ(log.visits[i].node, request.root());
  expect_nothing_left(request);
}

TEST_F(ContainerWalker, ExpansionForContentMatches_IsMarkedInFilterBits) {
  Request request(node({leaf("first", "value")}));
  log.actions["first"] = match_content;
  walk(request, YFW_REQUEST_READ_CONFIG);
  const std::uint32_t bits = log.visits.at(2).marks.filter_bits;
  EXPECT_EQ(bits, std::uint32_t{YFW_FILTER_EXPAND | YFW_FILTER_REQUEST_MATCH})
      << "the content match became an expansion";
}

TEST_F(ContainerWalker, ExpansionForContentMatches_KeepsOnlyTheRequestMatchBit) {
  Request request(node({leaf("first", "value")}));
  log.actions["first"] = match_content;
  walk(request, YFW_REQUEST_READ_CONFIG);
  EXPECT_EQ(platform.state().filter_bits, std::uint32_t{YFW_FILTER_REQUEST_MATCH});
}

TEST_F(ContainerWalker, ContentMatchBesideSelection_IsNotExpanded) {
  Request request(node({leaf("first", "value"), leaf("second")}));
  log.actions["first"] = match_content;
  log.actions["second"] = select_leaf;
  walk(request, YFW_REQUEST_READ_CONFIG);
  EXPECT_THAT(visited(), ElementsAre("handler", "first", "second"));
  EXPECT_EQ(platform.state().filter_bits,
            std::uint32_t{YFW_FILTER_CONTENT_MATCH | YFW_FILTER_SELECTION | YFW_FILTER_REQUEST_MATCH});
}

TEST_F(ContainerWalker, SelectionOnly_IsNotExpanded) {
  Request request(node({leaf("second")}));
  log.actions["second"] = select_leaf;
  walk(request, YFW_REQUEST_READ_CONFIG);
  EXPECT_THAT(visited(), ElementsAre("handler", "second"));
}

TEST_F(ContainerWalker, ContentMatchBesideFailedChild_IsExpanded) {
  Request request(node({leaf("first", "value"), leaf("second", "value")}));
  log.actions["first"] = match_content;
  log.answers["second"] = {0x66};
  EXPECT_EQ(walk(request, YFW_REQUEST_READ_CONFIG), 0x66U);
  EXPECT_THAT(visited(), ElementsAre("handler", "first", "second", "first", "second", "augments"));
}

// ---- Whole containers

TEST_F(ContainerWalker, ReadOfWholeContainer_VisitsEveryChildInTableOrder) {
  Request request(node());
  EXPECT_EQ(walk(request, YFW_REQUEST_READ_STATE), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "first", "status", "second", "augments"));
  for (const model::Visit& visit : log.visits) EXPECT_EQ(visit.node, request.root());
  expect_nothing_left(request);
}

TEST_F(ContainerWalker, ExpansionWithOwnOrder_VisitsChildrenInThatOrder) {
  Request request(node());
  platform.set_operation(YFW_REQUEST_READ_STATE);
  EXPECT_EQ(top_expanded_in_order(platform.ctx(), request.root(), platform.output()), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "second", "first", "status", "augments"));
}

TEST_F(ContainerWalker, ExpansionWithOwnOrder_TestsTagsInTableOrder) {
  Request request(node({leaf("status")}));
  platform.set_operation(YFW_REQUEST_READ_STATE);
  EXPECT_EQ(top_expanded_in_order(platform.ctx(), request.root(), platform.output()), YFW_OK);
  EXPECT_LT(position("yfw_map_do_these_match", "\"status\" \"first\""),
            position("yfw_map_do_these_match", "\"status\" \"status\""));
  EXPECT_EQ(platform.count("yfw_map_do_these_match", "\"status\" \"second\""), 0U);
}

TEST_F(ContainerWalker, ConfigReadOfWholeContainer_SkipsOperationalState) {
  Request request(node());
  walk(request, YFW_REQUEST_READ_CONFIG);
  EXPECT_THAT(visited(), ElementsAre("handler", "first", "second", "augments"));
}

TEST_F(ContainerWalker, Expansion_IsMarkedWhileItRuns) {
  Request request(node());
  walk(request, YFW_REQUEST_READ_CONFIG);
  EXPECT_EQ(log.visits.at(0).marks.whole_subtree, 0U);
  for (std::size_t i = 1; i < log.visits.size(); ++i) EXPECT_EQ(log.visits[i].marks.whole_subtree, 1U);
  EXPECT_EQ(platform.state().whole_subtree, 0U);
}

TEST_F(ContainerWalker, InnerExpansion_KeepsTheMarkOfTheOuter) {
  Request request(node());
  platform.state().whole_subtree = 1;
  walk(request, YFW_REQUEST_READ_CONFIG);
  EXPECT_THAT(visited(), ElementsAre("handler", "first", "second", "augments"));
  EXPECT_EQ(platform.state().whole_subtree, 1U);
}

TEST_F(ContainerWalker, ErrorFromChildInExpansion_IsIgnored) {
  Request request(node());
  log.answers["first"] = {0x66};
  log.answers["second"] = {YFW_SKIP_SUBTREE};
  log.answers["augments"] = {0x67};
  EXPECT_EQ(walk(request, YFW_REQUEST_READ_CONFIG), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "first", "second", "augments"));
}

TEST_F(ContainerWalker, Expansion_KeepsEveryFourthFilterBit) {
  Request request(node());
  log.actions["second"] = [](yfw_map_ctx ctx) { ctx->request->filter_bits = 0xFFFFFFFF; };
  walk(request, YFW_REQUEST_READ_CONFIG);
  EXPECT_EQ(platform.state().filter_bits, 0x11111110U);
}

TEST_F(ContainerWalker, EditOfWholeContainer_IsNotExpanded) {
  Request request(node());
  EXPECT_EQ(walk(request, YFW_REQUEST_EDIT), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler"));
}

TEST_F(ContainerWalker, DeleteOfWholeContainer_ExpandsWithTheWorkingOperation) {
  Request request(node().with(YFW_OPERATION_DELETE));
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "first", "second", "augments"));
  EXPECT_EQ(log.visits[0].operation, std::uint32_t{YFW_OPERATION_DELETE});
  for (std::size_t i = 1; i < 4; ++i) {
    EXPECT_EQ(log.visits[i].operation, std::uint32_t{YFW_OPERATION_REMOVE});
    EXPECT_EQ(log.visits[i].flags & YFW_FLAG_OPERATION_CHANGED, 0U) << "this change is not flagged";
  }
  expect_nothing_left(request);
}

TEST_F(ContainerWalker, RemoveOfWholeContainer_IsExpanded) {
  Request request(node().with(YFW_OPERATION_REMOVE));
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "first", "second", "augments"));
  expect_nothing_left(request);
}

TEST_F(ContainerWalker, ContainerUnderDeletedAncestor_IsExpanded) {
  Request request(container("outer", {container("top")}).in(model::kNs).with(YFW_OPERATION_DELETE));
  EXPECT_EQ(top(platform.ctx(), request.find("top"), platform.output()), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "first", "second", "augments"));
  EXPECT_EQ(log.visits[1].operation, std::uint32_t{YFW_OPERATION_NONE});
}

TEST_F(ContainerWalker, OperationChangedByHandlerInExpansion_IsRestored) {
  Request request(node().with(YFW_OPERATION_DELETE));
  static yfw_datatree* changed = nullptr;
  changed = request.root();
  log.actions["first"] = [](yfw_map_ctx /*ctx*/) {
    changed->operation = YFW_OPERATION_NONE;
    changed->flags |= YFW_FLAG_OPERATION_CHANGED;
  };
  walk(request);
  changed = nullptr;
  expect_nothing_left(request);
}

}  // namespace
