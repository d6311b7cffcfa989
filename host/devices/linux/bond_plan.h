// What an edit of the native configuration means for the bonds of a network namespace.
#pragma once

#include <string>
#include <vector>

#include "host/devices/linux/bond_settings.h"
#include "host/devices/linux/link_snapshot.h"
#include "host/yang/libyang_ptr.h"

namespace oclacp::host {

// One bond that changes.
struct BondChange {
  int index = 0;
  std::string name;
  bool is_up = false;
  BondSettings before;
  BondSettings after;

  // Whether the kernel takes the change only from a bond that is down, and this one is up.
  [[nodiscard]] bool interrupts() const {
    return is_up && (before.is_active != after.is_active || before.is_fast != after.is_fast);
  }
};

// The changes that make `running`, a valid configuration of the native models, of what the links are, in the
// configuration's order. A leaf that is gone goes back to the kernel's own setting.
//
// Throws Error, naming the native node, for what a bond cannot be or do: an entry of something else than a bond in mode
// 802.3ad that is served, an entry or its LACP that is gone, a setting that bonds do not have, a value that the kernel
// does not take, and a change that interrupts unless `may_interrupt`.
std::vector<BondChange> plan_changes(const LinkSnapshot& links, const lyd_node* running, bool may_interrupt);

}  // namespace oclacp::host
