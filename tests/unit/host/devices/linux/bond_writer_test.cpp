#include "host/devices/linux/bond_writer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/if_bonding.h>
#include <linux/if_link.h>
#include <linux/rtnetlink.h>

#include <cerrno>
#include <map>

#include "host/devices/linux/netlink_attributes.h"
#include "tests/unit/host/devices/linux/fake_kernel.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// Bonds as a kernel keeps them, with one member each: bond1 with the index 1 and its member with the index 101, ...
class Kernel {
 public:
  struct Bond {
    bool is_up = true;
    BondSettings settings;
    bool does_member_return = true;
  };

  // What was asked for, in words.
  std::vector<std::string> log;
  std::map<int, Bond> bonds;
  // The numbers of the changes that fail, from 1.
  std::map<int, int> errors;

  std::vector<Datagram> answer(const nlmsghdr& request) {
    switch (request.nlmsg_type) {
      case RTM_GETLINK:
        return {links(), make_done()};
      case RTM_NEWLINK:
        return {make_outcome(change(request))};
      default:
        return {make_done()};  // No address, no route, no neighbour.
    }
  }

 private:
  static std::string one(std::uint16_t type, unsigned value) {
    return make_attribute(type, std::string(1, static_cast<char>(value)));
  }

  [[nodiscard]] std::string links() const {
    std::string messages;
    for (const auto& [index, bond] : bonds) {
      ifinfomsg header{};
      header.ifi_index = index;
      header.ifi_flags = bond.is_up ? IFF_UP : 0;
      const std::string name = "bond" + std::to_string(index);
      const std::string data = one(IFLA_BOND_MODE, kBondModeLacp) +
                               one(IFLA_BOND_AD_LACP_RATE, bond.settings.is_fast ? 1 : 0) +
                               one(IFLA_BOND_AD_LACP_ACTIVE, bond.settings.is_active ? 1 : 0) +
                               make_attribute(IFLA_BOND_AD_ACTOR_SYS_PRIO, bytes_of(bond.settings.system_priority)) +
                               make_attribute(IFLA_BOND_AD_ACTOR_SYSTEM, bytes_of(bond.settings.system.bytes));
      messages +=
          make_message(RTM_NEWLINK, bytes_of(header) + make_attribute(IFLA_IFNAME, name) +
                                        make_attribute(IFLA_LINKINFO, make_attribute(IFLA_INFO_KIND, "bond") +
                                                                          make_attribute(IFLA_INFO_DATA, data)));
      header.ifi_index = 100 + index;
      const std::string port_data = one(IFLA_BOND_SLAVE_AD_ACTOR_OPER_PORT_STATE, bond.does_member_return ? 63 : 7);
      messages += make_message(RTM_NEWLINK,
                               bytes_of(header) + make_attribute(IFLA_IFNAME, "port" + std::to_string(index)) +
                                   make_attribute(IFLA_MASTER, bytes_of(index)) +
                                   make_attribute(IFLA_LINKINFO, make_attribute(IFLA_INFO_SLAVE_KIND, "bond") +
                                                                     make_attribute(IFLA_INFO_SLAVE_DATA, port_data)));
    }
    return messages;
  }

  int change(const nlmsghdr& request) {
    const auto& header = *static_cast<const ifinfomsg*>(mnl_nlmsg_get_payload(&request));
    const std::string name = "bond" + std::to_string(header.ifi_index);
    ++changes_;
    if (errors.count(changes_) != 0) {
      log.push_back(name + " fails");
      return errors.at(changes_);
    }
    const auto found = bonds.find(header.ifi_index);
    if (found == bonds.end()) {
      log.push_back(name + " is gone");
      return ENODEV;
    }
    if (header.ifi_change != 0) {
      found->second.is_up = (header.ifi_flags & IFF_UP) != 0;
      log.push_back(name + (found->second.is_up ? " up" : " down"));
      return 0;
    }
    log.push_back(name + " set" + set(request, found->second.settings));
    return 0;
  }

  static std::string set(const nlmsghdr& request, BondSettings& settings) {
    std::string what;
    const auto take = [&](const nlattr& attribute) {
      switch (mnl_attr_get_type(&attribute)) {
        case IFLA_BOND_AD_LACP_RATE:
          settings.is_fast = read_number<std::uint8_t>(attribute) == 1;
          what += settings.is_fast ? " fast" : " slow";
          break;
        case IFLA_BOND_AD_LACP_ACTIVE:
          settings.is_active = read_number<std::uint8_t>(attribute) == 1;
          what += settings.is_active ? " active" : " passive";
          break;
        case IFLA_BOND_AD_ACTOR_SYS_PRIO:
          settings.system_priority = read_number<std::uint16_t>(attribute).value_or(0);
          what += " " + std::to_string(settings.system_priority);
          break;
        case IFLA_BOND_AD_ACTOR_SYSTEM:
          settings.system = read_mac_address(attribute).value_or(MacAddress());
          what += " " + to_text(settings.system);
          break;
        default:
          break;
      }
    };
    for_each_attribute(request, sizeof(ifinfomsg), [&](const nlattr& info) {
      for_each_attribute(info, [&](const nlattr& part) {
        if (mnl_attr_get_type(&part) == IFLA_INFO_DATA) {
          for_each_attribute(part, take);
        }
      });
    });
    return what;
  }

  int changes_ = 0;
};

BondChange change_of(int index, const BondSettings& after) {
  return {index, "bond" + std::to_string(index), true, {}, after};
}

BondSettings priority(std::uint16_t value) {
  BondSettings settings;
  settings.system_priority = value;
  return settings;
}

BondSettings fast() {
  BondSettings settings;
  settings.is_fast = true;
  return settings;
}

// Five changes of the priority.
std::vector<BondChange> five_changes() {
  std::vector<BondChange> changes;
  for (int index = 1; index <= 5; ++index) {
    changes.push_back(change_of(index, priority(static_cast<std::uint16_t>(index))));
  }
  return changes;
}

// Why the changes were not made, or "accepted".
std::string write(Kernel& kernel, const std::vector<BondChange>& changes,
                  std::vector<std::string>* warnings = nullptr) {
  const FakeKernel connection([&](const nlmsghdr& request) { return kernel.answer(request); });
  NetlinkSocket socket(connection.socket());
  BondWriter writer(socket, std::chrono::milliseconds(150));
  return refusal_of([&] {
    const std::vector<std::string> told = writer.apply(changes);
    if (warnings != nullptr) {
      *warnings = told;
    }
  });
}

Kernel five_bonds() {
  Kernel kernel;
  for (int index = 1; index <= 5; ++index) {
    kernel.bonds[index] = {};
  }
  return kernel;
}

TEST(BondWriter, PriorityAndAddress_AreSetWithTheBondUp) {
  Kernel kernel = five_bonds();
  BondSettings after = priority(7);
  after.system = *parse_mac_address("02:00:00:00:00:07");
  EXPECT_EQ(write(kernel, {change_of(1, after)}), "accepted");
  EXPECT_THAT(kernel.log, ElementsAre("bond1 set 7 02:00:00:00:00:07"));
}

TEST(BondWriter, PeriodAndMode_AreSetWithTheBondDown) {
  Kernel kernel = five_bonds();
  BondSettings after = fast();
  after.is_active = false;
  std::vector<std::string> warnings;
  EXPECT_EQ(write(kernel, {change_of(2, after)}, &warnings), "accepted");
  EXPECT_THAT(kernel.log, ElementsAre("bond2 down", "bond2 set fast passive", "bond2 up"));
  EXPECT_THAT(warnings, IsEmpty());
}

TEST(BondWriter, MemberThatCarriedFramesAndDoesNotReturn_IsTold) {
  // It carries frames in the first dump only.
  Kernel kernel = five_bonds();
  bool is_first = true;
  const FakeKernel connection([&](const nlmsghdr& request) {
    std::vector<Datagram> datagrams = kernel.answer(request);
    if (request.nlmsg_type == RTM_GETLINK && is_first) {
      is_first = false;
      kernel.bonds[1].does_member_return = false;
    }
    return datagrams;
  });
  NetlinkSocket socket(connection.socket());
  BondWriter writer(socket, std::chrono::milliseconds(150));
  EXPECT_THAT(writer.apply({change_of(1, fast())}), ElementsAre("bond1: is not back as before: the member port1"));
}

TEST(BondWriter, ThirdOfFiveFails_TheFirstTwoAreAsBefore) {
  Kernel kernel = five_bonds();
  kernel.errors = {{3, EINVAL}};
  EXPECT_EQ(write(kernel, five_changes()), "bond3: Invalid argument");
  EXPECT_THAT(kernel.log,
              ElementsAre("bond1 set 1", "bond2 set 2", "bond3 fails", "bond2 set 65535", "bond1 set 65535"));
}

TEST(BondWriter, ThirdOfFiveIsGone_TheFirstTwoAreAsBefore) {
  Kernel kernel = five_bonds();
  kernel.bonds.erase(3);
  EXPECT_EQ(write(kernel, five_changes()), "bond3: No such device");
  EXPECT_EQ(kernel.bonds[1].settings, BondSettings());
  EXPECT_EQ(kernel.bonds[2].settings, BondSettings());
}

TEST(BondWriter, UndoFailsToo_BothAreTold) {
  Kernel kernel = five_bonds();
  kernel.errors = {{3, EINVAL}, {4, EBUSY}};
  EXPECT_EQ(write(kernel, five_changes()),
            "bond3: Invalid argument; bond2 could not be restored: Device or resource busy");
  EXPECT_EQ(kernel.bonds[1].settings, BondSettings());
}

TEST(BondWriter, SettingFailsWhileDown_TheBondComesUpAsBefore) {
  Kernel kernel = five_bonds();
  kernel.errors = {{2, EINVAL}};
  EXPECT_EQ(write(kernel, {change_of(1, fast())}), "bond1: Invalid argument");
  EXPECT_THAT(kernel.log, ElementsAre("bond1 down", "bond1 fails", "bond1 set slow", "bond1 up"));
  EXPECT_TRUE(kernel.bonds[1].is_up);
}

TEST(BondWriter, BondStaysDown_IsTold) {
  Kernel kernel = five_bonds();
  kernel.errors = {{3, EIO}};
  EXPECT_THAT(write(kernel, {change_of(1, fast())}), HasSubstr("bond1: it stays down: Input/output error"));
}

TEST(BondWriter, InterruptingChangeBeforeTheFailure_IsInterruptedAgain) {
  Kernel kernel = five_bonds();
  kernel.bonds.erase(2);
  EXPECT_EQ(write(kernel, {change_of(1, fast()), change_of(2, priority(2))}), "bond2: No such device");
  EXPECT_THAT(kernel.log, ElementsAre("bond1 down", "bond1 set fast", "bond1 up", "bond2 is gone", "bond1 down",
                                      "bond1 set slow", "bond1 up"));
}

}  // namespace
}  // namespace oclacp::host
