// What the kernel prints of a bond below /proc/net/bonding.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/devices/linux/mac_address.h"

namespace oclacp::host {

// One end of a port's link: what its LACPDUs say.
struct LacpEnd {
  std::optional<MacAddress> system;
  std::optional<std::uint16_t> key;
  std::optional<std::uint16_t> port_number;
};

struct BondingText {
  struct Port {
    std::string name;
    LacpEnd actor;
    LacpEnd partner;
  };

  // The system identifier in use, all zero while the bond has had no port; CAP_NET_ADMIN only, as the ends.
  std::optional<std::uint16_t> system_priority;
  std::optional<MacAddress> system;
  std::vector<Port> ports;  // in the kernel's order
};

// The text is made for people: lines may be missing, new, or in another order within their block. What is not
// understood is skipped, and a value that is not a number or address of the right size is treated as absent.
BondingText parse_bonding_text(std::string_view text);

}  // namespace oclacp::host
