#include "host/edit_plan.h"

#include "tests/unit/host/kept_device.h"

namespace oclacp::host {
namespace {

EditPlan plan(const std::string& before, const std::string& after) {
  const TreePtr old = running(before);
  EditPlan made;
  made.running = running(after);
  made.difference = find_difference(schemas().native(), old.get(), made.running.get());
  made.format = LYD_JSON;
  return made;
}

TEST(EditPlanTest, TheSameConfigurationIsNoChange) {
  const EditPlan same =
      plan(lacp_of_a(R"("period": 1, "mode": "active")"), lacp_of_a(R"("mode": "active", "period": 1)"));
  EXPECT_FALSE(same.changes_something());
  EXPECT_EQ(same.print_difference(), "{}\n");
}

TEST(EditPlanTest, TellsTheFirstNodeThatChanges) {
  EXPECT_EQ(
      plan(lacp_of_a(R"("period": 1, "mode": "active")"), lacp_of_a(R"("period": 2, "mode": "active")")).first_change(),
      "/Talvo-Brin-QD-ifmgr-cfg:interface-configurations/interface-configuration[active='act']"
      "[interface-name='a']/Talvo-Brin-QD-bundlemgr-cfg:lacp/period");
  EXPECT_EQ(plan("{}", R"({"Talvo-Brin-QD-bundlemgr-cfg:lacp": {"system-priority": 5}})").first_change(),
            "/Talvo-Brin-QD-bundlemgr-cfg:lacp");
}

TEST(EditPlanTest, PrintsWhatHappensToEachNode) {
  const EditPlan made = plan(lacp_of_a(R"("period": 1)"), lacp_of_a(R"("mode": "active")"));
  EXPECT_THAT(made.print_difference(), testing::HasSubstr(R"("@period": {
            "yang:operation": "delete")"));
  EXPECT_THAT(made.print_difference(), testing::HasSubstr(R"("@mode": {
            "yang:operation": "create")"));
}

}  // namespace
}  // namespace oclacp::host
