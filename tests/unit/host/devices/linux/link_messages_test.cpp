#include "host/devices/linux/link_messages.h"

#include <gtest/gtest.h>
#include <linux/if_bonding.h>
#include <linux/if_link.h>
#include <linux/rtnetlink.h>

#include <map>

#include "tests/unit/host/devices/linux/fake_kernel.h"

namespace oclacp::host {
namespace {

std::map<std::string, Link> recorded_links(const std::string& folder) {
  std::map<std::string, Link> links;
  for (const std::string& message : messages_of(recorded(folder + "/links"))) {
    if (std::optional<Link> link = parse_link(header_of(message))) {
      links[link->name] = std::move(*link);
    }
  }
  return links;
}

std::string link_message(const std::string& attributes) {
  ifinfomsg header{};
  header.ifi_index = 7;
  return make_message(RTM_NEWLINK, bytes_of(header) + attributes);
}

std::optional<Link> parsed_link(const std::string& attributes) {
  return parse_link(header_of(link_message(attributes)));
}

const std::string kName = make_attribute(IFLA_IFNAME, std::string("bond7\0", 6));
const std::string kBondKind = make_attribute(IFLA_INFO_KIND, "bond");
const std::string kLacpMode = make_attribute(IFLA_BOND_MODE, std::string(1, '\4'));

TEST(LinkMessages, Recorded_HasBondsAndPorts) {
  const std::map<std::string, Link> links = recorded_links("pair");
  ASSERT_EQ(links.count("bond0"), 1U);
  const Link& bond = links.at("bond0");
  EXPECT_TRUE(bond.is_lacp_bond());
  EXPECT_EQ(bond.kind, "bond");
  EXPECT_EQ(bond.bond->lacp_rate, 1);
  EXPECT_EQ(bond.bond->lacp_active, 1);
  EXPECT_EQ(bond.bond->actor_system_priority, 100);
  EXPECT_EQ(to_text(*bond.bond->actor_system), "02:00:00:00:00:01");
  ASSERT_TRUE(bond.address);
  const Link& port = links.at("a00");
  EXPECT_EQ(port.controller, bond.index);
  EXPECT_EQ(port.kind, "veth");
  ASSERT_TRUE(port.bond_port);
  EXPECT_EQ(port.bond_port->actor_state, 63);
  EXPECT_EQ(port.bond_port->partner_state, 61);
}

TEST(LinkMessages, Recorded_HasOtherLinks) {
  const std::map<std::string, Link> links = recorded_links("pair");
  EXPECT_TRUE(links.at("backup0").bond);
  EXPECT_FALSE(links.at("backup0").is_lacp_bond());
  EXPECT_EQ(links.at("bond0.5").kind, "vlan");
  EXPECT_EQ(links.at("bond0.5").lower, links.at("bond0").index);
  EXPECT_EQ(links.at("lo").kind, "");
  // The other end of the cable is in another namespace, where its index means something.
  EXPECT_EQ(links.at("a00").lower, 0);
}

TEST(LinkMessages, RecordedWithoutPrivilege_LacksTheSystem) {
  const std::map<std::string, Link> links = recorded_links("unprivileged");
  EXPECT_FALSE(links.at("bond0").bond->actor_system_priority);
  EXPECT_FALSE(links.at("bond0").bond->actor_system);
  EXPECT_EQ(links.at("bond0").bond->lacp_rate, 1);
  EXPECT_EQ(links.at("a00").bond_port->actor_state, 63);
}

TEST(LinkMessages, RecordedStatistics_AreThoseOfPorts) {
  const std::map<std::string, Link> links = recorded_links("pair");
  std::map<int, LacpStatistics> statistics;
  for (const std::string& message : messages_of(recorded("pair/statistics"))) {
    if (const std::optional<LacpStatistics> found = parse_lacp_statistics(header_of(message))) {
      statistics[found->index] = *found;
    }
  }
  ASSERT_EQ(statistics.size(), 2U);
  for (const char* name : {"a00", "a01"}) {
    const LacpStatistics& of_port = statistics.at(links.at(name).index);
    EXPECT_GT(of_port.received.value_or(0), 0U) << name;
    EXPECT_GT(of_port.transmitted.value_or(0), 0U) << name;
    EXPECT_EQ(of_port.unknown_received, 0U) << name;
    EXPECT_EQ(of_port.illegal_received, 0U) << name;
  }
}

TEST(LinkMessages, MissingAttributes_AreAbsent) {
  const std::optional<Link> link =
      parsed_link(kName + make_attribute(IFLA_LINKINFO, kBondKind + make_attribute(IFLA_INFO_DATA, kLacpMode)));
  ASSERT_TRUE(link);
  EXPECT_EQ(link->index, 7);
  EXPECT_TRUE(link->is_lacp_bond());
  EXPECT_FALSE(link->bond->lacp_active);
  EXPECT_FALSE(link->bond->actor_system);
  EXPECT_FALSE(link->address);
  EXPECT_FALSE(link->bond_port);
}

TEST(LinkMessages, DataBeforeTheirKind_AreRead) {
  const std::optional<Link> link =
      parsed_link(make_attribute(IFLA_LINKINFO, make_attribute(IFLA_INFO_DATA, kLacpMode) + kBondKind) + kName);
  ASSERT_TRUE(link);
  EXPECT_TRUE(link->is_lacp_bond());
}

TEST(LinkMessages, DataOfAnotherKind_AreNotABonds) {
  const std::string vlan = make_attribute(IFLA_INFO_KIND, "vlan");
  const std::optional<Link> link =
      parsed_link(kName + make_attribute(IFLA_LINKINFO, vlan + make_attribute(IFLA_INFO_DATA, kLacpMode)));
  ASSERT_TRUE(link);
  EXPECT_FALSE(link->bond);
}

TEST(LinkMessages, UnknownAttributes_AreSkipped) {
  const std::optional<Link> link = parsed_link(make_attribute(999, "new") + kName + make_attribute(998, ""));
  ASSERT_TRUE(link);
  EXPECT_EQ(link->name, "bond7");
}

TEST(LinkMessages, AttributesOfAnotherLength_AreAbsent) {
  const std::string two_bytes = make_attribute(IFLA_BOND_MODE, std::string("\4\0", 2));
  const std::optional<Link> link =
      parsed_link(kName + make_attribute(IFLA_ADDRESS, "12345") +
                  make_attribute(IFLA_LINKINFO, kBondKind + make_attribute(IFLA_INFO_DATA, two_bytes)));
  ASSERT_TRUE(link);
  EXPECT_FALSE(link->address);
  EXPECT_FALSE(link->bond->mode);
}

TEST(LinkMessages, MessagesOfOtherTypes_AreNoLinks) {
  EXPECT_FALSE(parsed_link(""));
  EXPECT_FALSE(parse_link(header_of(make_message(RTM_DELLINK, bytes_of(ifinfomsg{}) + kName))));
  EXPECT_FALSE(parse_link(header_of(make_message(RTM_NEWLINK, "short"))));
  EXPECT_FALSE(parse_lacp_statistics(header_of(make_message(RTM_NEWSTATS, "short"))));
  EXPECT_FALSE(parse_lacp_statistics(header_of(make_message(RTM_NEWSTATS, bytes_of(if_stats_msg{})))));
}

TEST(LinkMessages, EveryBeginningOfARecordedMessage_IsRead) {
  for (const std::string& whole : messages_of(recorded("pair/links"))) {
    for (size_t size = NLMSG_HDRLEN; size < whole.size(); size += 4) {
      std::string part = whole.substr(0, size);
      reinterpret_cast<nlmsghdr*>(part.data())->nlmsg_len = static_cast<std::uint32_t>(size);
      const std::optional<Link> link = parse_link(header_of(part));
      EXPECT_TRUE(!link || !link->name.empty());
    }
  }
}

}  // namespace
}  // namespace oclacp::host
