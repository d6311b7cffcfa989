// What an edit would do to a device.
#pragma once

#include <string>
#include <vector>

#include "host/yang/libyang_ptr.h"

namespace oclacp::host {

// Lives no longer than the translator that made it.
struct EditPlan {
  TreePtr running;           // the configuration after the edit, for the device to keep
  std::string first_change;  // the path of the first native node that changes; empty for none
  // Of a dry run only: the native edit, and what it changes as libyang tells a difference.
  std::string native_edit;
  std::string difference;
  size_t dropped_entries = 0;  // as in Translation
  // What its user may not expect of the edit, a sentence each: list entries that will not be there, configuration that
  // cannot be read afterwards. A strict edit is refused for them.
  std::vector<std::string> warnings;

  [[nodiscard]] bool changes_something() const { return !first_change.empty(); }
};

// Both compare two configurations, each with its first top node or null, in a time linear in their nodes. They throw
// Error.

// The path of the first node that differs; empty when none does.
std::string find_first_change(const ly_ctx* native, const lyd_node* before, const lyd_node* after);

// All that differs, as libyang tells it: each node with a yang:operation; null for nothing.
TreePtr find_difference(const ly_ctx* native, const lyd_node* before, const lyd_node* after);

}  // namespace oclacp::host
