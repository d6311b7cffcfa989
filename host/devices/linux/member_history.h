// What somebody who watches a kernel's bonds sees, and the kernel does not tell.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <unordered_map>

#include "host/devices/linux/link_snapshot.h"

namespace oclacp::host {

// Of a port of a bond in mode 802.3ad, since it has been watched.
struct MemberEvents {
  // When it last entered or left the bundle, to collect and distribute frames; nothing when it was not seen to.
  std::optional<std::chrono::system_clock::time_point> last_change;
  // How often the partner's information ran out.
  std::uint64_t timeouts = 0;
};

using MemberEventsByPort = std::unordered_map<int, MemberEvents>;  // by the port's index

// Compares each look at the links with the one before. What happened between two looks and left no trace is not seen,
// so that a look is due at each message of the kernel. Used by one thread at a time.
class MemberHistory {
 public:
  // `now`: when the links were read. The first look tells nothing but what is there from the beginning.
  void see(const LinkSnapshot& links, std::chrono::system_clock::time_point now);

  // Of the ports of the last look.
  [[nodiscard]] const MemberEventsByPort& events() const { return events_; }

 private:
  struct State {
    bool is_in_bundle = false;
    bool has_partner = false;  // its information was there at the last look
  };

  void see_port(const Link& port, std::chrono::system_clock::time_point now);

  bool has_looked_ = false;
  std::unordered_map<int, State> states_;
  MemberEventsByPort events_;
};

}  // namespace oclacp::host
