#include "host/devices/linux/bonding_text.h"

#include <gtest/gtest.h>

#include "tests/unit/host/devices/linux/fake_kernel.h"

namespace oclacp::host {
namespace {

// One end as text: "system key port", "-" for what is absent.
std::string shown(const LacpEnd& end) {
  const auto number = [](const std::optional<std::uint16_t>& value) { return value ? std::to_string(*value) : "-"; };
  return (end.system ? to_text(*end.system) : "-") + " " + number(end.key) + " " + number(end.port_number);
}

// A port with details of its actor.
std::string with_actor(const std::string& details) {
  return "Slave Interface: a0\ndetails actor lacp pdu:\n" + details;
}

TEST(BondingText, Recorded_HasBothEndsOfEachPort) {
  const BondingText text = parse_bonding_text(recorded("pair/bonding/bond0"));
  EXPECT_EQ(text.system_priority, 100);
  ASSERT_TRUE(text.system);
  EXPECT_EQ(to_text(*text.system), "02:00:00:00:00:01");
  ASSERT_EQ(text.ports.size(), 2U);
  EXPECT_EQ(text.ports[0].name, "a00");
  EXPECT_EQ(shown(text.ports[0].actor), "02:00:00:00:00:01 15 1");
  EXPECT_EQ(text.ports[1].name, "a01");
  EXPECT_EQ(shown(text.ports[1].actor), "02:00:00:00:00:01 15 2");
  const BondingText far = parse_bonding_text(recorded("far/bonding/bond0"));
  ASSERT_EQ(far.ports.size(), 2U);
  EXPECT_EQ(shown(far.ports[0].partner), shown(text.ports[0].actor));
  EXPECT_EQ(shown(text.ports[1].partner), shown(far.ports[1].actor));
}

TEST(BondingText, RecordedWithoutPrivilege_HasPortsOnly) {
  const BondingText text = parse_bonding_text(recorded("unprivileged/bonding/bond0"));
  EXPECT_FALSE(text.system_priority);
  EXPECT_FALSE(text.system);
  ASSERT_EQ(text.ports.size(), 2U);
  EXPECT_EQ(shown(text.ports[0].actor), "- - -");
  EXPECT_EQ(shown(text.ports[0].partner), "- - -");
}

TEST(BondingText, RecordedWithoutPorts_HasZerosForTheSystem) {
  const BondingText text = parse_bonding_text(recorded("pair/bonding/down0"));
  EXPECT_EQ(text.system_priority, 0);
  EXPECT_EQ(text.system, MacAddress());
  EXPECT_TRUE(text.ports.empty());
}

TEST(BondingText, EveryBeginningOfARecordedText_IsRead) {
  const std::string whole = recorded("pair/bonding/bond0");
  for (size_t size = 0; size <= whole.size(); ++size) {
    const BondingText text = parse_bonding_text(std::string_view(whole).substr(0, size));
    EXPECT_LE(text.ports.size(), 2U);
  }
}

TEST(BondingText, DetailsInAnotherOrder_AreRead) {
  const BondingText text =
      parse_bonding_text(with_actor("    port number: 3\n    new line: 9\n    port key: 5\n    system mac address: "
                                    "02:00:00:00:00:0a\n"));
  ASSERT_EQ(text.ports.size(), 1U);
  EXPECT_EQ(shown(text.ports[0].actor), "02:00:00:00:00:0a 5 3");
}

TEST(BondingText, ValuesOfAnotherForm_AreAbsent) {
  const BondingText text = parse_bonding_text(
      with_actor("    port number: 65536\n    port key: 5x\n    system mac address: 02:00:00:00:00\n"));
  ASSERT_EQ(text.ports.size(), 1U);
  EXPECT_EQ(shown(text.ports[0].actor), "- - -");
}

TEST(BondingText, DetailsOfNoPort_AreSkipped) {
  EXPECT_TRUE(parse_bonding_text("details actor lacp pdu:\n    port key: 5\n").ports.empty());
}

TEST(BondingText, IndentedPort_IsADetailThatNobodyKnows) {
  const BondingText text = parse_bonding_text(with_actor("    Slave Interface: a1\n    port key: 5\n"));
  ASSERT_EQ(text.ports.size(), 1U);
  EXPECT_EQ(shown(text.ports[0].actor), "- 5 -");
}

TEST(BondingText, LinesBehindDetails_BelongToThePort) {
  const BondingText text = parse_bonding_text(with_actor("    port key: 5\nSomething: else\n    port number: 7\n"));
  ASSERT_EQ(text.ports.size(), 1U);
  EXPECT_EQ(shown(text.ports[0].actor), "- 5 -");
}

}  // namespace
}  // namespace oclacp::host
