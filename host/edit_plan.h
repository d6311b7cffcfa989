// What an edit would do to a device.
#pragma once

#include <string>

#include "host/export.h"
#include "host/yang/libyang.h"

namespace oclacp::host {

// Lives no longer than the translator that made it.
struct OCLACP_HOST_API EditPlan {
  TreePtr running;             // the configuration after the edit, for the device to keep
  TreePtr difference;          // what changes, as libyang tells it: each node with a yang:operation; null for nothing
  LYD_FORMAT format;           // that the difference is to be printed in
  size_t dropped_entries = 0;  // as in Translation

  [[nodiscard]] bool changes_something() const { return difference != nullptr; }
  // The path of the first native node that changes; there is one.
  [[nodiscard]] std::string first_change() const;
  [[nodiscard]] std::string print_difference() const;
};

// Compares two configurations, each with its first top node or null. Throws Refusal.
TreePtr find_difference(const ly_ctx* native, const lyd_node* before, const lyd_node* after);

}  // namespace oclacp::host
