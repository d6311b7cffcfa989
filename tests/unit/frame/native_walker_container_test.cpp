// Containers of native trees: steps of a walk, and what configuration and operational data do differently.
#include <string>

#include "unit/frame/native_walker_model.h"

namespace {

using model::log;
using support::container;
using support::leaf;
using support::Node;
using support::Request;
using testing::ElementsAre;
using testing::IsEmpty;

YMAP_DEFINE_HANDLER(config_top, ymap::walk_native_container, model::kConfigContainer)
YMAP_DEFINE_HANDLER(oper_top, ymap::walk_native_container, model::kOperContainer)

Node node(std::vector<Node> children = {}) {
  return container("top", std::move(children)).in(model::kNs);
}

class NativeContainerWalker : public model::WalkerTest {
 protected:
  cerrno walk_config(Request& request, std::uint32_t operation = YFW_REQUEST_READ_CONFIG) {
    platform.set_operation(operation);
    return config_top(platform.ctx(), request.root(), platform.output());
  }
  cerrno walk_oper(Request& request, std::uint32_t operation = YFW_REQUEST_READ_STATE) {
    platform.set_operation(operation);
    return oper_top(platform.ctx(), request.root(), platform.output());
  }
};

TEST_F(NativeContainerWalker, NullArgument_IsInvalid) {
  Request request(node());
  EXPECT_EQ(config_top(platform.ctx(), nullptr, platform.output()), YFW_INVALID_ARGUMENTS);
  EXPECT_EQ(oper_top(platform.ctx(), request.root(), nullptr), YFW_INVALID_ARGUMENTS);
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 2U);
  EXPECT_THAT(visited(), IsEmpty());
  EXPECT_EQ(platform.traced("config_top", "End") + platform.traced("oper_top", "End"), 0U);
}

TEST_F(NativeContainerWalker, MissingChildArray_IsMalformed) {
  Request request(node({leaf("first")}));
  request.root()->children = nullptr;
  EXPECT_EQ(walk_config(request), YFW_MALFORMED_TREE);
  EXPECT_THAT(platform.trace(),
              ElementsAre("TRC config_top: Start", "ERR config_top: Failed to get subtrees!", "TRC config_top: End"));
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
  EXPECT_EQ(platform.count("yfw_map_add_to_node_hierarchy"), 0U);
  EXPECT_THAT(visited(), IsEmpty());
}

TEST_F(NativeContainerWalker, ChildrenWithoutSubtreeFlag_AreIgnored) {
  Request request(node({leaf("first")}));
  request.root()->flags = 0;
  EXPECT_EQ(walk_config(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler"));
  EXPECT_EQ(log.visits[0].child_count, 0U);
}

TEST_F(NativeContainerWalker, Walk_KeepsTheContainerOnTheHierarchy) {
  Request request(node({leaf("first")}));
  EXPECT_EQ(walk_config(request), YFW_OK);
  EXPECT_EQ(request.root()->node_kind, std::uint32_t{YFW_NODE_CONTAINER});
  EXPECT_EQ(request.root()->hierarchy_flags, std::uint32_t{YFW_HIERARCHY_ENTERED});
  EXPECT_LT(position("yfw_map_add_to_node_hierarchy", "top container"), position("_lstrace", "Processing tag"));
  EXPECT_LT(position("_lstrace", "Processing tag"), position("yfw_map_remove_from_node_hierarchy", "top"));
  EXPECT_LT(position("yfw_map_remove_from_node_hierarchy", "top"), position("_lstrace", "config_top \"End\""));
  expect_nothing_left(request);
}

TEST_F(NativeContainerWalker, Handler_RunsFirstWithTheNumberOfChildren) {
  Request request(node({leaf("first"), leaf("first"), leaf("unheard-of")}));
  EXPECT_EQ(walk_oper(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "first", "first"));
  EXPECT_EQ(log.visits[0].child_count, 3U);
}

TEST_F(NativeContainerWalker, SkipFromHandler_SucceedsWithoutEndRecord) {
  Request request(node({leaf("first")}));
  log.answers["handler"] = {YFW_SKIP_SUBTREE};
  EXPECT_EQ(walk_config(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler"));
  EXPECT_EQ(platform.traced("config_top", "End"), 0U);
  expect_nothing_left(request);
}

TEST_F(NativeContainerWalker, ErrorFromHandler_EndsTheWalkWithItsCode) {
  Request request(node({leaf("first")}));
  log.answers["handler"] = {0x77};
  EXPECT_EQ(walk_oper(request), 0x77U);
  EXPECT_THAT(visited(), ElementsAre("handler"));
  EXPECT_EQ(platform.traced("oper_top", "End"), 1U);
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
  expect_nothing_left(request);
}

TEST_F(NativeContainerWalker, Children_AreWalkedInRequestOrder) {
  Request request(node({container("second"), leaf("first"), container("second")}));
  EXPECT_EQ(walk_config(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "second", "first", "second"));
  EXPECT_EQ(log.visits[2].node, request.find("first"));
}

TEST_F(NativeContainerWalker, Child_IsRecordedBeforeItsTagIsTested) {
  Request request(node({leaf("first"), leaf("unheard-of"), leaf("foreign").in("urn:other")}));
  EXPECT_EQ(walk_config(request), YFW_OK);
  for (const char* tag : {"first", "unheard-of", "foreign"}) {
    SCOPED_TRACE(tag);
    EXPECT_EQ(platform.traced("config_top", std::string("Processing tag '") + tag + "'"), 1U);
    EXPECT_LT(position("_lstrace", std::string("Processing tag '") + tag),
              position("yfw_map_do_these_match", std::string("\"") + tag + "\" "));
  }
}

TEST_F(NativeContainerWalker, ErrorFromChild_EndsTheWalkWithItsCode) {
  Request request(node({leaf("first"), container("second"), leaf("first")}));
  log.answers["second"] = {0x77};
  EXPECT_EQ(walk_config(request), 0x77U);
  EXPECT_THAT(visited(), ElementsAre("handler", "first", "second"));
  EXPECT_EQ(platform.traced("config_top", "End"), 1U);
  expect_nothing_left(request);
}

TEST_F(NativeContainerWalker, SkipFromEntry_ContinuesWithTheNextChild) {
  Request request(node({container("third"), leaf("first")}));
  log.answers["third"] = {YFW_SKIP_SUBTREE};
  EXPECT_EQ(walk_oper(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "third", "first"));
  EXPECT_EQ(platform.traced("oper_top", "End"), 1U);
}

TEST_F(NativeContainerWalker, SkipFromOtherChild_EndsTheWalkWithItsCode) {
  for (const bool config : {true, false}) {
    for (const char* const child : {"first", "second", "augments"}) {
      SCOPED_TRACE(child);
      log = {};
      log.answers[child] = {YFW_SKIP_SUBTREE};
      Node skipped = child == std::string("augments") ? leaf("foreign").in("urn:other") : leaf(child);
      Request request(node({std::move(skipped), container("third")}));
      EXPECT_EQ(config ? walk_config(request) : walk_oper(request), YFW_SKIP_SUBTREE);
      EXPECT_THAT(visited(), ElementsAre("handler", child));
      expect_nothing_left(request);
    }
  }
  EXPECT_EQ(platform.traced("config_top", "End"), 3U);
  EXPECT_EQ(platform.traced("oper_top", "End"), 3U);
}

TEST_F(NativeContainerWalker, ChildWithoutTag_EndsTheWalkAsMalformed) {
  Request request(
      node({leaf("first"), Node{.tag = std::nullopt, .value = "v", .ns = "", .children = {}}, leaf("first")}));
  EXPECT_EQ(walk_oper(request), YFW_MALFORMED_TREE);
  EXPECT_THAT(visited(), ElementsAre("handler", "first"));
  EXPECT_EQ(platform.traced("oper_top", "Tag name is not available!"), 1U);
  EXPECT_EQ(platform.traced("oper_top", "End"), 1U);
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
  expect_nothing_left(request);
}

TEST_F(NativeContainerWalker, UnknownChild_IsIgnoredInEveryRequest) {
  for (const std::uint32_t operation : {0U, 1U, 8U, 10U, 15U}) {
    SCOPED_TRACE(operation);
    Request request(node({leaf("unheard-of")}));
    EXPECT_EQ(walk_config(request, operation), YFW_OK);
    EXPECT_EQ(walk_oper(request, operation), YFW_OK);
  }
  EXPECT_EQ(platform.traced("config_top", "Unsupported tag. Ignoring."), 5U);
  EXPECT_EQ(platform.traced("oper_top", "Unsupported tag. Ignoring."), 5U);
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
  EXPECT_EQ(platform.error_tag(), "");
}

TEST_F(NativeContainerWalker, ForeignChild_GoesToTheAugmentParser) {
  Request request(node({leaf("foreign").in("urn:other"), leaf("first")}));
  EXPECT_EQ(walk_config(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "augments", "first"));
  log.answers["augments"] = {0x77};
  EXPECT_EQ(walk_config(request), 0x77U);
  EXPECT_EQ(platform.traced("config_top", "Unsupported tag. Ignoring."), 0U);
}

TEST_F(NativeContainerWalker, KnownTagOfOtherNamespace_IsWalked) {
  Request request(node({leaf("first").in("urn:other")}));
  EXPECT_EQ(walk_config(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "first"));
}

TEST_F(NativeContainerWalker, Configuration_IsWalkedInEveryRequest) {
  for (const std::uint32_t operation : {0U, 1U, 8U, 10U, 15U}) {
    SCOPED_TRACE(operation);
    log = {};
    Request request(node({leaf("first"), container("second")}));
    EXPECT_EQ(walk_config(request, operation), YFW_OK);
    EXPECT_THAT(visited(), ElementsAre("handler", "first", "second"));
  }
}

TEST_F(NativeContainerWalker, OperationalData_IsWalkedInStateReadsOnly) {
  for (const std::uint32_t operation : {0U, 1U, 8U, 15U}) {
    SCOPED_TRACE(operation);
    log = {};
    Request request(node({leaf("first"), container("second"), leaf("first").in("urn:other")}));
    EXPECT_EQ(walk_oper(request, operation), YFW_OK);
    EXPECT_THAT(visited(), ElementsAre("handler", "augments")) << "a known child counts as an unknown one";
    EXPECT_EQ(log.visits[0].child_count, 3U);
  }
  EXPECT_EQ(platform.traced("oper_top", "Unsupported tag. Ignoring."), 8U);
}

TEST_F(NativeContainerWalker, ConfigurationLeaf_IsNotOnTheHierarchy) {
  Request request(node({leaf("first")}));
  EXPECT_EQ(walk_config(request), YFW_OK);
  EXPECT_EQ(platform.count("yfw_map_add_to_node_hierarchy"), 1U);
  EXPECT_EQ(request.find("first")->node_kind, 0U);
  EXPECT_EQ(request.find("first")->hierarchy_flags, 0U);
}

TEST_F(NativeContainerWalker, OperationalLeaf_IsOnTheHierarchyDuringItsHandler) {
  Request request(node({leaf("first")}));
  log.answers["first"] = {0x77};
  static std::vector<std::string> hierarchy;
  hierarchy.clear();
  log.actions["first"] = [](yfw_map_ctx) {
    for (const auto& [entered, kind] : support::Platform::current().seen().hierarchy) {
      hierarchy.push_back(std::string(entered->tag) + " " + std::to_string(kind));
    }
  };
  EXPECT_EQ(walk_oper(request), 0x77U);
  EXPECT_THAT(hierarchy, ElementsAre("top 1", "first 1"));
  EXPECT_EQ(request.find("first")->node_kind, std::uint32_t{YFW_NODE_LEAF});
  EXPECT_EQ(request.find("first")->hierarchy_flags, std::uint32_t{YFW_HIERARCHY_ENTERED});
  expect_nothing_left(request);
}

TEST_F(NativeContainerWalker, OperationalInnerNode_IsNotEnteredForItsWalker) {
  Request request(node({container("second")}));
  EXPECT_EQ(walk_oper(request), YFW_OK);
  EXPECT_EQ(platform.count("yfw_map_add_to_node_hierarchy"), 1U);
}

TEST_F(NativeContainerWalker, TypedConfigurationLeaf_FlagsTheRequestBeforeItsHandler) {
  Request request(node({leaf("first", "v")}));
  request.find("first")->flags |= YFW_FLAG_TYPED_VALUE;
  request.find("first")->value_type = YFW_VALUE_TYPE_REPORTED;
  EXPECT_EQ(walk_config(request), YFW_OK);
  EXPECT_EQ(log.visits[1].marks.request_flags, std::uint32_t{YFW_REQUEST_TYPED_LEAF});
  EXPECT_EQ(platform.state().request_flags, std::uint32_t{YFW_REQUEST_TYPED_LEAF});
}

TEST_F(NativeContainerWalker, UntypedOtherTypeOrOperationalLeaf_DoesNotFlagTheRequest) {
  Request request(node({leaf("first", "v")}));
  yfw_datatree& typed = *request.find("first");
  typed.value_type = YFW_VALUE_TYPE_REPORTED;
  EXPECT_EQ(walk_config(request), YFW_OK);
  EXPECT_EQ(platform.state().request_flags, 0U) << "the value type is not valid without the flag";
  typed.flags |= YFW_FLAG_TYPED_VALUE;
  typed.value_type = 4;
  EXPECT_EQ(walk_config(request), YFW_OK);
  EXPECT_EQ(platform.state().request_flags, 0U) << "another type";
  typed.value_type = YFW_VALUE_TYPE_REPORTED;
  EXPECT_EQ(walk_oper(request), YFW_OK);
  EXPECT_EQ(platform.state().request_flags, 0U) << "operational data reports none";
}

TEST_F(NativeContainerWalker, TypedInnerNodeOrUnknownLeaf_DoesNotFlagTheRequest) {
  Request request(node({container("second"), leaf("unheard-of")}));
  for (const char* tag : {"second", "unheard-of"}) {
    request.find(tag)->flags |= YFW_FLAG_TYPED_VALUE;
    request.find(tag)->value_type = YFW_VALUE_TYPE_REPORTED;
  }
  EXPECT_EQ(walk_config(request), YFW_OK);
  EXPECT_EQ(platform.state().request_flags, 0U);
}

TEST_F(NativeContainerWalker, TypedConfigurationLeaf_KeepsOtherRequestFlags) {
  Request request(node({leaf("first", "v")}));
  request.find("first")->flags |= YFW_FLAG_TYPED_VALUE;
  request.find("first")->value_type = YFW_VALUE_TYPE_REPORTED;
  platform.state().request_flags = 0x1;
  EXPECT_EQ(walk_config(request), YFW_OK);
  EXPECT_EQ(platform.state().request_flags, 0x101U);
}

TEST_F(NativeContainerWalker, EditOrEmptyContainer_IsWalkedOnceWithoutExpansion) {
  for (const std::uint32_t edit : {1U, 3U, 4U}) {
    SCOPED_TRACE(edit);
    log = {};
    Request request(node({leaf("first")}).with(edit));
    EXPECT_EQ(walk_config(request, YFW_REQUEST_EDIT), YFW_OK);
    EXPECT_THAT(visited(), ElementsAre("handler", "first"));
    EXPECT_EQ(log.visits[0].operation, edit);
    expect_nothing_left(request);
  }
  log = {};
  Request empty(node());
  EXPECT_EQ(walk_config(empty), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler"));
}

TEST_F(NativeContainerWalker, Walk_LeavesFilterBitsUnchanged) {
  Request request(node({leaf("first", "v"), leaf("first")}));
  platform.state().filter_bits = 0xFFFFFFFF;
  EXPECT_EQ(walk_config(request), YFW_OK);
  EXPECT_EQ(walk_oper(request), YFW_OK);
  EXPECT_EQ(platform.state().filter_bits, 0xFFFFFFFFU);
}

}  // namespace
