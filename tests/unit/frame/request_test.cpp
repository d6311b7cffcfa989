#include "frame/request.h"

#include "unit/module_test.h"

namespace {

using support::container;
using support::leaf;
using support::Request;

class RequestState : public support::ModuleTest {};

TEST_F(RequestState, Operation_IsTheFirstFieldOfTheDescriptor) {
  platform.set_operation(15);
  EXPECT_EQ(ymap::operation_of(platform.ctx()), 15U);
}

TEST_F(RequestState, OperationCode_IsAReadForZeroAndTenOnly) {
  for (std::uint32_t operation = 0; operation < 20; ++operation) {
    platform.set_operation(operation);
    EXPECT_EQ(ymap::is_read(platform.ctx()), operation == 0 || operation == 10) << "operation " << operation;
  }
}

TEST_F(RequestState, ErrorTag_IsACopy) {
  char tag[] = "interval";
  ymap::store_error_tag(platform.ctx(), tag);
  tag[0] = 'X';
  EXPECT_EQ(platform.error_tag(), "interval");
}

TEST_F(RequestState, SecondErrorTag_IsCopiedAfterTheFirstIsFreed) {
  ymap::store_error_tag(platform.ctx(), "first");
  ymap::store_error_tag(platform.ctx(), "second");
  EXPECT_EQ(platform.error_tag(), "second");
  EXPECT_LT(position("named_free", "first"), position("yfw_strdup", "second"));
  EXPECT_EQ(platform.seen().copies.size(), 1U);
}

TEST_F(RequestState, SecondErrorTag_IsCopiedAfterTheFieldIsCleared) {
  ymap::store_error_tag(platform.ctx(), "first");
  const char* found = "not looked at";
  platform.before("yfw_strdup", 1, [&] { found = platform.state().error_tag; });
  ymap::store_error_tag(platform.ctx(), "second");
  EXPECT_EQ(found, nullptr) << "a dead text stands in the field while the framework is called";
}

TEST_F(RequestState, ErrorTagWithoutMemory_IsNull) {
  ymap::store_error_tag(platform.ctx(), "first");
  platform.script("yfw_strdup", 0, 1);
  ymap::store_error_tag(platform.ctx(), "second");
  EXPECT_EQ(platform.state().error_tag, nullptr);
  EXPECT_TRUE(platform.seen().copies.empty());
}

TEST_F(RequestState, ErrorTagWithoutRequestState_IsNotStored) {
  platform.take_request_state_away();
  ymap::store_error_tag(platform.ctx(), "tag");
  EXPECT_TRUE(platform.calls().empty());
}

TEST(ScopedValue, EndOfScope_RestoresTheValue) {
  std::uint32_t mark = 7;
  {
    const ymap::ScopedValue scope(mark, 1);
    EXPECT_EQ(mark, 1U);
    mark = 99;
  }
  EXPECT_EQ(mark, 7U);
}

TEST(OperationScope, EndOfScope_RestoresOperationAndItsFlagOnly) {
  yfw_datatree node{};
  node.operation = YFW_OPERATION_DELETE;
  {
    const ymap::OperationScope scope(node);
    node.operation = YFW_OPERATION_REMOVE;
    node.flags = YFW_FLAG_OPERATION_CHANGED | YFW_FLAG_LIST_KEY;
  }
  EXPECT_EQ(node.operation, std::uint32_t{YFW_OPERATION_DELETE});
  EXPECT_EQ(node.flags, std::uint32_t{YFW_FLAG_LIST_KEY});
}

TEST(OperationScope, FlagSetBefore_IsRestored) {
  yfw_datatree node{};
  node.flags = YFW_FLAG_OPERATION_CHANGED;
  {
    const ymap::OperationScope scope(node);
    node.flags = 0;
  }
  EXPECT_EQ(node.flags, std::uint32_t{YFW_FLAG_OPERATION_CHANGED});
}

TEST(HiddenChildren, EndOfScope_RestoresTheChildren) {
  Request request(container("node", {leaf("a"), leaf("b")}));
  {
    const ymap::HiddenChildren hidden(*request.root());
    EXPECT_EQ(request.root()->children, nullptr);
    EXPECT_EQ(request.root()->child_count, 0U);
    EXPECT_EQ(request.root()->flags & YFW_FLAG_SUBTREE, 0U);
  }
  EXPECT_EQ(request.fields(), request.fields_as_built());
}

TEST(HiddenChildren, Show_RestoresTheChildren) {
  Request request(container("node", {leaf("a")}));
  ymap::HiddenChildren hidden(*request.root());
  hidden.show();
  EXPECT_EQ(request.fields(), request.fields_as_built());
}

TEST(HiddenChildren, NodeWithoutChildren_GetsNoSubtreeFlag) {
  Request request(leaf("node"));
  { const ymap::HiddenChildren hidden(*request.root()); }
  EXPECT_EQ(request.fields(), request.fields_as_built());
}

TEST_F(RequestState, HierarchyEntry_MarksTheNodeAndIsRemovedAtEndOfScope) {
  Request request(container("node"));
  {
    const ymap::HierarchyEntry entry(platform.ctx(), *request.root(), YFW_HIERARCHY_LIST, YFW_NODE_LIST_ENTRY);
    ASSERT_EQ(platform.seen().hierarchy.size(), 1U);
    EXPECT_EQ(platform.seen().hierarchy[0].first, request.root());
    EXPECT_EQ(platform.seen().hierarchy[0].second, YFW_HIERARCHY_LIST);
    EXPECT_EQ(request.root()->node_kind, std::uint32_t{YFW_NODE_LIST_ENTRY});
    EXPECT_EQ(request.root()->hierarchy_flags, std::uint32_t{YFW_HIERARCHY_ENTERED});
  }
  EXPECT_TRUE(platform.seen().hierarchy.empty());
}

TEST(NamedChildren, WithoutSubtreeFlag_CountIsZero) {
  Request request(container("node", {leaf("a")}));
  request.root()->flags = 0;
  EXPECT_EQ(ymap::child_count_of(*request.root()), 0U);
}

TEST(NamedChildren, WithSubtreeFlag_CountIsThatOfTheChildren) {
  Request request(container("node", {leaf("a"), leaf("b")}));
  EXPECT_EQ(ymap::child_count_of(*request.root()), 2U);
}

TEST(NamedChildren, MissingChildArray_HasNoCount) {
  yfw_datatree node{};
  node.flags = YFW_FLAG_SUBTREE;
  node.child_count = 2;
  EXPECT_EQ(ymap::child_count_of(node), std::nullopt);
  node.child_count = 0;
  EXPECT_EQ(ymap::child_count_of(node), 0U);
}

}  // namespace
