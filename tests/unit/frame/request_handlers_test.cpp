#include "frame/request_handlers.h"

#include "unit/module_test.h"

namespace {

using support::leaf;
using support::Request;
using testing::ElementsAre;
using testing::IsEmpty;
using ymap::Activation;
using ymap::NativeValue;
using ymap::ShortText;

constexpr char kTarget[] = "/native/target";
constexpr char kNs[] = "urn:native";

// A conversion that writes "converted" in place of any value, and two that fail.
NativeValue convert(const Activation& /*run*/, yfw_map_ctx /*ctx*/, const yfw_datatree& /*leaf*/, ShortText& buffer) {
  buffer.text[0] = 'c';
  return {.text = buffer.text};
}
NativeValue refuse(const Activation& /*run*/, yfw_map_ctx /*ctx*/, const yfw_datatree& /*leaf*/,
                   ShortText& /*buffer*/) {
  return {.outcome = 0x11};
}
NativeValue abandon(const Activation& /*run*/, yfw_map_ctx /*ctx*/, const yfw_datatree& /*leaf*/,
                    ShortText& /*buffer*/) {
  return {.outcome = ymap::Outcome::without_end(0x12)};
}

cerrno converter(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {
  return yfw_map_datatree_add_path_flagged(ctx, out, "/converter/path", kNs, in->value, in, 0, 0, 1);
}

YMAP_DEFINE_HANDLER(config_leaf, ymap::handle_config_leaf,
                    ymap::ConfigLeaf{.target = kTarget, .ns = kNs, .last_flag = 0})
YMAP_DEFINE_HANDLER(converting_leaf, ymap::handle_config_leaf,
                    ymap::ConfigLeaf{.target = kTarget, .ns = kNs, .last_flag = 1, .convert = convert})
YMAP_DEFINE_HANDLER(refusing_leaf, ymap::handle_config_leaf,
                    ymap::ConfigLeaf{.target = kTarget, .ns = kNs, .last_flag = 1, .convert = refuse})
YMAP_DEFINE_HANDLER(abandoning_leaf, ymap::handle_config_leaf,
                    ymap::ConfigLeaf{.target = kTarget, .ns = kNs, .last_flag = 1, .convert = abandon})
YMAP_DEFINE_HANDLER(state_leaf, ymap::handle_state_leaf, ymap::StateLeaf{.target = kTarget, .ns = kNs, .last_flag = 1})
YMAP_DEFINE_HANDLER(asking_state_leaf, ymap::handle_state_leaf,
                    ymap::StateLeaf{.target = kTarget, .ns = kNs, .asks_in_edits = true})
YMAP_DEFINE_HANDLER(converted_leaf, ymap::handle_converted_leaf, ymap::ConvertedLeaf{.converter = converter})
YMAP_DEFINE_SIMPLE_HANDLER(unsupported_leaf, ymap::refuse_leaf)
YMAP_DEFINE_SIMPLE_HANDLER(accepted_node, ymap::no_op)
YMAP_DEFINE_SIMPLE_HANDLER(unchecked_node, ymap::no_op_unchecked)
YMAP_DEFINE_SIMPLE_HANDLER(foreign_node, ymap::refuse_added_augment)

class RequestHandlers : public support::ModuleTest {
 protected:
  cerrno run(ymap::NodeHandler* handler, Request& of) { return handler(platform.ctx(), of.root(), platform.output()); }
  cerrno run(ymap::NodeHandler* handler, std::uint32_t operation) {
    platform.set_operation(operation);
    return run(handler, request);
  }

  Request request{leaf("leaf", "value")};
};

TEST_F(RequestHandlers, NullArgument_IsInvalid) {
  for (ymap::NodeHandler* handler :
       {config_leaf, state_leaf, converted_leaf, unsupported_leaf, accepted_node, foreign_node}) {
    EXPECT_EQ(handler(platform.ctx(), nullptr, platform.output()), YFW_INVALID_ARGUMENTS);
    EXPECT_EQ(handler(platform.ctx(), request.root(), nullptr), YFW_INVALID_ARGUMENTS);
  }
  EXPECT_THAT(added(), IsEmpty());
}

TEST_F(RequestHandlers, ConfigLeafInEdit_IsCopiedWithItsNode) {
  EXPECT_EQ(run(config_leaf, YFW_REQUEST_EDIT), YFW_OK);
  EXPECT_EQ(only_addition().path, kTarget);
  EXPECT_EQ(only_addition().ns, kNs);
  EXPECT_EQ(only_addition().value, "value");
  EXPECT_EQ(only_addition().source, request.root());
  EXPECT_EQ(only_addition().word, 0U);
  EXPECT_EQ(only_addition().list_flag, 0);
  EXPECT_EQ(only_addition().last_flag, 0);
}

TEST_F(RequestHandlers, ConfigLeafInDelete_HasItsNodeButNoValue) {
  Request deleting(leaf("leaf", "value").with(YFW_OPERATION_DELETE));
  EXPECT_EQ(run(config_leaf, deleting), YFW_OK);
  EXPECT_EQ(only_addition().value, std::nullopt);
  EXPECT_EQ(only_addition().source, deleting.root());
}

TEST_F(RequestHandlers, ConfigLeafInRead_IsRequestedWithItsValueAndWithoutNode) {
  for (const std::uint32_t operation : {0U, 10U}) {
    EXPECT_EQ(run(converting_leaf, operation), YFW_OK);
    EXPECT_EQ(platform.additions().back().value, "value") << "nothing is converted in a read";
    EXPECT_EQ(platform.additions().back().source, nullptr);
    EXPECT_EQ(platform.additions().back().last_flag, 1);
  }
  EXPECT_EQ(platform.count("yfw_map_is_request_delete"), 0U) << "a read is not asked whether it deletes";
}

TEST_F(RequestHandlers, OtherOperationCode_IsAnEdit) {
  for (const std::uint32_t operation : {1U, 2U, 8U, 15U}) {
    EXPECT_EQ(run(config_leaf, operation), YFW_OK);
    EXPECT_EQ(platform.additions().back().source, request.root()) << "operation " << operation;
  }
}

TEST_F(RequestHandlers, ConvertingLeafInEdit_AddsTheConvertedValue) {
  EXPECT_EQ(run(converting_leaf, YFW_REQUEST_EDIT), YFW_OK);
  EXPECT_EQ(only_addition().value, "c");
  EXPECT_EQ(only_addition().last_flag, 1);
}

TEST_F(RequestHandlers, ConvertingLeafInDelete_ConvertsNothing) {
  Request deleting(leaf("leaf", "value").with(YFW_OPERATION_REMOVE));
  EXPECT_EQ(run(refusing_leaf, deleting), YFW_OK);
  EXPECT_EQ(only_addition().value, std::nullopt);
}

TEST_F(RequestHandlers, RefusedValue_AddsNothingAndRecordsEnd) {
  EXPECT_EQ(run(refusing_leaf, YFW_REQUEST_EDIT), 0x11U);
  EXPECT_THAT(added(), IsEmpty());
  EXPECT_EQ(platform.traced("refusing_leaf", "End"), 1U);
}

TEST_F(RequestHandlers, AbandonedConversion_AddsNothingWithoutEndRecord) {
  EXPECT_EQ(run(abandoning_leaf, YFW_REQUEST_EDIT), 0x12U);
  EXPECT_THAT(added(), IsEmpty());
  EXPECT_EQ(platform.traced("abandoning_leaf", "End"), 0U);
}

TEST_F(RequestHandlers, FailedAddition_ReturnsItsStatus) {
  platform.script("yfw_map_datatree_add_path_flagged", 0, 0x77);
  EXPECT_EQ(run(config_leaf, YFW_REQUEST_EDIT), 0x77U);
  EXPECT_EQ(run(config_leaf, YFW_REQUEST_READ_CONFIG), 0x77U);
  EXPECT_EQ(run(state_leaf, YFW_REQUEST_READ_STATE), 0x77U);
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
}

TEST_F(RequestHandlers, StateLeafInRead_IsRequested) {
  for (const std::uint32_t operation : {0U, 10U}) {
    EXPECT_EQ(run(state_leaf, operation), YFW_OK);
    const support::Addition& addition = platform.additions().back();
    EXPECT_EQ(addition.path, kTarget);
    EXPECT_EQ(addition.value, "value");
    EXPECT_EQ(addition.source, nullptr);
    EXPECT_EQ(addition.last_flag, 1);
  }
  EXPECT_EQ(platform.additions().size(), 2U);
}

TEST_F(RequestHandlers, StateLeafInEdit_AddsNothing) {
  for (const std::uint32_t operation : {1U, 8U, 15U}) EXPECT_EQ(run(state_leaf, operation), YFW_OK);
  EXPECT_THAT(added(), IsEmpty());
  EXPECT_EQ(platform.count("yfw_map_is_request_delete"), 0U);
}

TEST_F(RequestHandlers, StateLeafThatAsksInEdits_IgnoresTheAnswer) {
  EXPECT_EQ(run(asking_state_leaf, YFW_REQUEST_EDIT), YFW_OK);
  EXPECT_EQ(platform.count("yfw_map_is_request_delete"), 1U);
  EXPECT_THAT(added(), IsEmpty());
}

TEST_F(RequestHandlers, ConvertedLeaf_ReturnsTheConvertersStatus) {
  EXPECT_EQ(run(converted_leaf, YFW_REQUEST_EDIT), YFW_OK);
  EXPECT_THAT(added(), ElementsAre("/converter/path=value"));
  platform.script("yfw_map_datatree_add_path_flagged", 0, 0x77);
  EXPECT_EQ(run(converted_leaf, YFW_REQUEST_EDIT), 0x77U);
  EXPECT_EQ(platform.traced("converted_leaf", "End"), 2U);
}

TEST_F(RequestHandlers, UnsupportedLeaf_IsRefusedInEveryRequest) {
  for (const std::uint32_t operation : {0U, 1U, 8U, 10U, 15U}) {
    EXPECT_EQ(run(unsupported_leaf, operation), YFW_UNSUPPORTED_NODE) << "operation " << operation;
  }
  EXPECT_EQ(platform.error_tag(), "leaf");
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 5U);
  EXPECT_EQ(platform.traced("unsupported_leaf", "End"), 5U);
}

TEST_F(RequestHandlers, UnsupportedLeaf_MarksTheErrorPathBeforeStoringTheTag) {
  run(unsupported_leaf, YFW_REQUEST_EDIT);
  EXPECT_LT(position("yfw_oc_error_path"), position("yfw_strdup", "leaf"));
}

TEST_F(RequestHandlers, UnsupportedLeafWithoutRequestState_IsRefused) {
  platform.take_request_state_away();
  EXPECT_EQ(run(unsupported_leaf, request), YFW_UNSUPPORTED_NODE);
  EXPECT_EQ(platform.count("yfw_strdup"), 0U);
}

TEST_F(RequestHandlers, AcceptedNode_DoesNothing) {
  EXPECT_EQ(run(accepted_node, YFW_REQUEST_EDIT), YFW_OK);
  EXPECT_THAT(platform.trace(), ElementsAre("TRC accepted_node: Start", "TRC accepted_node: End"));
}

TEST_F(RequestHandlers, UncheckedNode_IgnoresItsArguments) {
  EXPECT_EQ(unchecked_node(platform.ctx(), nullptr, nullptr), YFW_OK);
  EXPECT_THAT(platform.trace(), ElementsAre("TRC unchecked_node: Start", "TRC unchecked_node: End"));
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
}

TEST_F(RequestHandlers, AddedForeignNode_IsRefused) {
  EXPECT_EQ(run(foreign_node, YFW_REQUEST_EDIT), YFW_UNKNOWN_AUGMENT);
  EXPECT_EQ(platform.error_tag(), "leaf");
  EXPECT_LT(position("yfw_strdup", "leaf"), position("yfw_oc_error_path"))
      << "the tag is stored before the error path is marked";
  EXPECT_EQ(platform.traced("foreign_node", "End"), 1U);
}

TEST_F(RequestHandlers, ForeignNodeInReadOrDelete_IsIgnored) {
  EXPECT_EQ(run(foreign_node, YFW_REQUEST_READ_CONFIG), YFW_OK);
  EXPECT_EQ(run(foreign_node, YFW_REQUEST_READ_STATE), YFW_OK);
  Request deleting(leaf("leaf").with(YFW_OPERATION_DELETE));
  platform.set_operation(YFW_REQUEST_EDIT);
  EXPECT_EQ(run(foreign_node, deleting), YFW_OK);
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
  EXPECT_EQ(platform.error_tag(), "");
}

}  // namespace
