// Nodes that a module adds to another one's by augmentation: the one that is expected, and all others.
#include "unit/frame/native_walker_model.h"

namespace {

using model::log;
using support::container;
using support::leaf;
using support::Node;
using support::Request;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr ymap::NativeAugment kAugment{
    .ns = model::kNs, .tag = "second", .walk = model::second, .parse_augments = model::augments};
YMAP_DEFINE_HANDLER(augment, ymap::walk_native_augment, kAugment)

class NativeAugmentWalker : public model::WalkerTest {
 protected:
  cerrno walk(Request& request) { return augment(platform.ctx(), request.root(), platform.output()); }
};

TEST_F(NativeAugmentWalker, NullArgument_IsInvalid) {
  Request request(container("second").in(model::kNs));
  EXPECT_EQ(augment(platform.ctx(), nullptr, platform.output()), YFW_INVALID_ARGUMENTS);
  EXPECT_EQ(augment(platform.ctx(), request.root(), nullptr), YFW_INVALID_ARGUMENTS);
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 2U);
  EXPECT_THAT(visited(), IsEmpty());
}

TEST_F(NativeAugmentWalker, ExpectedNode_GoesToItsWalkerWithoutBeingEntered) {
  Request request(container("second", {leaf("first")}).in(model::kNs));
  log.answers["second"] = {YFW_OK, 0x77};
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_EQ(walk(request), 0x77U);
  EXPECT_THAT(visited(), ElementsAre("second", "second"));
  EXPECT_EQ(platform.count("yfw_map_add_to_node_hierarchy"), 0U) << "that is its walker's";
  EXPECT_EQ(platform.traced("augment", "End"), 2U);
}

TEST_F(NativeAugmentWalker, ExpectedTagOfOtherNamespace_GoesToItsWalker) {
  Request request(container("second").in("urn:other"));
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("second"));
}

TEST_F(NativeAugmentWalker, OtherNodeOfTheModule_IsSkipped) {
  Request request(container("third").in(model::kNs));
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_THAT(visited(), IsEmpty());
  EXPECT_THAT(platform.trace(),
              ElementsAre("TRC augment: Start", "TRC augment: Unsupported tag. Ignoring.", "TRC augment: End"));
}

TEST_F(NativeAugmentWalker, NodeOfAnotherModule_GoesToTheHook) {
  Request request(container("third").in("urn:other"));
  log.answers["augments"] = {0x77};
  EXPECT_EQ(walk(request), 0x77U);
  EXPECT_THAT(visited(), ElementsAre("augments"));
  EXPECT_EQ(platform.traced("augment", "End"), 1U);
}

TEST_F(NativeAugmentWalker, MissingChildArray_IsMalformedWhateverTheTag) {
  Request request(container("third", {leaf("first")}).in("urn:other"));
  request.root()->children = nullptr;
  EXPECT_EQ(walk(request), YFW_MALFORMED_TREE);
  EXPECT_THAT(platform.trace(),
              ElementsAre("TRC augment: Start", "ERR augment: Failed to get subtrees!", "TRC augment: End"));
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
}

TEST_F(NativeAugmentWalker, NodeWithoutTag_IsMalformed) {
  Request request(Node{.tag = std::nullopt, .value = std::nullopt, .ns = model::kNs, .children = {}});
  EXPECT_EQ(walk(request), YFW_MALFORMED_TREE);
  EXPECT_THAT(platform.trace(),
              ElementsAre("TRC augment: Start", "ERR augment: Tag name is not available!", "TRC augment: End"));
  EXPECT_THAT(visited(), IsEmpty());
}

}  // namespace
