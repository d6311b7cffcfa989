// Links and their statistics as the kernel describes them over rtnetlink.
//
// The formats are those of linux/if_link.h and linux/if_bonding.h. Every attribute is optional: which ones there are
// depends on the kernel's version and on the privileges of the process. An attribute of another length than the
// documented one is treated as absent.
#pragma once

#include <linux/netlink.h>

#include <cstdint>
#include <optional>
#include <string>

#include "host/devices/linux/mac_address.h"

namespace oclacp::host {

// Modes of a bond (IFLA_BOND_MODE). Only the one that LACP belongs to has a name here.
inline constexpr std::uint8_t kBondModeLacp = 4;

// Of a bond (IFLA_INFO_DATA of kind "bond").
struct BondAttributes {
  std::optional<std::uint8_t> mode;
  std::optional<std::uint8_t> lacp_rate;               // 0 slow, 1 fast
  std::optional<std::uint8_t> lacp_active;             // since kernel 5.16
  std::optional<std::uint16_t> actor_system_priority;  // CAP_NET_ADMIN only, as the next one
  std::optional<MacAddress> actor_system;              // zero: the bond's own address is used
};

// Of a port of a bond (IFLA_INFO_SLAVE_DATA of kind "bond").
struct BondPortAttributes {
  std::optional<std::uint8_t> actor_state;     // IEEE 802.1AX, actor state
  std::optional<std::uint16_t> partner_state;  // the same eight bits, in sixteen
};

struct Link {
  int index = 0;
  std::uint16_t hardware_type = 0;  // ARPHRD_...
  unsigned flags = 0;               // IFF_...
  std::string name;                 // never empty
  std::string kind;                 // of a virtual interface ("bond", "vlan", ...); empty for hardware
  int controller = 0;               // the index of the bond, bridge, ... that it is a port of; 0 for none
  int lower = 0;                    // the index of the interface that it is stacked on, as a VLAN is; 0 for none here
  std::optional<MacAddress> address;
  std::optional<BondAttributes> bond;
  std::optional<BondPortAttributes> bond_port;

  [[nodiscard]] bool is_lacp_bond() const { return bond && bond->mode == kBondModeLacp; }
};

// Of a port of a bond, since it became one.
struct LacpStatistics {
  int index = 0;  // of the port
  std::optional<std::uint64_t> received;
  std::optional<std::uint64_t> transmitted;
  std::optional<std::uint64_t> unknown_received;
  std::optional<std::uint64_t> illegal_received;
};

// Both read a message of which its whole length is there (take_message()), and return nothing for one of another
// type, one that is too short, a link without name, and statistics without those of LACP.
std::optional<Link> parse_link(const nlmsghdr& message);                       // RTM_NEWLINK
std::optional<LacpStatistics> parse_lacp_statistics(const nlmsghdr& message);  // RTM_NEWSTATS

}  // namespace oclacp::host
