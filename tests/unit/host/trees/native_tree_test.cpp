// Native data as it is handed to the module: all of it, and what a read asks for.
#include "host/trees/native_tree.h"

#include "host/trees/node.h"
#include "tests/unit/host/trees/native_test.h"

namespace oclacp::host {
namespace {

constexpr const char* kEntry = "/interface-configurations/interface-configuration";
constexpr const char* kLacpEntry = R"("mode": "active", "period": 1000)";

class NativeTreeTest : public testing::Test {
 protected:
  std::string all(const std::string& text) {
    const TreePtr data = parse_native(text);
    return shown(*NativeTree(interface_top(data), nullptr).top());
  }

  std::string selected(const std::string& text) {
    const TreePtr data = parse_native(text);
    const NativeSelection selection(log_);
    EXPECT_EQ(selection.tops().size(), 1U);
    return shown(*NativeTree(interface_top(data), selection.tops().front()).top());
  }

  // Asks for an interface; all of them without a name.
  void ask_for_entry(const char* name) {
    log_.enter_list("/lacp/interfaces/interface");
    log_.add(kEntry, kIfmgr, nullptr, nullptr, true);
    if (name != nullptr) {
      log_.add(std::string(kEntry) + "/interface-name", kIfmgr, name, nullptr, true);
      log_.add(std::string(kEntry) + "/active", kIfmgr, "act", nullptr, true);
    }
  }

  void ask_for_lacp(const std::string& leaf) {
    log_.add(std::string(kEntry) + "/lacp" + leaf, kBundlemgr, nullptr, nullptr, false);
  }

  SchemaIndex paths_{schemas().native()};
  OutputLog log_{paths_, false};
};

TEST_F(NativeTreeTest, WithoutASelection_HoldsAllWithKeysFirst) {
  EXPECT_EQ(all(native_interfaces(R"({"interface-name": "a", "description": "x", "active": "act",
                "interface-virtual": [null], "mtus": {"mtu": [{"mtu": 99, "owner": "o"}]}})")),
            "interface-configurations(interface-configuration(active=act interface-name=a interface-virtual "
            "description=x mtus(mtu(owner=o mtu=99))))");
}

TEST_F(NativeTreeTest, EmptyContainers_AreLeftOut) {
  EXPECT_EQ(all(native_interfaces(native_entry("a", R"("mode": "active")"))),
            "interface-configurations(interface-configuration(active=act interface-name=a lacp(mode=active)))");
}

TEST_F(NativeTreeTest, Nodes_HaveTheFieldsOfTheContract) {
  const TreePtr data = parse_native(native_interfaces(native_entry("a", kLacpEntry)));
  NativeTree tree(interface_top(data), nullptr);
  const yfw_datatree& top = *tree.top();
  EXPECT_STREQ(top.ns, kIfmgr);
  EXPECT_EQ(top.flags, static_cast<uint32_t>(YFW_FLAG_SUBTREE));
  const yfw_datatree& lacp = top.children[0].children[2];
  EXPECT_STREQ(lacp.ns, kBundlemgr);
  EXPECT_EQ(lacp.children[0].flags, static_cast<uint32_t>(YFW_FLAG_VALUE));
  EXPECT_EQ(lacp.children[0].operation, static_cast<uint32_t>(YFW_OPERATION_NONE));
  EXPECT_EQ(node_path(&lacp.children[0]),
            "/Talvo-Brin-QD-ifmgr-cfg:interface-configurations/interface-configuration[active='act']"
            "[interface-name='a']/Talvo-Brin-QD-bundlemgr-cfg:lacp/mode");
}

TEST_F(NativeTreeTest, SelectedEntry_IsFoundByItsKeys) {
  ask_for_entry("b");
  ask_for_lacp("/period");
  EXPECT_EQ(selected(native_interfaces(native_entry("a", kLacpEntry) + "," + native_entry("b", kLacpEntry))),
            "interface-configurations(interface-configuration(active=act interface-name=b lacp(period=1000)))");
}

TEST_F(NativeTreeTest, InterfaceInAnotherClass_IsNotSelected) {
  ask_for_entry("a");
  ask_for_lacp("/mode");
  EXPECT_EQ(selected(native_interfaces(R"({"active": "pre", "interface-name": "a"})")), "interface-configurations");
}

TEST_F(NativeTreeTest, EntryWithoutKeys_SelectsAllInterfaces) {
  ask_for_entry(nullptr);
  ask_for_lacp("/mode");
  EXPECT_EQ(selected(native_interfaces(native_entry("a", kLacpEntry) + "," + native_entry("b", R"("period": 1)"))),
            "interface-configurations(interface-configuration(active=act interface-name=a lacp(mode=active)) "
            "interface-configuration(active=act interface-name=b lacp))");
}

TEST_F(NativeTreeTest, SelectionsOfOneEntry_AreMerged) {
  ask_for_entry("a");
  ask_for_lacp("/period");
  ask_for_entry("b");
  ask_for_lacp("/mode");
  ask_for_entry("a");
  ask_for_lacp("/mode");
  EXPECT_EQ(
      selected(native_interfaces(native_entry("a", kLacpEntry) + "," + native_entry("b", kLacpEntry))),
      "interface-configurations(interface-configuration(active=act interface-name=a lacp(period=1000 mode=active)) "
      "interface-configuration(active=act interface-name=b lacp(mode=active)))");
}

TEST_F(NativeTreeTest, EntryWithoutSelectedLeaves_ComesWithItsKeys) {
  ask_for_entry("a");
  EXPECT_EQ(selected(native_interfaces(native_entry("a", kLacpEntry))),
            "interface-configurations(interface-configuration(active=act interface-name=a))");
}

TEST_F(NativeTreeTest, SelectedContainer_ComesWhole) {
  ask_for_entry("a");
  ask_for_lacp("");
  EXPECT_EQ(selected(native_interfaces(native_entry("a", kLacpEntry, R"("description": "x")"))),
            "interface-configurations(interface-configuration(active=act interface-name=a "
            "lacp(mode=active period=1000)))");
}

TEST_F(NativeTreeTest, EntryAbsentFromTheDevice_IsNotSelected) {
  ask_for_entry("c");
  ask_for_lacp("/mode");
  EXPECT_EQ(selected(native_interfaces(native_entry("a", kLacpEntry))), "interface-configurations");
}

TEST_F(NativeTreeTest, EntryWithoutKeys_SelectsActiveConfigurationOnly) {
  ask_for_entry(nullptr);
  ask_for_lacp("/mode");
  EXPECT_EQ(selected(native_interfaces(native_entry("a", kLacpEntry) +
                                       R"(, {"active": "pre", "interface-name": "a"},
                                                 {"active": "other", "interface-name": "a"})")),
            "interface-configurations(interface-configuration(active=act interface-name=a lacp(mode=active)))");
}

class NativePartsTest : public testing::Test {
 protected:
  static std::string part(const std::string& text, size_t first, size_t count) {
    const TreePtr data = parse_native(text);
    const lyd_node* top = data.get();
    while ((top->flags & LYD_DEFAULT) != 0) {
      top = top->next;
    }
    NativeTree tree = NativeParts(top, nullptr).part(first, count);
    return shown(*tree.top());
  }

  static constexpr const char* kBundles = R"({"Talvo-Brin-QD-bundlemgr-oper:lacp-bundles": {"bundles": {"bundle": [
      {"bundle-interface": "a", "data": {"applied-lacp-mode": "bmd-mode-active"}}, {"bundle-interface": "b"},
      {"bundle-interface": "c"}]}}})";
};

TEST_F(NativePartsTest, ListOfEntries_IsCutBetweenItsEntries) {
  EXPECT_EQ(part(kBundles, 0, 2),
            "lacp-bundles(bundles(bundle(bundle-interface=a data(applied-lacp-mode=bmd-mode-active)) "
            "bundle(bundle-interface=b)))");
  EXPECT_EQ(part(kBundles, 2, 2), "lacp-bundles(bundles(bundle(bundle-interface=c)))");
  EXPECT_EQ(part(kBundles, 0, NativeParts::kAll), part(kBundles, 0, 3));
}

TEST_F(NativePartsTest, TreeWithoutAList_IsOnePart) {
  const char* const data = R"({"Talvo-Brin-QD-bundlemgr-oper:lacp-data": {"global": {"system-id": {"system-id": {
                                 "system-prio": 5}}}}})";
  EXPECT_EQ(part(data, 0, 1), "lacp-data(global(system-id(system-id(system-prio=5))))");
}

TEST_F(NativePartsTest, KeysOfAnEntry_HoldTheKeysOnly) {
  const TreePtr data = parse_native(kBundles);
  NativeTree tree = NativeParts(data.get(), nullptr).keys_of(0);
  EXPECT_EQ(shown(*tree.top()), "lacp-bundles(bundles(bundle(bundle-interface=a)))");
}

TEST_F(NativePartsTest, DropIf_RemovesTheChosenEntries) {
  const TreePtr data = parse_native(kBundles);
  NativeParts parts(data.get(), nullptr);
  parts.drop_if([](size_t branch) { return branch != 1; });
  EXPECT_EQ(shown(*parts.part(0, NativeParts::kAll).top()), "lacp-bundles(bundles(bundle(bundle-interface=b)))");
}

TEST(NativeParser, InvalidData_IsRefused) {
  EXPECT_THAT(refusal_of([] { parse_native(native_interfaces(R"({"active": "act"})")); }),
              testing::HasSubstr("interface-name"));
  EXPECT_THAT(refusal_of([] { parse_native(R"({"a:b": 1})"); }), testing::HasSubstr("a"));
  EXPECT_THAT(refusal_of([] {
                parse_native(schemas().native(), R"({"Talvo-Brin-QD-bundlemgr-oper:lacp-bundles": {}})", LYD_JSON,
                             false);
              }),
              testing::HasSubstr("lacp-bundles"));
}

}  // namespace
}  // namespace oclacp::host
