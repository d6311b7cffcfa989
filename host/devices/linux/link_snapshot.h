// One read of the links of a network namespace.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "host/devices/linux/bonding_text.h"
#include "host/devices/linux/link_messages.h"
#include "host/devices/linux/netlink_socket.h"

namespace oclacp::host {

struct LinkSnapshot {
  std::vector<Link> links;                             // in the kernel's order
  std::unordered_map<int, LacpStatistics> statistics;  // of ports of bonds, by index
  std::unordered_map<int, BondingText> texts;          // of bonds in mode 802.3ad, by index
  // Whether the kernel shows its texts about bonds to people; without, a text says nothing.
  bool has_texts = true;

  // Null when there is none.
  [[nodiscard]] const Link* find(std::string_view name) const;
  [[nodiscard]] const Link* find(int index) const;
};

// Where the kernel shows them for the network namespace of the calling thread.
inline constexpr const char* kBondingTexts = "/proc/thread-self/net/bonding";

// Reads all links with one dump. When a bond in mode 802.3ad is among them, the statistics of all links with another
// one and a text for each such bond. When links come or go meanwhile, the read begins anew, up to ten times. Throws
// Error. `bonding_texts`: the folder that holds the texts.
LinkSnapshot read_links(NetlinkSocket& socket, const std::string& bonding_texts = kBondingTexts);

// The links alone, as they are at one moment. Throws Error.
std::vector<Link> dump_links(NetlinkSocket& socket);

}  // namespace oclacp::host
