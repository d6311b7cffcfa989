// List entries of native trees: keys, the list handler and the output list.
#include <algorithm>
#include <string>

#include "unit/frame/native_walker_model.h"

namespace {

using model::log;
using support::container;
using support::leaf;
using support::Node;
using support::Request;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

YMAP_DEFINE_HANDLER(config_entry, ymap::walk_native_list_entry, model::kConfigList)
YMAP_DEFINE_HANDLER(oper_entry, ymap::walk_native_list_entry, model::kOperList)

YMAP_DEFINE_HANDLER(scratch_entry, ymap::walk_native_list_entry, model::kScratchList)

constexpr char kNoKeys[] = "No keys specified with a list node.";

Node entry(std::vector<Node> children) {
  return container("entry", std::move(children)).in(model::kNs);
}

class NativeListWalker : public model::WalkerTest {
 protected:
  cerrno walk_config(Request& request, std::uint32_t operation = YFW_REQUEST_READ_CONFIG) {
    platform.set_operation(operation);
    return config_entry(platform.ctx(), request.root(), platform.output());
  }
  cerrno walk_oper(Request& request, std::uint32_t operation = YFW_REQUEST_READ_STATE) {
    platform.set_operation(operation);
    return oper_entry(platform.ctx(), request.root(), platform.output());
  }
  cerrno walk(bool config, Request& request) { return config ? walk_config(request) : walk_oper(request); }

  // The calls that keep the position and the output list, in order.
  [[nodiscard]] std::vector<std::string> bookkeeping() const {
    constexpr const char* kOfInterest[] = {"yfw_map_add_to_node_hierarchy", "yfw_map_update_current_list_node",
                                           "yfw_add_to_output_list_ctx", "yfw_map_remove_from_node_hierarchy",
                                           "yfw_remove_from_output_list_ctx"};
    std::vector<std::string> names;
    for (const support::Call& call : platform.calls()) {
      if (std::find(std::begin(kOfInterest), std::end(kOfInterest), call.function) != std::end(kOfInterest)) {
        names.push_back(call.function);
      }
    }
    return names;
  }
};

TEST_F(NativeListWalker, NullArgument_IsInvalid) {
  Request request(entry({leaf("id", "a")}));
  EXPECT_EQ(config_entry(platform.ctx(), nullptr, platform.output()), YFW_INVALID_ARGUMENTS);
  EXPECT_EQ(oper_entry(platform.ctx(), request.root(), nullptr), YFW_INVALID_ARGUMENTS);
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 2U);
  EXPECT_THAT(visited(), IsEmpty());
}

TEST_F(NativeListWalker, MissingChildArray_IsMalformed) {
  Request request(entry({leaf("id", "a")}));
  request.root()->children = nullptr;
  EXPECT_EQ(walk_oper(request), YFW_MALFORMED_TREE);
  EXPECT_THAT(platform.trace(),
              ElementsAre("TRC oper_entry: Start", "ERR oper_entry: Failed to get subtrees!", "TRC oper_entry: End"));
  EXPECT_THAT(bookkeeping(), IsEmpty());
}

TEST_F(NativeListWalker, WalkOfChildren_HasTheEntryOnHierarchyAndOutputList) {
  for (const bool config : {true, false}) {
    SCOPED_TRACE(config);
    log = {};
    Request request(entry({leaf("id", "a"), container("second")}));
    static unsigned listed = 0;
    listed = 0;
    log.actions["handler"] = [](yfw_map_ctx ctx) {
      EXPECT_EQ(ctx->request->output_list_count, 0U) << "the handler runs before the entry is listed";
    };
    log.actions["second"] = [](yfw_map_ctx ctx) {
      listed = ctx->request->output_list_count;
      ASSERT_EQ(support::Platform::current().seen().hierarchy.size(), 1U);
      EXPECT_EQ(support::Platform::current().seen().hierarchy[0].second, int{YFW_HIERARCHY_LIST});
    };
    EXPECT_EQ(walk(config, request), YFW_OK);
    EXPECT_THAT(visited(), ElementsAre("handler", "second"));
    EXPECT_EQ(listed, 1U);
    EXPECT_EQ(request.root()->node_kind, std::uint32_t{YFW_NODE_LIST_ENTRY});
    EXPECT_EQ(request.root()->hierarchy_flags, std::uint32_t{YFW_HIERARCHY_ENTERED});
    expect_nothing_left(request);
  }
}

TEST_F(NativeListWalker, EndOfWalk_RemovesFromHierarchyThenOutputList) {
  Request request(entry({leaf("id", "a")}));
  EXPECT_EQ(walk_config(request), YFW_OK);
  EXPECT_THAT(bookkeeping(), ElementsAre("yfw_map_add_to_node_hierarchy", "yfw_map_update_current_list_node",
                                         "yfw_add_to_output_list_ctx", "yfw_map_remove_from_node_hierarchy",
                                         "yfw_remove_from_output_list_ctx"));
  EXPECT_EQ(platform.count("yfw_map_update_current_list_node", "\"/top/entry\""), 1U);
  EXPECT_EQ(platform.count("yfw_map_add_to_node_hierarchy", "entry list"), 1U);
}

TEST_F(NativeListWalker, Keys_AreMarkedBeforeTheListHandler) {
  for (const bool config : {true, false}) {
    SCOPED_TRACE(config);
    log = {};
    Request request(entry({leaf("class", "act"), leaf("first", "v"), leaf("id", "a")}));
    static const yfw_datatree* children = nullptr;
    children = request.root()->children;
    log.actions["handler"] = [](yfw_map_ctx) {
      for (const int key : {0, 2}) {
        EXPECT_EQ(children[key].key_mark, 1) << children[key].tag;
        EXPECT_EQ(children[key].flags & YFW_FLAG_LIST_KEY, std::uint32_t{YFW_FLAG_LIST_KEY}) << children[key].tag;
      }
      EXPECT_EQ(children[1].key_mark, 0);
      EXPECT_EQ(children[1].flags & YFW_FLAG_LIST_KEY, 0U);
    };
    EXPECT_EQ(walk(config, request), YFW_OK);
    EXPECT_THAT(visited(), ElementsAre("handler", "first"));
  }
}

TEST_F(NativeListWalker, ChildWithoutTag_EndsTheWalkAfterTheListHandler) {
  Request request(entry({Node{.tag = std::nullopt, .value = "v", .ns = "", .children = {}}, leaf("id", "a")}));
  EXPECT_EQ(walk_config(request), YFW_MALFORMED_TREE);
  EXPECT_THAT(visited(), ElementsAre("handler"));
  EXPECT_EQ(platform.traced("config_entry", "Tag name is not available!"), 1U);
  expect_nothing_left(request);
}

TEST_F(NativeListWalker, ConfigurationEntryWithoutKeys_IsMalformed) {
  for (const bool has_children : {true, false}) {
    SCOPED_TRACE(has_children);
    log = {};
    Request request(entry(has_children ? std::vector<Node>{leaf("first", "v")} : std::vector<Node>{}));
    EXPECT_EQ(walk_config(request), YFW_MALFORMED_TREE);
    EXPECT_THAT(visited(), IsEmpty());
    expect_nothing_left(request);
  }
  EXPECT_EQ(platform.traced("config_entry", kNoKeys), 2U);
  EXPECT_EQ(platform.traced("config_entry", "End"), 2U);
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
  EXPECT_EQ(platform.count("yfw_add_to_output_list_ctx"), 0U);
  EXPECT_LT(position("yfw_map_update_current_list_node"), position("_lstrace", kNoKeys))
      << "it is found while the keys are marked";
}

TEST_F(NativeListWalker, ConfigurationEntryWithOneOfItsKeys_IsWalked) {
  Request request(entry({leaf("class")}));
  EXPECT_EQ(walk_config(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler"));
}

TEST_F(NativeListWalker, OperationalEntryWithoutChildren_IsRecordedAndWalked) {
  Request request(entry({}));
  EXPECT_EQ(walk_oper(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler"));
  EXPECT_EQ(platform.traced("oper_entry", kNoKeys), 1U);
  EXPECT_LT(position("_lstrace", kNoKeys), position("yfw_map_add_to_node_hierarchy"));
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
  EXPECT_EQ(platform.traced("oper_entry", "End"), 1U);
  expect_nothing_left(request);
}

TEST_F(NativeListWalker, OperationalEntryWithChildrenButNoKey_IsWalked) {
  Request request(entry({container("second")}));
  EXPECT_EQ(walk_oper(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "second"));
  EXPECT_EQ(platform.traced("oper_entry", kNoKeys), 0U);
}

TEST_F(NativeListWalker, SkipFromListHandler_IsReturnedWithoutEndRecord) {
  for (const bool config : {true, false}) {
    SCOPED_TRACE(config);
    log = {};
    Request request(entry({leaf("id", "a"), container("second")}));
    log.answers["handler"] = {YFW_SKIP_SUBTREE};
    EXPECT_EQ(walk(config, request), YFW_SKIP_SUBTREE);
    EXPECT_THAT(visited(), ElementsAre("handler"));
    expect_nothing_left(request);
  }
  EXPECT_EQ(platform.traced("config_entry", "End") + platform.traced("oper_entry", "End"), 0U);
  EXPECT_EQ(platform.count("yfw_add_to_output_list_ctx"), 0U);
  EXPECT_EQ(platform.count("yfw_remove_from_output_list_ctx"), 0U);
}

TEST_F(NativeListWalker, SkipFromChild_IsReturnedWithEndRecord) {
  for (const bool config : {true, false}) {
    for (const char* const passing_up : {"first", "second", "augments"}) {
      SCOPED_TRACE(passing_up);
      log = {};
      Request request(
          entry({leaf("id", "a"), leaf("first", "v"), container("second"), leaf("foreign").in("urn:other")}));
      log.answers[passing_up] = {YFW_SKIP_SUBTREE};
      EXPECT_EQ(walk(config, request), YFW_SKIP_SUBTREE);
      EXPECT_THAT(visited(), Contains(passing_up));
      expect_nothing_left(request);
    }
  }
  EXPECT_EQ(platform.traced("config_entry", "End"), 3U);
  EXPECT_EQ(platform.traced("oper_entry", "End"), 3U);
}

TEST_F(NativeListWalker, ErrorFromListHandler_AddsAndRemovesTheOutputListEntry) {
  for (const bool config : {true, false}) {
    SCOPED_TRACE(config);
    log = {};
    Request request(entry({leaf("id", "a"), container("second")}));
    log.answers["handler"] = {0x77};
    EXPECT_EQ(walk(config, request), 0x77U);
    EXPECT_THAT(visited(), ElementsAre("handler"));
    expect_nothing_left(request);
  }
  EXPECT_EQ(platform.count("yfw_add_to_output_list_ctx"), 2U);
  EXPECT_EQ(platform.count("yfw_remove_from_output_list_ctx"), 2U);
  EXPECT_EQ(platform.traced("config_entry", "End") + platform.traced("oper_entry", "End"), 2U);
}

TEST_F(NativeListWalker, CurrentListNodeNotSet_DoesNotRunTheListHandler) {
  for (const bool config : {true, false}) {
    SCOPED_TRACE(config);
    log = {};
    Request request(entry({leaf("id", "a"), container("second")}));
    platform.script("yfw_map_update_current_list_node", 0, 0x77);
    EXPECT_EQ(walk(config, request), 0x77U);
    EXPECT_THAT(visited(), IsEmpty());
    expect_nothing_left(request);
  }
  EXPECT_EQ(platform.count("yfw_add_to_output_list_ctx"), 2U);
  EXPECT_EQ(platform.count("yfw_remove_from_output_list_ctx"), 2U);
}

TEST_F(NativeListWalker, CurrentListNodeNotSet_MarksConfigurationKeysOnly) {
  for (const bool config : {true, false}) {
    SCOPED_TRACE(config);
    Request request(entry({leaf("id", "a")}));
    platform.script("yfw_map_update_current_list_node", 0, 0x77);
    EXPECT_EQ(walk(config, request), 0x77U);
    EXPECT_EQ(request.find("id")->key_mark, config ? 1 : 0);
    EXPECT_EQ(request.find("id")->flags & YFW_FLAG_LIST_KEY, config ? std::uint32_t{YFW_FLAG_LIST_KEY} : 0U);
  }
}

TEST_F(NativeListWalker, MissingKeysAndListNodeNotSet_IsMalformedForConfiguration) {
  Request request(entry({leaf("first", "v")}));
  platform.script("yfw_map_update_current_list_node", 0, 0x77);
  EXPECT_EQ(walk_config(request), YFW_MALFORMED_TREE);
  EXPECT_EQ(platform.traced("config_entry", kNoKeys), 1U);
  EXPECT_EQ(platform.traced("config_entry", "End"), 1U);
  EXPECT_EQ(platform.count("yfw_add_to_output_list_ctx"), 0U);
  EXPECT_EQ(walk_oper(request), 0x77U);
  EXPECT_EQ(platform.traced("oper_entry", kNoKeys), 0U);
  expect_nothing_left(request);
}

TEST_F(NativeListWalker, OutputListNotGrown_IsNotShrunk) {
  Request request(entry({leaf("id", "a"), container("second")}));
  platform.output_list_grows = false;
  EXPECT_EQ(walk_config(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "second"));
  EXPECT_EQ(platform.count("yfw_add_to_output_list_ctx"), 1U);
  EXPECT_EQ(platform.count("yfw_remove_from_output_list_ctx"), 0U);
}

TEST_F(NativeListWalker, OutputListGrownByHandlerOrChild_IsNotShrunk) {
  for (const char* function : {"handler", "second"}) {
    Request request(entry({leaf("id", "a"), container("second")}));
    log = {};
    log.actions[function] = [](yfw_map_ctx ctx) { ++ctx->request->output_list_count; };
    platform.output_list_grows = false;
    EXPECT_EQ(walk_config(request), YFW_OK);
    EXPECT_EQ(platform.count("yfw_remove_from_output_list_ctx"), 0U) << function;
  }
}

TEST_F(NativeListWalker, EarlierOutputListEntries_Remain) {
  Request request(entry({leaf("id", "a")}));
  yfw_add_to_output_list_ctx(platform.ctx(), platform.output());
  EXPECT_EQ(walk_config(request), YFW_OK);
  EXPECT_EQ(platform.state().output_list_count, 1U);
}

TEST_F(NativeListWalker, Children_AreDispatchedAsInAContainer) {
  Request request(entry({leaf("id", "a"), leaf("unheard-of"), leaf("foreign").in("urn:other"), container("third"),
                         leaf("first", "v"), container("second")}));
  log.answers["third"] = {YFW_SKIP_SUBTREE};
  log.answers["first"] = {0x77};
  EXPECT_EQ(walk_config(request), 0x77U);
  EXPECT_THAT(visited(), ElementsAre("handler", "augments", "third", "first"));
  EXPECT_EQ(platform.traced("config_entry", "Unsupported tag. Ignoring."), 2U) << "the key and the unknown leaf";
  EXPECT_EQ(platform.traced("config_entry", "End"), 1U);
  expect_nothing_left(request);
}

TEST_F(NativeListWalker, OperationalChildren_AreWalkedInStateReadsOnly) {
  Request request(entry({leaf("id", "a"), container("second")}));
  for (const std::uint32_t operation : {0U, 1U, 8U, 15U}) {
    log = {};
    EXPECT_EQ(walk_oper(request, operation), YFW_OK);
    EXPECT_THAT(visited(), ElementsAre("handler")) << "operation " << operation;
  }
}

// The slot and the name as a handler leaves them.
yfw_datatree slot_of_handler;
void fill_scratch(yfw_map_ctx ctx) {
  ctx->request->current_list_node = &slot_of_handler;
  std::ranges::fill(ctx->request->interface_name, 'n');
}
bool is_name_zero(const yfw_request_state& state) {
  return std::ranges::all_of(state.interface_name, [](char c) { return c == '\0'; });
}

// One way in which the walk of an entry ends.
struct Ending {
  const char* description;
  cerrno status;
  std::map<std::string, std::vector<cerrno>> answers;
  cerrno update_of_list_node = YFW_OK;
  bool has_key = true;
  bool has_child_array = true;
};

TEST_F(NativeListWalker, AnyEndOfWalk_ResetsTheScratch) {
  const std::vector<Ending> endings = {
      {.description = "success", .status = YFW_OK, .answers = {}},
      {.description = "the list handler skips",
       .status = YFW_SKIP_SUBTREE,
       .answers = {{"handler", {YFW_SKIP_SUBTREE}}}},
      {.description = "the list handler fails", .status = 0x77, .answers = {{"handler", {0x77}}}},
      {.description = "a child fails", .status = 0x77, .answers = {{"second", {0x77}}}},
      {.description = "no current list node", .status = 0x77, .answers = {}, .update_of_list_node = 0x77},
      {.description = "no keys", .status = YFW_MALFORMED_TREE, .answers = {}, .has_key = false},
      {.description = "no children", .status = YFW_MALFORMED_TREE, .answers = {}, .has_child_array = false}};
  for (const Ending& ending : endings) {
    SCOPED_TRACE(ending.description);
    support::Platform own;
    log = {.visits = {}, .answers = ending.answers, .actions = {{"handler", fill_scratch}}};
    if (ending.update_of_list_node != YFW_OK) {
      own.script("yfw_map_update_current_list_node", 1, ending.update_of_list_node);
    }
    Request request(entry({leaf(ending.has_key ? "id" : "first", "a"), container("second")}));
    if (!ending.has_child_array) request.root()->children = nullptr;
    yfw_datatree found{};
    own.state().current_list_node = &found;
    std::ranges::fill(own.state().interface_name, 'x');
    EXPECT_EQ(scratch_entry(own.ctx(), request.root(), own.output()), ending.status);
    EXPECT_EQ(own.state().current_list_node, &found);
    EXPECT_TRUE(is_name_zero(own.state()));
  }
}

TEST_F(NativeListWalker, Children_SeeTheScratchOfTheirEntry) {
  Request request(entry({leaf("id", "a"), container("second")}));
  log.actions["handler"] = fill_scratch;
  log.actions["second"] = [](yfw_map_ctx ctx) {
    EXPECT_EQ(ctx->request->current_list_node, &slot_of_handler);
    EXPECT_EQ(ctx->request->interface_name[0], 'n');
  };
  EXPECT_EQ(scratch_entry(platform.ctx(), request.root(), platform.output()), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "second"));
}

TEST_F(NativeListWalker, EntryWithoutOwnScratch_LeavesItUnchanged) {
  for (const bool config : {true, false}) {
    Request request(entry({leaf("id", "a")}));
    log = {};
    log.actions["handler"] = fill_scratch;
    platform.state().current_list_node = nullptr;
    EXPECT_EQ(walk(config, request), YFW_OK);
    EXPECT_EQ(platform.state().current_list_node, &slot_of_handler);
    EXPECT_FALSE(is_name_zero(platform.state()));
  }
}

TEST_F(NativeListWalker, Replace_IsWalkedOnceWithoutExpansion) {
  Request request(entry({leaf("id", "a")}).with(YFW_OPERATION_REPLACE));
  EXPECT_EQ(walk_config(request, YFW_REQUEST_EDIT), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler"));
  EXPECT_EQ(log.visits[0].operation, std::uint32_t{YFW_OPERATION_REPLACE});
  EXPECT_EQ(platform.count("yfw_map_util_itree_stack_push"), 0U);
  EXPECT_EQ(platform.count("yfw_map_check_oc_leafref"), 0U);
  expect_nothing_left(request);
}

}  // namespace
