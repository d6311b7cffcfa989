#include "host/devices/linux/member_history.h"

#include <net/if.h>

#include <unordered_set>
#include <utility>

namespace oclacp::host {
namespace {

// IEEE 802.1AX, actor state.
constexpr std::uint8_t kSynchronization = 0x08;
constexpr std::uint8_t kCollecting = 0x10;
constexpr std::uint8_t kDistributing = 0x20;
constexpr std::uint8_t kDefaulted = 0x40;
constexpr std::uint8_t kExpired = 0x80;

bool is_in_bundle(std::uint8_t state) {
  return (state & (kCollecting | kDistributing)) == (kCollecting | kDistributing);
}

}  // namespace

void MemberHistory::see(const LinkSnapshot& links, std::chrono::system_clock::time_point now) {
  std::unordered_set<int> bonds;
  for (const Link& link : links.links) {
    if (link.is_lacp_bond()) {
      bonds.insert(link.index);
    }
  }
  const auto before = std::exchange(states_, {});
  const MemberEventsByPort events_before = std::exchange(events_, {});
  for (const Link& port : links.links) {
    if (!port.bond_port || !bonds.contains(port.controller)) {
      continue;
    }
    if (const auto known = before.find(port.index); known != before.end()) {
      states_.insert(*known);
      events_.insert(*events_before.find(port.index));
      see_port(port, now);
    } else {
      // A port that joined its bond while somebody watched was not in the bundle before.
      const bool was_in_bundle =
          !has_looked_ && port.bond_port->actor_state && is_in_bundle(*port.bond_port->actor_state);
      states_[port.index].is_in_bundle = was_in_bundle;
      events_[port.index] = {};
      see_port(port, now);
    }
  }
  has_looked_ = true;
}

void MemberHistory::see_port(const Link& port, std::chrono::system_clock::time_point now) {
  if (!port.bond_port->actor_state) {
    return;
  }
  const std::uint8_t bits = *port.bond_port->actor_state;
  State& state = states_[port.index];
  MemberEvents& events = events_[port.index];
  if (is_in_bundle(bits) != state.is_in_bundle) {
    state.is_in_bundle = !state.is_in_bundle;
    events.last_change = now;
  }
  // A link that goes down takes the partner's information with it; that is no timeout.
  const bool is_running = (port.flags & IFF_RUNNING) != 0;
  const bool has_run_out = (bits & (kDefaulted | kExpired)) != 0;
  if (state.has_partner && is_running && has_run_out) {
    ++events.timeouts;
  }
  const bool is_heard = (bits & kSynchronization) != 0 || state.has_partner;
  state.has_partner = is_running && !has_run_out && is_heard;
}

}  // namespace oclacp::host
