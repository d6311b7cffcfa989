// Carrying out changes of bonds.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "host/devices/linux/bond_plan.h"
#include "host/devices/linux/ip_configuration.h"
#include "host/devices/linux/netlink_socket.h"

namespace oclacp::host {

// How long the members of a bond that was taken down are waited for, and the addresses and routes that come back with
// them.
inline constexpr std::chrono::seconds kMemberWait(15);

// Used by one thread at a time.
class BondWriter {
 public:
  explicit BondWriter(NetlinkSocket& socket, std::chrono::milliseconds member_wait = kMemberWait)
      : socket_(socket), member_wait_(member_wait) {}

  // Carries out the changes in their order. Before one that interrupts, the addresses, routes and neighbours of the
  // bond and of what is stacked on it are read; the bond goes down and comes up again, they are restored, and the
  // members that carried frames are waited for.
  //
  // Returns what a person has to know although all changes are made: what did not come back in time. When one fails,
  // what was changed is restored in reverse order, and Error is thrown; it tells what could not be restored, too.
  std::vector<std::string> apply(const std::vector<BondChange>& changes);

 private:
  // Nothing when it went well; otherwise why it did not.
  std::optional<std::string> carry_out(const BondChange& change, std::vector<std::string>& warnings);
  std::optional<std::string> interrupt(const BondChange& change, std::vector<std::string>& warnings);
  std::optional<std::string> set(const BondChange& change);
  std::optional<std::string> set_up(int index, bool is_up);
  std::string roll_back(const std::vector<BondChange>& changes, std::size_t failed);
  bool is_as_before(const BondChange& change);
  void wait_for(const BondChange& change, const std::vector<int>& members, IpConfiguration& kept,
                std::vector<std::string>& warnings);

  NetlinkSocket& socket_;
  std::chrono::milliseconds member_wait_;
};

}  // namespace oclacp::host
