#include "frame/native_handlers.h"

#include "frame/addition.h"
#include "unit/module_test.h"

namespace {

using support::leaf;
using support::Request;
using testing::ElementsAre;

constexpr char kTarget[] = "/oc/target";
constexpr char kAlso[] = "/oc/also";
constexpr char kNs[] = "urn:oc";

YMAP_DEFINE_HANDLER(plain_leaf, ymap::report_leaf, ymap::NativeLeaf{.targets = {kTarget}, .ns = kNs})
YMAP_DEFINE_HANDLER(double_leaf, ymap::report_leaf,
                    ymap::NativeLeaf{.targets = {kAlso, kTarget}, .ns = kNs, .list_flag = 1, .last_flag = 1})

class NativeHandlers : public support::ModuleTest {
 protected:
  cerrno run(ymap::NodeHandler* handler) { return handler(platform.ctx(), request.root(), platform.output()); }

  Request request{leaf("leaf", "value")};
};

TEST_F(NativeHandlers, NullArgument_IsInvalid) {
  EXPECT_EQ(plain_leaf(platform.ctx(), nullptr, platform.output()), YFW_INVALID_ARGUMENTS);
  EXPECT_EQ(plain_leaf(platform.ctx(), request.root(), nullptr), YFW_INVALID_ARGUMENTS);
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 2U);
}

TEST_F(NativeHandlers, LeafInAnyRequest_IsReportedWithItsValueAndWithoutNode) {
  for (const std::uint32_t operation : {0U, 1U, 10U}) {
    platform.set_operation(operation);
    EXPECT_EQ(run(plain_leaf), YFW_OK);
    const support::Addition& addition = platform.additions().back();
    EXPECT_EQ(addition.path, kTarget);
    EXPECT_EQ(addition.ns, kNs);
    EXPECT_EQ(addition.value, "value");
    EXPECT_EQ(addition.source, nullptr);
    EXPECT_EQ(addition.word, 0U);
    EXPECT_EQ(addition.list_flag, 0);
    EXPECT_EQ(addition.last_flag, 0);
  }
  EXPECT_EQ(platform.additions().size(), 3U);
  EXPECT_EQ(platform.traced("plain_leaf", "End"), 3U);
}

TEST_F(NativeHandlers, LeafWithoutValue_IsReportedWithoutValue) {
  Request empty(leaf("leaf"));
  EXPECT_EQ(plain_leaf(platform.ctx(), empty.root(), platform.output()), YFW_OK);
  EXPECT_EQ(only_addition().value, std::nullopt);
}

TEST_F(NativeHandlers, LeafWithTwoTargets_IsReportedToBothWithTheSameFlags) {
  EXPECT_EQ(run(double_leaf), YFW_OK);
  EXPECT_THAT(added(), ElementsAre("/oc/also=value", "/oc/target=value"));
  for (const support::Addition& addition : platform.additions()) {
    EXPECT_EQ(addition.list_flag, 1) << addition.path;
    EXPECT_EQ(addition.last_flag, 1) << addition.path;
  }
}

TEST_F(NativeHandlers, LeafWithTwoTargets_ReturnsTheStatusOfTheLast) {
  platform.script("yfw_map_datatree_add_path_flagged", 0, 0x77, kAlso);
  EXPECT_EQ(run(double_leaf), YFW_OK);
  EXPECT_THAT(added(), ElementsAre("/oc/target=value"));
  platform.script("yfw_map_datatree_add_path_flagged", 0, 0x78, kTarget);
  EXPECT_EQ(run(double_leaf), 0x78U);
  EXPECT_EQ(run(plain_leaf), 0x78U);
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
}

TEST_F(NativeHandlers, Addition_HasTheGivenFields) {
  EXPECT_EQ(ymap::add(platform.ctx(), platform.output(),
                      {.path = kTarget,
                       .ns = kNs,
                       .value = "text",
                       .source = request.root(),
                       .word = 7,
                       .list_flag = 1,
                       .last_flag = 1}),
            YFW_OK);
  EXPECT_EQ(only_addition().path, kTarget);
  EXPECT_EQ(only_addition().ns, kNs);
  EXPECT_EQ(only_addition().value, "text");
  EXPECT_EQ(only_addition().source, request.root());
  EXPECT_EQ(only_addition().word, 7U);
  EXPECT_EQ(only_addition().list_flag, 1);
  EXPECT_EQ(only_addition().last_flag, 1);
}

TEST_F(NativeHandlers, AdditionOfPathOnly_HasNothingElse) {
  EXPECT_EQ(ymap::add(platform.ctx(), platform.output(), {.path = kTarget, .ns = kNs}), YFW_OK);
  EXPECT_EQ(only_addition().value, std::nullopt);
  EXPECT_EQ(only_addition().source, nullptr);
  EXPECT_EQ(only_addition().word, 0U);
  EXPECT_EQ(only_addition().list_flag, 0);
  EXPECT_EQ(only_addition().last_flag, 0);
}

}  // namespace
