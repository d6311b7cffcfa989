#include "host/devices/linux/native_bonds.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "tests/unit/host/devices/linux/replayed_links.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

// The leaves of native data by their paths, without keys.
std::map<std::string, std::string> leaves_of(const TreePtr& data) {
  std::map<std::string, std::string> leaves;
  for (const lyd_node* top = data.get(); top != nullptr; top = top->next) {
    const lyd_node* node = nullptr;
    LYD_TREE_DFS_BEGIN(top, node) {
      if ((node->schema->nodetype & LYD_NODE_TERM) != 0 && !lysc_is_key(node->schema)) {
        const std::unique_ptr<char, decltype(&std::free)> path(lyd_path(node, LYD_PATH_STD, nullptr, 0), &std::free);
        leaves[path.get()] = lyd_get_value(node);
      }
      LYD_TREE_DFS_END(top, node);
    }
  }
  return leaves;
}

std::map<std::string, std::string> running_leaves(const LinkSnapshot& snapshot) {
  return leaves_of(make_running(schemas().native(), snapshot));
}

std::map<std::string, std::string> operational_leaves(const LinkSnapshot& snapshot) {
  return leaves_of(make_operational(schemas().native(), snapshot));
}

std::string configuration_of(const std::string& bond) {
  return "/Talvo-Brin-QD-ifmgr-cfg:interface-configurations/interface-configuration[active='act'][interface-name='" +
         bond + "']/";
}

std::string lacp_of(const std::string& bond) {
  return configuration_of(bond) + "Talvo-Brin-QD-bundlemgr-cfg:lacp/";
}

std::string state_of(const std::string& bond) {
  return "/Talvo-Brin-QD-bundlemgr-oper:lacp-bundles/bundles/bundle[bundle-interface='" + bond + "']/";
}

std::string member_of(const std::string& bond, const std::string& port) {
  return state_of(bond) + "members/member[member-interface='" + port + "']/";
}

// A snapshot with one bond in mode 802.3ad.
LinkSnapshot with_bond(const std::string& name) {
  Link bond;
  bond.index = 3;
  bond.name = name;
  bond.kind = "bond";
  bond.bond = BondAttributes();
  bond.bond->mode = kBondModeLacp;
  bond.bond->actor_system_priority = 65535;
  bond.bond->actor_system = MacAddress();
  LinkSnapshot snapshot;
  snapshot.links.push_back(bond);
  return snapshot;
}

TEST(NativeBonds, RecordedConfiguration_HasWhatDiffersFromTheKernelsOwn) {
  const auto expected = std::map<std::string, std::string>{
      {configuration_of("bond0") + "interface-virtual", ""},
      {lacp_of("bond0") + "mode", "active"},
      {lacp_of("bond0") + "period", "true"},
      {lacp_of("bond0") + "system-priority", "100"},
      {lacp_of("bond0") + "system-mac", "02:00:00:00:00:01"},
      {configuration_of("down0") + "interface-virtual", ""},
      {lacp_of("down0") + "mode", "active"},
      {lacp_of("down0") + "period", "30000"},
  };
  EXPECT_EQ(running_leaves(replayed_links("pair")), expected);
}

TEST(NativeBonds, RecordedState_IsThatOfLinksStatisticsAndTexts) {
  const LinkSnapshot snapshot = replayed_links("pair");
  const auto leaves = operational_leaves(snapshot);
  const std::string member = member_of("bond0", "a01");
  EXPECT_EQ(leaves.at(state_of("bond0") + "data/bundle-system-id/system-mac-addr/macaddr"), "02:00:00:00:00:01");
  EXPECT_EQ(leaves.at(state_of("bond0") + "data/bundle-system-id/system-prio"), "100");
  EXPECT_EQ(leaves.at(state_of("bond0") + "data/applied-lacp-mode"), "bmd-mode-active");
  const BondingText text = snapshot.texts.at(snapshot.find("bond0")->index);
  EXPECT_EQ(leaves.at(member + "link-data/actor-system-mac-address"), "02:00:00:00:00:01");
  EXPECT_EQ(leaves.at(member + "link-data/actor-operational-key"), "15");
  EXPECT_EQ(leaves.at(member + "link-data/actor-port-id"), "2");
  EXPECT_EQ(leaves.at(member + "link-data/partner-system-mac-address"), to_text(*text.ports[1].partner.system));
  EXPECT_EQ(leaves.at(member + "link-data/partner-operational-key"), "15");
  EXPECT_EQ(leaves.at(member + "link-data/partner-port-id"), "2");
  EXPECT_EQ(leaves.at(member + "link-data/actor-port-state"), "63");
  const LacpStatistics statistics = snapshot.statistics.at(snapshot.find("a01")->index);
  EXPECT_EQ(leaves.at(member + "counters/lacpd-us-received"), std::to_string(*statistics.received));
  EXPECT_EQ(leaves.at(member + "counters/lacpd-us-transmitted"), std::to_string(*statistics.transmitted));
  EXPECT_EQ(leaves.at(member + "counters/illegal-packets-received"), "0");
}

TEST(NativeBonds, WhatTheKernelDoesNotTell_IsAbsent) {
  const auto leaves = operational_leaves(replayed_links("pair"));
  for (const char* leaf :
       {"counters/excess-lacpd-us-received", "counters/last-change", "counters/lacp-timeout-transitions"}) {
    EXPECT_EQ(leaves.count(member_of("bond0", "a00") + leaf), 0U) << leaf;
  }
}

TEST(NativeBonds, WhatAWatcherSaw_IsTold) {
  const LinkSnapshot snapshot = replayed_links("pair");
  const MemberEventsByPort seen = {
      {snapshot.find("a00")->index, {std::chrono::system_clock::time_point(std::chrono::seconds(7)), 3}},
      {snapshot.find("a01")->index, {std::nullopt, 0}}};
  const auto leaves = leaves_of(make_operational(schemas().native(), snapshot, seen));
  EXPECT_EQ(leaves.at(member_of("bond0", "a00") + "counters/last-change"), "7000000000");
  EXPECT_EQ(leaves.at(member_of("bond0", "a00") + "counters/lacp-timeout-transitions"), "3");
  EXPECT_EQ(leaves.count(member_of("bond0", "a01") + "counters/last-change"), 0U);
  EXPECT_EQ(leaves.at(member_of("bond0", "a01") + "counters/lacp-timeout-transitions"), "0");
}

TEST(NativeBonds, BondWithoutPorts_HasTheSystemThatItIsGoingToUse) {
  const LinkSnapshot snapshot = replayed_links("pair");
  const auto leaves = operational_leaves(snapshot);
  EXPECT_EQ(leaves.at(state_of("down0") + "data/bundle-system-id/system-mac-addr/macaddr"),
            to_text(*snapshot.find("down0")->address));
  EXPECT_EQ(leaves.at(state_of("down0") + "data/bundle-system-id/system-prio"), "65535");
}

TEST(NativeBonds, WithheldParts_AreAbsentAndTold) {
  const LinkSnapshot snapshot = replayed_links("unprivileged");
  EXPECT_TRUE(is_withheld(snapshot));
  const auto leaves = operational_leaves(snapshot);
  EXPECT_EQ(leaves.at(state_of("bond0") + "data/applied-lacp-mode"), "bmd-mode-active");
  EXPECT_EQ(leaves.at(member_of("bond0", "a00") + "link-data/actor-port-state"), "63");
  EXPECT_EQ(leaves.count(member_of("bond0", "a00") + "link-data/actor-operational-key"), 0U);
  EXPECT_EQ(leaves.count(state_of("bond0") + "data/bundle-system-id/system-prio"), 0U);
  EXPECT_THAT(warnings_about(snapshot), ElementsAre(HasSubstr("CAP_NET_ADMIN in the initial user namespace")));
  EXPECT_THAT(warnings_about(replayed_links("pair")), IsEmpty());
}

TEST(NativeBonds, NoBond_IsNoDataAndTold) {
  const LinkSnapshot snapshot = replayed_links("none");
  EXPECT_EQ(make_running(schemas().native(), snapshot), nullptr);
  EXPECT_EQ(make_operational(schemas().native(), snapshot), nullptr);
  EXPECT_THAT(warnings_about(snapshot), ElementsAre("there is no bond in mode 802.3ad"));
}

TEST(NativeBonds, Interfaces_HaveTheirTypes) {
  std::map<std::string, InterfaceType> types;
  for (const Interface& interface : list_interfaces(replayed_links("pair"))) {
    types[interface.name] = interface.type;
  }
  const std::map<std::string, InterfaceType> expected = {
      {"lo", InterfaceType::kVirtual},      {"a00", InterfaceType::kPhysical},   {"a01", InterfaceType::kPhysical},
      {"bond0", InterfaceType::kBundle},    {"down0", InterfaceType::kBundle},   {"backup0", InterfaceType::kVirtual},
      {"bond0.5", InterfaceType::kVirtual}, {"dummy0", InterfaceType::kVirtual},
  };
  EXPECT_EQ(types, expected);
}

TEST(NativeBonds, AttributesOfNewKernels_AreActiveWhenMissing) {
  const LinkSnapshot snapshot = with_bond("bond0");
  EXPECT_EQ(running_leaves(snapshot).at(lacp_of("bond0") + "mode"), "active");
  EXPECT_EQ(running_leaves(snapshot).at(lacp_of("bond0") + "period"), "30000");
}

TEST(NativeBonds, PassiveBond_IsPassive) {
  LinkSnapshot snapshot = with_bond("bond0");
  snapshot.links[0].bond->lacp_active = 0;
  EXPECT_EQ(running_leaves(snapshot).at(lacp_of("bond0") + "mode"), "passive");
  EXPECT_EQ(operational_leaves(snapshot).at(state_of("bond0") + "data/applied-lacp-mode"), "bmd-mode-passive");
}

TEST(NativeBonds, IllegalAndUnknownPackets_AreOneSum) {
  LinkSnapshot snapshot = with_bond("bond0");
  Link port;
  port.index = 4;
  port.name = "eth0";
  port.controller = 3;
  port.bond_port = BondPortAttributes();
  snapshot.links.push_back(port);
  snapshot.statistics[4].illegal_received = 3;
  EXPECT_EQ(operational_leaves(snapshot).count(member_of("bond0", "eth0") + "counters/illegal-packets-received"), 0U);
  snapshot.statistics[4].unknown_received = 4;
  EXPECT_EQ(operational_leaves(snapshot).at(member_of("bond0", "eth0") + "counters/illegal-packets-received"), "7");
}

TEST(NativeBonds, NamesThatCannotBeServed_AreLeftOutAndTold) {
  EXPECT_EQ(make_running(schemas().native(), with_bond("bond0.1")), nullptr);
  EXPECT_THAT(warnings_about(with_bond("bond0.1")),
              ElementsAre("bond0.1: not served: a name with a dot is a sub-interface's"));
  for (const char* name : {"bond\xff", "\xc3", "\xe0\x80\x80", "\xed\xa0\x80", "\xf4\x90\x80\x80", "\xc0\xaf"}) {
    EXPECT_EQ(make_operational(schemas().native(), with_bond(name)), nullptr) << name;
  }
  EXPECT_NE(make_running(schemas().native(), with_bond("b\xc3\xbcndel")), nullptr);
}

TEST(NativeBonds, MissingTexts_AreTold) {
  LinkSnapshot snapshot = with_bond("bond0");
  snapshot.has_texts = false;
  EXPECT_THAT(warnings_about(snapshot), ElementsAre(HasSubstr("without /proc/thread-self/net/bonding the keys")));
}

}  // namespace
}  // namespace oclacp::host
