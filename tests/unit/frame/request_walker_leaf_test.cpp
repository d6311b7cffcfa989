// Leaves: their handler, and what a read notes of them.
#include "unit/frame/walker_model.h"

namespace {

using model::log;
using support::leaf;
using support::Request;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr ymap::RequestLeaf kLeaf{.handler = model::first};
YMAP_DEFINE_HANDLER(walk_one, ymap::walk_leaf, kLeaf)

class LeafWalker : public model::WalkerTest {
 protected:
  cerrno walk(Request& request, std::uint32_t operation = YFW_REQUEST_EDIT) {
    platform.set_operation(operation);
    return walk_one(platform.ctx(), request.root(), platform.output());
  }

  Request valued{leaf("leaf", "value").in(model::kNs)};
  Request bare{leaf("leaf").in(model::kNs)};
};

TEST_F(LeafWalker, NullArgument_IsInvalid) {
  EXPECT_EQ(walk_one(platform.ctx(), nullptr, platform.output()), YFW_INVALID_ARGUMENTS);
  EXPECT_EQ(walk_one(platform.ctx(), valued.root(), nullptr), YFW_INVALID_ARGUMENTS);
  EXPECT_THAT(visited(), IsEmpty());
}

TEST_F(LeafWalker, Walk_ReturnsTheHandlersStatus) {
  log.answers["first"] = {0x66};
  EXPECT_EQ(walk(valued), 0x66U);
  EXPECT_THAT(visited(), ElementsAre("first"));
  EXPECT_EQ(platform.traced("walk_one", "End"), 1U);
}

TEST_F(LeafWalker, Walk_MarksTheLeafAsEnteredAfterItsHandler) {
  log.actions["first"] = [](yfw_map_ctx /*ctx*/) {
    EXPECT_EQ(log.visits.back().node->node_kind, 0U);
    EXPECT_EQ(log.visits.back().node->hierarchy_flags, 0U);
  };
  EXPECT_EQ(walk(valued), YFW_OK);
  EXPECT_EQ(valued.root()->node_kind, std::uint32_t{YFW_NODE_LEAF});
  EXPECT_EQ(valued.root()->hierarchy_flags, std::uint32_t{YFW_HIERARCHY_ENTERED});
  EXPECT_EQ(platform.count("yfw_map_add_to_node_hierarchy"), 0U);
}

TEST_F(LeafWalker, LeafWithValueInRead_IsAContentMatch) {
  for (const std::uint32_t operation : {0U, 10U}) {
    platform.state().filter_bits = 0;
    EXPECT_EQ(walk(valued, operation), YFW_OK);
    EXPECT_EQ(platform.state().filter_bits, std::uint32_t{YFW_FILTER_CONTENT_MATCH | YFW_FILTER_REQUEST_MATCH});
    EXPECT_EQ(valued.root()->node_kind, std::uint32_t{YFW_NODE_CONTENT_MATCH});
  }
}

TEST_F(LeafWalker, LeafWithoutValueInRead_IsASelection) {
  EXPECT_EQ(walk(bare, YFW_REQUEST_READ_CONFIG), YFW_OK);
  EXPECT_EQ(platform.state().filter_bits, std::uint32_t{YFW_FILTER_SELECTION});
  EXPECT_EQ(bare.root()->node_kind, std::uint32_t{YFW_NODE_LEAF});
}

TEST_F(LeafWalker, Read_AddsToTheFilterBits) {
  platform.state().filter_bits = 0x1000;
  walk(valued, YFW_REQUEST_READ_CONFIG);
  walk(bare, YFW_REQUEST_READ_CONFIG);
  EXPECT_EQ(platform.state().filter_bits,
            0x1000U | YFW_FILTER_CONTENT_MATCH | YFW_FILTER_REQUEST_MATCH | std::uint32_t{YFW_FILTER_SELECTION});
}

TEST_F(LeafWalker, ValueWithoutFlagInRead_IsASelection) {
  valued.root()->flags = 0;
  walk(valued, YFW_REQUEST_READ_CONFIG);
  EXPECT_EQ(platform.state().filter_bits, std::uint32_t{YFW_FILTER_SELECTION});
}

TEST_F(LeafWalker, Edit_SetsNoFilterBits) {
  walk(valued);
  walk(bare);
  EXPECT_EQ(platform.state().filter_bits, 0U);
}

TEST_F(LeafWalker, FailedHandlerInRead_StillSetsFilterBits) {
  log.answers["first"] = {0x66};
  walk(bare, YFW_REQUEST_READ_CONFIG);
  EXPECT_EQ(platform.state().filter_bits, std::uint32_t{YFW_FILTER_SELECTION});
}

TEST_F(LeafWalker, ReadInExpansion_SetsNoFilterBits) {
  platform.state().whole_subtree = 1;
  EXPECT_EQ(walk(valued, YFW_REQUEST_READ_CONFIG), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("first"));
  EXPECT_EQ(platform.state().filter_bits, 0U);
  EXPECT_EQ(valued.root()->node_kind, 0U);
  EXPECT_EQ(valued.root()->hierarchy_flags, 0U);
}

TEST_F(LeafWalker, ReadWithPendingKey_SetsNoFilterBits) {
  platform.state().key_pending = YFW_KEY_PENDING_KEY_ONLY;
  walk(valued, YFW_REQUEST_READ_CONFIG);
  EXPECT_EQ(platform.state().filter_bits, 0U);
  EXPECT_EQ(valued.root()->node_kind, 0U);
}

}  // namespace
