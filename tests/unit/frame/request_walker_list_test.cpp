// List entries: keys, the list-key handler, children, and the expansion of an entry that names only its key.
#include "unit/frame/walker_model.h"

namespace {

using model::log;
using support::container;
using support::leaf;
using support::Node;
using support::Request;
using testing::ElementsAre;
using testing::IsEmpty;

YMAP_DEFINE_HANDLER(entry, ymap::walk_list_entry, model::kList)

Node node(std::vector<Node> children = {}) {
  return container("entry", std::move(children)).in(model::kNs);
}

class ListWalker : public model::WalkerTest {
 protected:
  cerrno walk(Request& request) { return entry(platform.ctx(), request.root(), platform.output()); }
  cerrno walk(Request& request, std::uint32_t operation) {
    platform.set_operation(operation);
    return walk(request);
  }
};

TEST_F(ListWalker, NullArgument_IsInvalid) {
  Request request(node());
  EXPECT_EQ(entry(platform.ctx(), nullptr, platform.output()), YFW_INVALID_ARGUMENTS);
  EXPECT_EQ(entry(platform.ctx(), request.root(), nullptr), YFW_INVALID_ARGUMENTS);
  EXPECT_THAT(visited(), IsEmpty());
}

TEST_F(ListWalker, MissingChildArray_IsMalformed) {
  Request request(node({leaf("id", "a")}));
  request.root()->children = nullptr;
  EXPECT_EQ(walk(request), YFW_MALFORMED_TREE);
  EXPECT_THAT(platform.trace(),
              ElementsAre("TRC entry: Start", "ERR entry: Failed to get subtrees!", "TRC entry: End"));
}

TEST_F(ListWalker, EntryWithoutChildren_IsRefusedWhereKeysAreChecked) {
  for (std::uint32_t operation = 0; operation < 17; ++operation) {
    SCOPED_TRACE(operation);
    Request request(node());
    const bool checks = operation == 1 || operation == 8 || operation == 15;
    EXPECT_EQ(walk(request, operation), checks ? YFW_MALFORMED_TREE : YFW_OK);
  }
  EXPECT_EQ(platform.traced("entry", "No keys specified with a list node."), 3U);
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
}

TEST_F(ListWalker, EntryWithoutChildrenInEdit_IsRefusedBeforeEntering) {
  Request request(node());
  walk(request, YFW_REQUEST_EDIT);
  EXPECT_EQ(platform.count("yfw_map_add_to_node_hierarchy"), 0U);
  EXPECT_EQ(platform.traced("entry", "End"), 1U);
  EXPECT_THAT(visited(), IsEmpty());
}

TEST_F(ListWalker, EntryWithoutChildrenInExpansionOrWithPendingKey_IsWalked) {
  Request request(node());
  platform.state().whole_subtree = 1;
  EXPECT_EQ(walk(request), YFW_OK);
  platform.state().whole_subtree = 0;
  platform.state().key_pending = YFW_KEY_PENDING_KEY_ONLY;
  EXPECT_EQ(walk(request), YFW_OK);
}

TEST_F(ListWalker, Walk_EntersAndLeavesTheEntry) {
  Request request(node({leaf("id", "a"), leaf("first")}));
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_EQ(platform.count("yfw_map_add_to_node_hierarchy", "entry list"), 1U);
  EXPECT_EQ(request.root()->node_kind, std::uint32_t{YFW_NODE_LIST_ENTRY});
  EXPECT_EQ(request.root()->hierarchy_flags, std::uint32_t{YFW_HIERARCHY_ENTERED});
  EXPECT_LT(position("yfw_map_add_to_node_hierarchy"), position("yfw_map_update_current_list_node", model::kListPath));
  EXPECT_EQ(platform.traced("entry", "End"), 1U);
  expect_nothing_left(request);
}

TEST_F(ListWalker, WalkInExpansion_SetsTheListPathWithoutEntering) {
  Request request(node());
  platform.state().whole_subtree = 1;
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_EQ(platform.count("yfw_map_add_to_node_hierarchy"), 0U);
  EXPECT_EQ(platform.count("yfw_map_update_current_list_node", model::kListPath), 1U);
  EXPECT_EQ(request.root()->node_kind, 0U);
}

TEST_F(ListWalker, RefusedListPath_EndsTheWalk) {
  Request request(node({leaf("id", "a"), leaf("first")}));
  platform.script("yfw_map_update_current_list_node", 0, 0x44);
  EXPECT_EQ(walk(request), 0x44U);
  EXPECT_THAT(visited(), IsEmpty());
  EXPECT_EQ(platform.traced("entry", "End"), 1U);
  expect_nothing_left(request);
}

TEST_F(ListWalker, EnteringInRead_KeepsEveryFourthFilterBit) {
  Request request(node({leaf("id", "a"), leaf("first")}));
  platform.state().filter_bits = 0xFFFFFFFF;
  walk(request, YFW_REQUEST_READ_CONFIG);
  EXPECT_EQ(log.visits.at(0).marks.filter_bits, 0x11111110U);
}

// ---- Keys

TEST_F(ListWalker, Walk_MarksTheKeyLeafOnlyAsKey) {
  Request request(node({leaf("first"), leaf("id", "a")}));
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_EQ(request.find("id")->key_mark, 1);
  EXPECT_EQ(request.find("id")->flags & YFW_FLAG_LIST_KEY, std::uint32_t{YFW_FLAG_LIST_KEY});
  EXPECT_EQ(request.find("first")->key_mark, 0);
  EXPECT_EQ(request.find("first")->flags & YFW_FLAG_LIST_KEY, 0U);
}

TEST_F(ListWalker, Leafref_IsCheckedWhereKeysAreChecked) {
  for (std::uint32_t operation = 0; operation < 17; ++operation) {
    const unsigned before = platform.count("yfw_map_check_oc_leafref");
    Request request(node({leaf("id", "a")}));
    walk(request, operation);
    const bool checks = operation == 1 || operation == 8 || operation == 15;
    EXPECT_EQ(platform.count("yfw_map_check_oc_leafref") - before, checks ? 1U : 0U) << "operation " << operation;
  }
  EXPECT_EQ(platform.count("yfw_map_check_oc_leafref", "\"/top/entry\" \"config\" \"id\" entry"), 3U);
}

TEST_F(ListWalker, FailedLeafrefCheck_EndsTheWalkWithItsCode) {
  Request request(node({leaf("id", "a"), leaf("first")}));
  platform.script("yfw_map_check_oc_leafref", 0, 0x45);
  EXPECT_EQ(walk(request), 0x45U);
  EXPECT_EQ(platform.traced("entry", "leafref value check fail"), 1U);
  EXPECT_EQ(platform.traced("entry", "End"), 1U);
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
  EXPECT_THAT(visited(), IsEmpty());
  expect_nothing_left(request);
}

struct KeyCase {
  const char* what;
  std::vector<Node> children;
  std::vector<std::uint32_t> accepting;  // of the operations 0, 1, 2, 8, 10, 15
};

std::vector<KeyCase> key_cases() {
  return {
      {"one key with a value", {leaf("id", "a")}, {0, 1, 2, 8, 10, 15}},
      {"one key with a value beside another child", {leaf("id", "a"), leaf("first")}, {0, 1, 2, 8, 10, 15}},
      {"one key without a value", {leaf("id")}, {0, 2, 10}},
      {"no key", {leaf("first")}, {0, 2, 10}},
      {"two keys with values", {leaf("id", "a"), leaf("id", "b")}, {}},
      {"two keys, one with a value", {leaf("id", "a"), leaf("id")}, {}},
      {"two keys without values", {leaf("id"), leaf("id")}, {}},
  };
}

TEST_F(ListWalker, Keys_AreAcceptedAsTheOperationAllows) {
  for (const KeyCase& one : key_cases()) {
    for (const std::uint32_t operation : {0U, 1U, 2U, 8U, 10U, 15U}) {
      SCOPED_TRACE(std::string(one.what) + ", operation " + std::to_string(operation));
      log = {};
      Request request(node(one.children));
      const bool accepts = std::count(one.accepting.begin(), one.accepting.end(), operation) != 0;
      EXPECT_EQ(walk(request, operation), accepts ? YFW_OK : YFW_BAD_LIST_KEY);
      EXPECT_EQ(log.visits.empty(), !accepts);
    }
  }
}

TEST_F(ListWalker, KeyError_StoresTheKeyAndMarksTheErrorPath) {
  Request request(node({leaf("id", "a"), leaf("id", "b")}));
  EXPECT_EQ(walk(request), YFW_BAD_LIST_KEY);
  EXPECT_EQ(platform.traced("entry", "List key node error."), 1U);
  EXPECT_EQ(platform.error_tag(), "id");
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 1U);
  EXPECT_LT(position("_lstrace", "List key node error."), position("yfw_strdup"));
  EXPECT_LT(position("yfw_strdup"), position("yfw_oc_error_path"));
  EXPECT_EQ(platform.traced("entry", "End"), 1U);
  expect_nothing_left(request);
}

TEST_F(ListWalker, KeysInExpansionOrWithPendingKey_AreNotChecked) {
  Request request(node({leaf("id", "a"), leaf("id", "b")}));
  platform.state().whole_subtree = 1;
  EXPECT_EQ(walk(request), YFW_OK);
  platform.state().whole_subtree = 0;
  platform.state().key_pending = YFW_KEY_PENDING_EXPANDED;
  EXPECT_EQ(walk(request), YFW_OK);
}

TEST_F(ListWalker, KeyValue_IsDecidedByItsFlag) {
  Request request(node({leaf("id", "a")}));
  request.find("id")->flags = 0;
  EXPECT_EQ(walk(request), YFW_BAD_LIST_KEY) << "a text without the flag is no value";
  Request flagged(node({leaf("id")}));
  flagged.find("id")->flags = YFW_FLAG_VALUE;
  EXPECT_EQ(walk(flagged), YFW_OK) << "the flag without a text is a value";
}

// ---- The list-key handler

TEST_F(ListWalker, Handler_RunsBeforeTheChildren) {
  Request request(node({leaf("first"), leaf("id", "a")}));
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "first", "key"));
  EXPECT_EQ(log.visits[0].node, request.root());
  EXPECT_EQ(log.visits[2].node, request.find("id"));
}

TEST_F(ListWalker, EditOfEntryByKey_HasNoPendingKey) {
  Request merging(node({leaf("id", "a")}));
  walk(merging);
  EXPECT_EQ(log.visits.at(0).marks.key_pending, std::uint32_t{YFW_KEY_PENDING_NONE});
}

TEST_F(ListWalker, DeleteOfMoreThanTheKey_HasNoPendingKey) {
  Request request(node({leaf("id", "a"), leaf("first")}).with(YFW_OPERATION_DELETE));
  walk(request);
  EXPECT_EQ(log.visits.at(0).marks.key_pending, std::uint32_t{YFW_KEY_PENDING_NONE});
}

TEST_F(ListWalker, DeleteOfEntryByKey_HasAPendingKeyDuringTheHandler) {
  Request request(node({leaf("id", "a")}).with(YFW_OPERATION_DELETE));
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_EQ(log.visits.at(0).name, "handler");
  EXPECT_EQ(log.visits.at(0).marks.key_pending, std::uint32_t{YFW_KEY_PENDING_KEY_ONLY});
  EXPECT_EQ(log.visits.at(1).marks.key_pending, std::uint32_t{YFW_KEY_PENDING_NONE}) << "of the key leaf";
  expect_nothing_left(request);
}

TEST_F(ListWalker, DeleteWithoutChildrenInExpansion_HasAnExpandedPendingKey) {
  Request request(node().with(YFW_OPERATION_DELETE));
  platform.state().whole_subtree = 1;
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_EQ(log.visits.at(0).marks.key_pending, std::uint32_t{YFW_KEY_PENDING_EXPANDED});
  EXPECT_EQ(platform.state().key_pending, std::uint32_t{YFW_KEY_PENDING_NONE});
}

TEST_F(ListWalker, SkipFromHandler_SucceedsWithoutEndRecord) {
  Request request(node({leaf("id", "a"), leaf("first")}));
  log.answers["handler"] = {YFW_SKIP_SUBTREE};
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler"));
  EXPECT_EQ(platform.traced("entry", "End"), 0U);
  EXPECT_EQ(platform.count("yfw_map_remove_from_node_hierarchy", "entry"), 1U);
  expect_nothing_left(request);
}

TEST_F(ListWalker, SkippedEntry_IsNotExpanded) {
  Request request(node({leaf("id", "a")}).with(YFW_OPERATION_DELETE));
  log.answers["handler"] = {YFW_SKIP_SUBTREE};
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler"));
}

TEST_F(ListWalker, ErrorFromHandler_EndsTheWalk) {
  Request request(node({leaf("id", "a")}));
  log.answers["handler"] = {0x55};
  EXPECT_EQ(walk(request, YFW_REQUEST_READ_CONFIG), 0x55U);
  EXPECT_THAT(visited(), ElementsAre("handler")) << "neither walked nor expanded";
  EXPECT_EQ(platform.traced("entry", "End"), 1U);
  expect_nothing_left(request);
}

// ---- Children

TEST_F(ListWalker, DeletedKey_IsRefused) {
  for (const std::uint32_t operation : {std::uint32_t{YFW_OPERATION_DELETE}, std::uint32_t{YFW_OPERATION_REMOVE}}) {
    log = {};
    Request request(node({leaf("id", "a").with(operation), leaf("first")}));
    EXPECT_EQ(walk(request), YFW_LIST_KEY_DELETED);
    EXPECT_THAT(visited(), ElementsAre("handler"));
    EXPECT_EQ(platform.error_tag(), "id");
  }
  EXPECT_EQ(platform.traced("entry", "The key node should not have delete operation."), 2U);
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 2U);
  EXPECT_EQ(platform.traced("entry", "End"), 2U);
}

TEST_F(ListWalker, KeyOfDeletedEntry_IsWalked) {
  Request request(node({leaf("id", "a")}).with(YFW_OPERATION_REMOVE));
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "key", "first", "second", "augments"));
}

TEST_F(ListWalker, KeyWithoutValueInEdit_IsRefused) {
  platform.state().key_pending = YFW_KEY_PENDING_EXPANDED;  // so that the scan of the keys lets it pass
  Request request(node({leaf("id"), leaf("first")}));
  EXPECT_EQ(walk(request, YFW_REQUEST_EDIT), YFW_BAD_LIST_KEY);
  EXPECT_THAT(visited(), ElementsAre("handler"));
  EXPECT_EQ(platform.traced("entry", "Empty list key specified."), 1U);
  EXPECT_EQ(platform.error_tag(), "id");
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 1U);
  EXPECT_EQ(platform.traced("entry", "End"), 1U);
}

TEST_F(ListWalker, KeyWithoutValueInRead_IsWalked) {
  Request request(node({leaf("id"), leaf("first")}));
  EXPECT_EQ(walk(request, YFW_REQUEST_READ_CONFIG), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "key", "first"));
}

TEST_F(ListWalker, ChildWithoutTag_EndsTheWalkAsMalformed) {
  Node untagged;
  Request request(node({leaf("id", "a"), untagged, leaf("first")}));
  EXPECT_EQ(walk(request), YFW_MALFORMED_TREE);
  EXPECT_THAT(visited(), ElementsAre("handler", "key"));
  EXPECT_EQ(platform.traced("entry", "Tag name is not available!"), 1U);
  expect_nothing_left(request);
}

TEST_F(ListWalker, OperationalState_IsWalkedInStateReadsOnly) {
  Request request(node({leaf("id", "a"), leaf("status")}));
  EXPECT_EQ(walk(request, YFW_REQUEST_READ_STATE), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "key", "status"));
  log = {};
  EXPECT_EQ(walk(request, YFW_REQUEST_READ_CONFIG), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "key"));
  log = {};
  EXPECT_EQ(walk(request, YFW_REQUEST_EDIT), YFW_UNSUPPORTED_NODE);
  EXPECT_EQ(platform.error_tag(), "status");
}

TEST_F(ListWalker, UnknownTag_IsAnErrorInEditsAndSkippedInReads) {
  Request request(node({leaf("id", "a"), leaf("unheard-of"), leaf("first")}));
  EXPECT_EQ(walk(request, YFW_REQUEST_EDIT), YFW_UNSUPPORTED_NODE);
  EXPECT_THAT(visited(), ElementsAre("handler", "key"));
  EXPECT_EQ(platform.traced("entry", "Unsupported tag is specified in the request."), 1U);
  log = {};
  EXPECT_EQ(walk(request, YFW_REQUEST_READ_CONFIG), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "key", "first"));
}

TEST_F(ListWalker, ForeignChild_GoesToTheAugmentParser) {
  Request request(node({leaf("id", "a"), leaf("other").in("urn:other"), leaf("first")}));
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "key", "augments", "first"));
}

TEST_F(ListWalker, ErrorFromChild_EndsTheWalkWithItsCode) {
  Request request(node({leaf("id", "a"), leaf("first"), leaf("second")}));
  log.answers["first"] = {0x66};
  EXPECT_EQ(walk(request), 0x66U);
  EXPECT_THAT(visited(), ElementsAre("handler", "key", "first"));
  EXPECT_EQ(platform.traced("entry", "End"), 1U);
  expect_nothing_left(request);
}

TEST_F(ListWalker, ErrorFromKeyLeaf_EndsTheWalkWithoutExpansion) {
  Request request(node({leaf("id", "a")}));
  log.answers["key"] = {0x66};
  EXPECT_EQ(walk(request, YFW_REQUEST_READ_CONFIG), 0x66U);
  EXPECT_THAT(visited(), ElementsAre("handler", "key"));
}

// ---- Entries that name only their key

TEST_F(ListWalker, ReadOfEntryByKey_VisitsEveryChildInTableOrder) {
  Request request(node({leaf("id", "a")}));
  EXPECT_EQ(walk(request, YFW_REQUEST_READ_STATE), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "key", "first", "status", "second", "augments"));
  expect_nothing_left(request);
}

TEST_F(ListWalker, ConfigReadOfEntryByKey_SkipsOperationalState) {
  Request request(node({leaf("id", "a")}));
  walk(request, YFW_REQUEST_READ_CONFIG);
  EXPECT_THAT(visited(), ElementsAre("handler", "key", "first", "second", "augments"));
}

TEST_F(ListWalker, Expansion_KeepsTheHiddenChildrenOnTheItreeStack) {
  Request request(node({leaf("id", "a")}));
  yfw_datatree* const children = request.root()->children;
  static std::vector<yfw_itree_entry> stack;
  stack.clear();
  log.actions["first"] = [](yfw_map_ctx /*ctx*/) { stack = support::Platform::current().seen().itree_stack; };
  walk(request, YFW_REQUEST_READ_CONFIG);
  ASSERT_EQ(stack.size(), 1U);
  EXPECT_EQ(stack[0].children, children);
  EXPECT_EQ(stack[0].child_count, 1U);
  EXPECT_EQ(stack[0].callback, nullptr);
  const model::Visit& first = log.visits.at(2);
  EXPECT_EQ(first.node, request.root());
  EXPECT_EQ(first.children, 0U);
  EXPECT_EQ(first.flags & YFW_FLAG_SUBTREE, 0U);
  EXPECT_EQ(first.marks.whole_subtree, 1U);
  expect_nothing_left(request);
}

TEST_F(ListWalker, Expansion_IsMarkedFromStackPushToPop) {
  Request request(node({leaf("id", "a")}));
  yfw_datatree* const children = request.root()->children;
  std::vector<std::uint32_t> marks;
  const auto note_mark = [&] { marks.push_back(platform.state().whole_subtree); };
  platform.before("yfw_map_util_itree_stack_push", 1, note_mark);
  platform.before("yfw_map_util_itree_stack_pop", 1, [&] {
    note_mark();
    EXPECT_EQ(request.root()->children, children) << "the children are back when the stack is popped";
  });
  walk(request, YFW_REQUEST_READ_CONFIG);
  EXPECT_THAT(marks, ElementsAre(1, 1));
}

TEST_F(ListWalker, ErrorFromChildInExpansion_IsIgnored) {
  Request request(node({leaf("id", "a")}));
  log.answers["first"] = {0x66};
  log.answers["augments"] = {0x67};
  EXPECT_EQ(walk(request, YFW_REQUEST_READ_CONFIG), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "key", "first", "second", "augments"));
}

TEST_F(ListWalker, DeleteOfEntryByKey_ExpandsWithTheOperationUnchanged) {
  Request request(node({leaf("id", "a")}).with(YFW_OPERATION_DELETE));
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "key", "first", "second", "augments"));
  EXPECT_EQ(log.visits.at(2).operation, std::uint32_t{YFW_OPERATION_DELETE});
  expect_nothing_left(request);
}

TEST_F(ListWalker, MergeOfEntryByKey_IsNotExpanded) {
  Request request(node({leaf("id", "a")}));
  EXPECT_EQ(walk(request, YFW_REQUEST_EDIT), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "key"));
}

TEST_F(ListWalker, ReadOfMoreThanTheKey_IsNotExpanded) {
  Request request(node({leaf("id", "a"), leaf("first")}));
  walk(request, YFW_REQUEST_READ_CONFIG);
  EXPECT_THAT(visited(), ElementsAre("handler", "key", "first"));
}

TEST_F(ListWalker, ReadOfEntryByKeyWithoutValue_IsNotExpanded) {
  Request request(node({leaf("id")}));
  walk(request, YFW_REQUEST_READ_CONFIG);
  EXPECT_THAT(visited(), ElementsAre("handler", "key"));
}

TEST_F(ListWalker, ReadOfEntryWithoutKey_IsNotExpanded) {
  Request request(node());
  walk(request, YFW_REQUEST_READ_CONFIG);
  EXPECT_THAT(visited(), ElementsAre("handler"));
}

TEST_F(ListWalker, EntryWithoutChildrenInExpansion_IsExpanded) {
  Request request(node());
  platform.state().whole_subtree = 1;
  EXPECT_EQ(walk(request, YFW_REQUEST_READ_CONFIG), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "first", "second", "augments"));
  EXPECT_EQ(platform.count("yfw_map_util_itree_stack_push", "children=0"), 1U) << "pushed though there are none";
  EXPECT_EQ(platform.state().whole_subtree, 1U) << "the outer expansion goes on";
  EXPECT_THAT(platform.seen().itree_stack, IsEmpty());
}

TEST_F(ListWalker, EntryInExpansionForContentMatches_IsExpanded) {
  Request request(node({leaf("id", "a"), leaf("first")}));
  platform.state().whole_subtree = 1;
  platform.state().filter_bits = YFW_FILTER_EXPAND;
  EXPECT_EQ(walk(request, YFW_REQUEST_READ_CONFIG), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "first", "second", "augments"))
      << "what the node names is that container's";
}

// ---- One entry that stands for more

Request* further_entries = nullptr;

void push_further_entries(yfw_map_ctx ctx) {
  yfw_map_util_itree_stack_push(ctx, further_entries->root()->children, further_entries->root()->child_count,
                                model::further);
}

class FurtherEntries : public ListWalker {
 protected:
  void SetUp() override {
    ListWalker::SetUp();
    further_entries = &further;
    log.actions["handler"] = push_further_entries;
  }

  Request request{node({leaf("id", "a"), leaf("first")})};
  Request further{container("more", {container("second-entry", {leaf("id", "b"), leaf("second")}),
                                     container("third-entry", {leaf("id", "c")})})
                      .in(model::kNs)};
};

TEST_F(FurtherEntries, PushedByHandler_AreWalkedAfterTheFirst) {
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "key", "first", "further", "key", "second", "further", "key"));
  EXPECT_EQ(log.visits.at(3).node, &further.root()->children[0]);
  EXPECT_EQ(log.visits.at(6).node, &further.root()->children[1]);
  expect_nothing_left(request);
}

TEST_F(FurtherEntries, SeveralEntries_AreEnteredOneAfterTheOther) {
  walk(request);
  EXPECT_EQ(platform.count("yfw_map_add_to_node_hierarchy", "second-entry list"), 1U);
  EXPECT_EQ(platform.count("yfw_map_add_to_node_hierarchy", "third-entry list"), 1U);
  EXPECT_EQ(platform.count("yfw_map_update_current_list_node", model::kListPath), 3U);
  EXPECT_LT(position("yfw_map_remove_from_node_hierarchy", "second-entry"),
            position("yfw_map_add_to_node_hierarchy", "third-entry"));
}

TEST_F(FurtherEntries, ErrorInFurtherEntry_EndsTheWalk) {
  log.answers["further"] = {0x71};
  EXPECT_EQ(walk(request), 0x71U);
  EXPECT_THAT(visited(), ElementsAre("handler", "key", "first", "further"));
  expect_nothing_left(request);
}

TEST_F(FurtherEntries, Skip_EndsOneEntryOnly) {
  log.answers["further"] = {YFW_SKIP_SUBTREE};
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_THAT(visited(), ElementsAre("handler", "key", "first", "further", "further", "key"));
  expect_nothing_left(request);
}

TEST_F(FurtherEntries, ErrorInFirstEntry_EndsTheWalk) {
  log.answers["first"] = {0x66};
  EXPECT_EQ(walk(request), 0x66U);
  EXPECT_THAT(visited(), ElementsAre("handler", "key", "first"));
  expect_nothing_left(request);
}

TEST_F(FurtherEntries, MissingChildArray_EndsTheWalkAsMalformed) {
  further.root()->children[0].children = nullptr;
  EXPECT_EQ(walk(request), YFW_MALFORMED_TREE);
  EXPECT_EQ(platform.traced("entry", "Failed to get subtrees!"), 1U);
  expect_nothing_left(request);
}

TEST_F(FurtherEntries, MissingChildArray_IsRecordedAtAnotherPlaceThanInTheFirst) {
  further.root()->children[0].children = nullptr;
  EXPECT_EQ(walk(request), YFW_MALFORMED_TREE);
  const support::Place of_further = support::place_of(platform, "Failed to get subtrees!");
  request.root()->children = nullptr;
  EXPECT_EQ(walk(request), YFW_MALFORMED_TREE);
  support::expect_two_places(of_further, support::place_of(platform, "Failed to get subtrees!"));
}

TEST_F(FurtherEntries, RefusedListPath_EndsTheWalk) {
  platform.script("yfw_map_update_current_list_node", 2, 0x44);
  EXPECT_EQ(walk(request), 0x44U);
  EXPECT_THAT(visited(), ElementsAre("handler", "key", "first"));
  expect_nothing_left(request);
}

}  // namespace
