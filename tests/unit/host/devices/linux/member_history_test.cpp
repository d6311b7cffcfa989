#include "host/devices/linux/member_history.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <net/if.h>

#include "tests/unit/host/devices/linux/replayed_links.h"

namespace oclacp::host {
namespace {

using std::chrono::seconds;
using std::chrono::system_clock;

constexpr std::uint8_t kInBundle = 0x3d;
constexpr std::uint8_t kExpired = 0x8d;   // synchronization, but neither collecting nor distributing
constexpr std::uint8_t kDetached = 0x05;  // of a link that is down
constexpr std::uint8_t kDefaulted = 0x45;

system_clock::time_point at(int time) {
  return system_clock::time_point(seconds(time));
}

// The bonds of a kernel, of which a test changes one port.
class MemberHistoryTest : public testing::Test {
 protected:
  void set(std::uint8_t state, bool is_running = true) {
    Link& port = this->port();
    port.bond_port->actor_state = state;
    port.flags = is_running ? port.flags | IFF_RUNNING : port.flags & ~static_cast<unsigned>(IFF_RUNNING);
  }
  Link& port() {
    return *std::find_if(links_.links.begin(), links_.links.end(), [](const Link& link) { return link.name == "a00"; });
  }
  const MemberEvents& see(int time) {
    history_.see(links_, at(time));
    return history_.events().at(port().index);
  }

  LinkSnapshot links_ = replayed_links("pair");
  MemberHistory history_;
};

TEST_F(MemberHistoryTest, FirstLook_TellsOfNoChange) {
  const MemberEvents& events = see(1);
  EXPECT_FALSE(events.last_change);
  EXPECT_EQ(events.timeouts, 0U);
  EXPECT_EQ(history_.events().count(links_.find("bond0")->index), 0U);
}

TEST_F(MemberHistoryTest, LeavingAndEntering_IsTheLastChange) {
  see(1);
  set(kDetached, false);
  EXPECT_EQ(see(2).last_change, at(2));
  EXPECT_EQ(see(3).last_change, at(2));
  set(kInBundle);
  EXPECT_EQ(see(4).last_change, at(4));
}

TEST_F(MemberHistoryTest, ChangeOfAnotherPort_IsNotThisOnes) {
  const int other = links_.find("a01")->index;
  see(1);
  set(kDetached);
  see(2);
  EXPECT_FALSE(history_.events().at(other).last_change);
}

TEST_F(MemberHistoryTest, PartnerThatFallsSilent_IsOneTimeout) {
  see(1);
  set(kExpired);
  EXPECT_EQ(see(2).timeouts, 1U);
  set(kDefaulted);
  EXPECT_EQ(see(3).timeouts, 1U);
  set(kInBundle);
  see(4);
  set(kDefaulted);
  EXPECT_EQ(see(5).timeouts, 2U);
}

TEST_F(MemberHistoryTest, LinkThatGoesDownAndComesUp_IsNoTimeout) {
  see(1);
  set(kDetached, false);
  see(2);
  set(kDetached);
  see(3);
  set(kExpired);
  EXPECT_EQ(see(4).timeouts, 0U);
}

TEST_F(MemberHistoryTest, PortThatJoinsLater_HasEnteredThen) {
  const BondPortAttributes attributes = *port().bond_port;
  port().bond_port.reset();
  history_.see(links_, at(1));
  port().bond_port = attributes;
  EXPECT_EQ(see(2).last_change, at(2));
}

TEST_F(MemberHistoryTest, PortThatLeftItsBond_IsForgotten) {
  see(1);
  set(kExpired);
  see(2);
  const int index = port().index;
  port().bond_port.reset();
  history_.see(links_, at(3));
  EXPECT_EQ(history_.events().count(index), 0U);
}

TEST_F(MemberHistoryTest, StateThatIsNotTold_ChangesNothing) {
  see(1);
  port().bond_port->actor_state.reset();
  EXPECT_FALSE(see(2).last_change);
  set(kInBundle);
  EXPECT_FALSE(see(3).last_change);
}

}  // namespace
}  // namespace oclacp::host
