#include "host/trees/request_tree.h"

#include "host/trees/node.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

// The operations of an entry and of its config, and how many children the entry has.
struct Handed {
  uint32_t entry;
  uint32_t config;
  unsigned children;
  bool operator==(const Handed&) const = default;
};

Handed hand_over(const std::string& operation, const std::string& config) {
  RequestTree tree =
      parse(interface(R"("@": {"ietf-netconf:operation": ")" + operation + R"("}, "name": "a")" + config));
  const yfw_datatree* entry = find(tree, {"interfaces", "interface"});
  const yfw_datatree* container = find(tree, {"interfaces", "interface", "config"});
  return {entry->operation, container == nullptr ? ~0U : container->operation, entry->child_count};
}

TEST(RequestTreeTest, ReplaceOfAnEntry_BecomesReplaceOfItsConfig) {
  EXPECT_EQ(hand_over("replace", R"(, "config": {"interval": "FAST"})"),
            (Handed{YFW_OPERATION_NONE, YFW_OPERATION_REPLACE, 2}));
  EXPECT_EQ(hand_over("replace", R"(, "config": {"@": {"ietf-netconf:operation": "create"}, "interval": "FAST"})"),
            (Handed{YFW_OPERATION_NONE, YFW_OPERATION_REPLACE, 2}));
}

TEST(RequestTreeTest, ReplacedEntryWithoutConfig_GetsAnEmptyConfig) {
  EXPECT_EQ(hand_over("replace", ""), (Handed{YFW_OPERATION_NONE, YFW_OPERATION_REPLACE, 2}));
  RequestTree tree = parse(interface(R"("@": {"ietf-netconf:operation": "replace"}, "name": "a")"));
  const yfw_datatree* config = find(tree, {"interfaces", "interface", "config"});
  EXPECT_EQ(config->child_count, 0U);
  EXPECT_STREQ(config->ns, "http://openconfig.net/yang/lacp");
  EXPECT_EQ(node_path(config), "/openconfig-lacp:lacp/interfaces/interface[name='a']/config");
}

TEST(RequestTreeTest, DeletedConfigInAReplacedEntry_StaysDeleted) {
  EXPECT_EQ(hand_over("replace", R"(, "config": {"@": {"ietf-netconf:operation": "remove"}})"),
            (Handed{YFW_OPERATION_NONE, YFW_OPERATION_REMOVE, 2}));
}

TEST(RequestTreeTest, DeleteOrMergeOfAnEntry_StaysOnTheEntry) {
  EXPECT_EQ(hand_over("delete", ""), (Handed{YFW_OPERATION_DELETE, ~0U, 1}));
  EXPECT_EQ(hand_over("merge", R"(, "config": {"interval": "FAST"})"),
            (Handed{YFW_OPERATION_NONE, YFW_OPERATION_NONE, 2}));
}

TEST(RequestTreeTest, ManyReplacedEntries_EachGetsItsConfig) {
  std::string entries;
  for (int number = 0; number < 100; ++number) {
    entries += (number == 0 ? "" : ", ") +
               (R"({"@": {"ietf-netconf:operation": "replace"}, "name": "a)" + std::to_string(number) + R"("})");
  }
  RequestTree tree = parse(lacp(R"("interfaces": {"interface": [)" + entries + "]}"));
  const yfw_datatree* interfaces = find(tree, {"interfaces"});
  ASSERT_EQ(interfaces->child_count, 100U);
  for (unsigned number = 0; number < 100; ++number) {
    const yfw_datatree& entry = interfaces->children[number];
    ASSERT_EQ(entry.child_count, 2U);
    EXPECT_EQ(entry.children[0].value, "a" + std::to_string(number));
    EXPECT_STREQ(entry.children[1].tag, "config");
    EXPECT_EQ(info_of(&entry.children[1]).parent, &entry);
  }
}

TEST(RequestTreeTest, EntryNamedTwice_IsRefused) {
  const auto refused = [](const std::string& entries) {
    return refusal_of([&] { parse(lacp(R"("interfaces": {"interface": [)" + entries + "]}")); });
  };
  EXPECT_EQ(refused(R"({"name": "a"}, {"name": "b"}, {"name": "a"})"),
            "/openconfig-lacp:lacp/interfaces/interface[name='a'] (line 1): named twice");
  EXPECT_EQ(refused(R"({"name": "a"}, {"name": "A"}, {"name": "aa"})"), "accepted");
  // The module refuses these for another reason.
  EXPECT_EQ(refused("{}, {}"), "accepted");
}

TEST(RequestTreeTest, DeleteOfTheLeafOfAKey_IsRefused) {
  for (const char* operation : {"delete", "remove"}) {
    EXPECT_EQ(
        refusal_of([&] {
          parse(interface(R"("name": "a", "config": {"name": "a", "@name": {"ietf-netconf:operation": ")" +
                          std::string(operation) + R"("}})"));
        }),
        "/openconfig-lacp:lacp/interfaces/interface[name='a']/config/name: goes with its list entry, and cannot be "
        "deleted alone");
  }
}

TEST(RequestTreeTest, KeyAndItsTarget_AreRecognised) {
  RequestTree tree = parse(lacp(R"("config": {"system-priority": 5},
                                   "interfaces": {"interface": [{"name": "a", "config": {"name": "a",
                                                                                         "interval": "FAST"}}]})"));
  EXPECT_TRUE(is_key_or_key_target(find(tree, {"interfaces", "interface", "name"})));
  EXPECT_TRUE(is_key_or_key_target(find(tree, {"interfaces", "interface", "config", "name"})));
  EXPECT_FALSE(is_key_or_key_target(find(tree, {"interfaces", "interface", "config", "interval"})));
  EXPECT_FALSE(is_key_or_key_target(find(tree, {"config", "system-priority"})));
  EXPECT_STREQ(key_value(find(tree, {"interfaces", "interface"})), "a");
}

TEST(RequestTreeTest, AddSchemaChildren_NamesAllButTheKey) {
  RequestTree tree = parse(interface(""));
  yfw_datatree& bare = find(tree, {"interfaces"})->children[0];
  tree.add_schema_children(bare);
  ASSERT_EQ(bare.child_count, 3U);
  EXPECT_NE(bare.flags & YFW_FLAG_SUBTREE, 0U);
  for (const char* tag : {"config", "state", "members"}) {
    const yfw_datatree* child = find(tree, {"interfaces", "interface", tag});
    ASSERT_NE(child, nullptr) << tag;
    EXPECT_STREQ(child->ns, "http://openconfig.net/yang/lacp");
    EXPECT_EQ(child->child_count, 0U);
    EXPECT_EQ(node_path(child), std::string("/openconfig-lacp:lacp/interfaces/interface/") + tag);
  }
}

}  // namespace
}  // namespace oclacp::host
