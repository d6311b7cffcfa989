#include "host/devices/linux/bond_plan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <net/if.h>

#include "tests/support/native_json.h"
#include "tests/unit/host/devices/linux/replayed_links.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

// An entry with LACP of a bond; `lacp` are the members of its container in JSON, `more` those of the entry with a comma
// in front.
std::string entry(const std::string& name, const std::string& lacp, const std::string& more = "") {
  return support::native_entry(name, lacp, R"("interface-virtual": [null])" + more);
}

const std::string kBond0 =
    R"("mode": "active", "period": true, "system-priority": 100, "system-mac": "02:00:00:00:00:01")";
const std::string kDown0 = entry("down0", R"("mode": "active", "period": 30000)");

// `entries`: separated by commas. `more`: further top nodes, with a comma in front.
TreePtr configuration(const std::string& entries, const std::string& more = "") {
  const std::string text = support::native_interfaces(entries, more);
  lyd_node* tree = nullptr;
  EXPECT_EQ(
      lyd_parse_data_mem(schemas().native(), text.c_str(), LYD_JSON, LYD_PARSE_STRICT, LYD_VALIDATE_NO_STATE, &tree),
      LY_SUCCESS);
  return TreePtr(tree);
}

std::vector<BondChange> plan(const std::string& entries, bool may_interrupt = false) {
  return plan_changes(replayed_links("pair"), configuration(entries).get(), may_interrupt);
}

std::string refusal(const std::string& entries, const std::string& more = "") {
  return refusal_of([&] { plan_changes(replayed_links("pair"), configuration(entries, more).get(), false); });
}

// What the only change of a plan makes of bond0.
BondSettings changed_to(const std::string& lacp) {
  const std::vector<BondChange> changes = plan(entry("bond0", lacp) + "," + kDown0, true);
  EXPECT_EQ(changes.size(), 1U);
  return changes.empty() ? BondSettings() : changes[0].after;
}

TEST(BondPlan, SameConfiguration_ChangesNothing) {
  EXPECT_THAT(plan(entry("bond0", kBond0) + "," + kDown0), IsEmpty());
}

TEST(BondPlan, AbsentLeaves_AreTheKernelsOwn) {
  const BondSettings settings = changed_to(R"("period": true)");
  EXPECT_EQ(settings.system_priority, 65535);
  EXPECT_TRUE(settings.system.is_zero());
  EXPECT_TRUE(settings.is_active);
  EXPECT_TRUE(settings.is_fast);
  EXPECT_FALSE(changed_to(R"("mode": "active")").is_fast);
}

TEST(BondPlan, PriorityAndAddress_DoNotInterrupt) {
  const std::vector<BondChange> changes = plan(
      entry("bond0", R"("mode": "active", "period": true, "system-priority": 1, "system-mac": "02:00:00:00:00:0A")") +
      "," + kDown0);
  ASSERT_EQ(changes.size(), 1U);
  EXPECT_EQ(changes[0].name, "bond0");
  EXPECT_TRUE(changes[0].is_up);
  EXPECT_FALSE(changes[0].interrupts());
  EXPECT_EQ(changes[0].before.system_priority, 100);
  EXPECT_EQ(changes[0].after.system_priority, 1);
  EXPECT_EQ(to_text(changes[0].after.system), "02:00:00:00:00:0a");
}

TEST(BondPlan, PeriodOrModeOfABondThatIsUp_Interrupts) {
  const std::string slow =
      entry("bond0", R"("mode": "active", "period": 30000, "system-priority": 100)") + "," + kDown0;
  EXPECT_EQ(refusal(slow),
            "/Talvo-Brin-QD-ifmgr-cfg:interface-configurations/interface-configuration[active='act']"
            "[interface-name='bond0']/Talvo-Brin-QD-bundlemgr-cfg:lacp/period: takes the links of bond0 down for a "
            "moment, which may-interrupt allows");
  EXPECT_THAT(refusal(entry("bond0", R"("mode": "passive", "period": true)") + "," + kDown0),
              HasSubstr("lacp/mode: takes the links of bond0 down for a moment"));
  // Named by the container when the leaf is gone.
  EXPECT_THAT(refusal(entry("bond0", R"("mode": "active")") + "," + kDown0),
              HasSubstr("lacp: takes the links of bond0 down for a moment"));
  ASSERT_EQ(plan(slow, true).size(), 1U);
  EXPECT_TRUE(plan(slow, true)[0].interrupts());
}

TEST(BondPlan, PeriodOfABondThatIsDown_DoesNotInterrupt) {
  const std::vector<BondChange> changes =
      plan(entry("bond0", kBond0) + "," + entry("down0", R"("mode": "passive", "period": true)"));
  ASSERT_EQ(changes.size(), 1U);
  EXPECT_FALSE(changes[0].is_up);
  EXPECT_FALSE(changes[0].interrupts());
  EXPECT_FALSE(changes[0].after.is_active);
}

TEST(BondPlan, EntryOfWhatIsNoServedBond_IsRefused) {
  const std::string bonds = entry("bond0", kBond0) + "," + kDown0 + ",";
  EXPECT_THAT(refusal(bonds + entry("bond9", "")),
              HasSubstr("[interface-name='bond9']: there is no interface bond9, and no bond is made"));
  EXPECT_THAT(refusal(bonds + entry("a00", "")), HasSubstr(": a00 is not a bond"));
  EXPECT_THAT(refusal(bonds + entry("bond0.5", "")), HasSubstr(": bond0.5 is not a bond"));
  EXPECT_THAT(refusal(bonds + entry("backup0", R"("mode": "active")")),
              HasSubstr(": backup0 is not in mode 802.3ad, and its mode is not changed"));
}

TEST(BondPlan, ConfigurationOfAnotherClass_IsRefused) {
  EXPECT_THAT(refusal(R"({"active": "pre", "interface-name": "bond0"})"), HasSubstr("is of the class act"));
}

TEST(BondPlan, EntryOrItsLacpGone_IsRefused) {
  EXPECT_EQ(refusal(entry("bond0", kBond0)),
            "down0: LACP cannot be turned off in mode 802.3ad, so the entry cannot be deleted");
  EXPECT_THAT(refusal(entry("bond0", kBond0) + R"(, {"active": "act", "interface-name": "down0"})"),
              HasSubstr("[interface-name='down0']: LACP cannot be turned off in mode 802.3ad"));
  EXPECT_THAT(refusal_of([] { plan_changes(replayed_links("pair"), nullptr, true); }),
              HasSubstr("LACP cannot be turned off"));
}

TEST(BondPlan, SettingsThatBondsDoNotHave_AreRefused) {
  EXPECT_THAT(refusal(entry("bond0", kBond0, R"(, "description": "uplink")") + "," + kDown0),
              HasSubstr("/description: bonds have no such setting"));
  EXPECT_THAT(refusal(entry("bond0", kBond0 + R"(, "timeout": {"expected": 5})") + "," + kDown0),
              HasSubstr("lacp/timeout: bonds have no such setting"));
  EXPECT_THAT(refusal(kDown0, R"(, "Talvo-Brin-QD-bundlemgr-cfg:lacp": {"system-priority": 5})"),
              HasSubstr("bundlemgr-cfg:lacp: a Linux kernel has no settings for all of its bonds"));
}

TEST(BondPlan, ValuesThatTheKernelDoesNotTake_AreRefused) {
  EXPECT_THAT(refusal(entry("bond0", R"("mode": "on")")), HasSubstr("lacp/mode: LACP cannot be turned off"));
  EXPECT_THAT(refusal(entry("bond0", R"("period": 1000)")), HasSubstr("lacp/period: a bond has the short period"));
  EXPECT_THAT(refusal(entry("bond0", R"("period": false)")), HasSubstr("lacp/period: a bond has the short period"));
  EXPECT_THAT(refusal(entry("bond0", R"("system-priority": 0)")),
              HasSubstr("lacp/system-priority: a bond has a system priority from 1 to 65535"));
  EXPECT_THAT(refusal(entry("bond0", R"("system-mac": "01:00:00:00:00:00")")),
              HasSubstr("lacp/system-mac: a system is not identified by the address of a group"));
}

}  // namespace
}  // namespace oclacp::host
