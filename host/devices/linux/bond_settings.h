// What of LACP can be set on a bond in mode 802.3ad.
#pragma once

#include <cstdint>
#include <optional>

#include "host/devices/linux/link_messages.h"

namespace oclacp::host {

// The kernel's own settings of a new bond are those of a default-constructed one.
struct BondSettings {
  static constexpr std::uint16_t kDefaultSystemPriority = 65535;

  bool is_active = true;
  bool is_fast = false;
  std::uint16_t system_priority = kDefaultSystemPriority;
  MacAddress system;  // zero: the bond's own address

  friend bool operator==(const BondSettings&, const BondSettings&) = default;
};

// Those of a bond as far as the kernel tells them; the kernel's own ones for the rest.
inline BondSettings settings_of(const BondAttributes& bond) {
  BondSettings settings;
  settings.is_active = bond.lacp_active.value_or(1) != 0;
  settings.is_fast = bond.lacp_rate.value_or(0) != 0;
  settings.system_priority = bond.actor_system_priority.value_or(BondSettings::kDefaultSystemPriority);
  settings.system = bond.actor_system.value_or(MacAddress());
  return settings;
}

}  // namespace oclacp::host
