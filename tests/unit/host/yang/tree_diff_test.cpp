#include "host/yang/tree_diff.h"

#include "host/translation/edit_plan.h"
#include "host/yang/tree_printer.h"
#include "tests/support/native_json.h"
#include "tests/unit/host/devices/memory_device.h"

namespace oclacp::host {
namespace {

using testing::HasSubstr;

constexpr const char* kNativeA =
    "/Talvo-Brin-QD-ifmgr-cfg:interface-configurations/interface-configuration[active='act'][interface-name='a']";

std::string first_change(const std::string& before, const std::string& after) {
  const TreePtr old = running(before);
  const TreePtr now = running(after);
  return find_first_change(schemas().native(), old.get(), now.get());
}

std::string difference(const std::string& before, const std::string& after) {
  const TreePtr old = running(before);
  const TreePtr now = running(after);
  return print_tree(schemas().native(), find_difference(schemas().native(), old.get(), now.get()).get(), LYD_JSON);
}

// The difference as libyang finds it by itself.
std::string libyang_difference(const std::string& before, const std::string& after) {
  const TreePtr old = running(before);
  const TreePtr now = running(after);
  lyd_node* found = nullptr;
  EXPECT_EQ(lyd_diff_siblings(old.get(), now.get(), 0, &found), LY_SUCCESS);
  const TreePtr owner(found);
  return print_tree(schemas().native(), found, LYD_JSON);
}

std::string entry(const std::string& name, const std::string& mode) {
  return support::native_entry(name, R"("mode": ")" + mode + "\"");
}

TEST(TreeDiff, SameConfiguration_HasNoChange) {
  const std::string before = lacp_of_a(R"("period": 1, "mode": "active")");
  const std::string after = lacp_of_a(R"("mode": "active", "period": 1)");
  EXPECT_EQ(first_change(before, after), "");
  EXPECT_EQ(difference(before, after), "{}\n");
}

TEST(TreeDiff, OtherOrderOfEntries_HasNoChange) {
  const std::string before = support::native_interfaces(entry("a", "active") + "," + entry("b", "active"));
  const std::string after = support::native_interfaces(entry("b", "active") + "," + entry("a", "active"));
  EXPECT_EQ(first_change(before, after), "");
  EXPECT_EQ(difference(before, after), "{}\n");
}

TEST(TreeDiff, FirstChange_IsTheFirstNodeThatDiffers) {
  const std::string lacp = std::string(kNativeA) + "/Talvo-Brin-QD-bundlemgr-cfg:lacp";
  EXPECT_EQ(first_change(lacp_of_a(R"("period": 1, "mode": "active")"), lacp_of_a(R"("period": 2, "mode": "active")")),
            lacp + "/period");
  EXPECT_EQ(first_change(lacp_of_a(R"("period": 1)"), interface_a("")), lacp);
  EXPECT_EQ(first_change(interface_a(""), lacp_of_a(R"("period": 1)")), lacp);
  EXPECT_EQ(first_change(interface_a(""), "{}"), "/Talvo-Brin-QD-ifmgr-cfg:interface-configurations");
  EXPECT_EQ(first_change(support::native_interfaces(entry("a", "active") + "," + entry("b", "active")),
                         support::native_interfaces(entry("b", "active"))),
            kNativeA);
  EXPECT_EQ(first_change(support::native_interfaces(entry("b", "active")),
                         support::native_interfaces(entry("b", "active") + "," + entry("a", "active"))),
            kNativeA);
  EXPECT_EQ(first_change("{}", R"({"Talvo-Brin-QD-bundlemgr-cfg:lacp": {"system-priority": 5}})"),
            "/Talvo-Brin-QD-bundlemgr-cfg:lacp");
}

TEST(TreeDiff, Difference_HasAnOperationForEachNode) {
  const std::string made = difference(lacp_of_a(R"("period": 1)"), lacp_of_a(R"("mode": "active")"));
  EXPECT_THAT(made, HasSubstr(R"("@period": {
            "yang:operation": "delete")"));
  EXPECT_THAT(made, HasSubstr(R"("@mode": {
            "yang:operation": "create")"));
}

TEST(TreeDiff, DifferenceOfConfigurations_AsLibyang) {
  const std::string global = R"("Talvo-Brin-QD-bundlemgr-cfg:lacp": {"system-priority": 5})";
  const std::string four = support::native_interfaces(entry("a", "active") + "," + entry("b", "active") + "," +
                                                      entry("c", "active") + "," + entry("d", "active"));
  const std::string changed =
      support::native_interfaces(entry("a", "active") + "," + entry("b", "passive") + "," + entry("d", "passive") +
                                 "," + entry("e", "active") + "," + entry("f", "active"));
  const std::string more = "{" + global + "," + changed.substr(1);
  for (const auto& [before, after] : std::initializer_list<std::pair<std::string, std::string>>{
           {four, changed}, {changed, four}, {four, more}, {more, four}, {more, lacp_of_a(R"("period": 1)")}}) {
    EXPECT_EQ(difference(before, after), libyang_difference(before, after));
  }
}

}  // namespace
}  // namespace oclacp::host
