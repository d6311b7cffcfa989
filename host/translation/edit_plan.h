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
  // Of a dry run only: the native edit, and what it changes as libyang writes a difference.
  std::string native_edit;
  std::string difference;
  size_t dropped_entries = 0;  // as in Translation
  // What its user may not expect of the edit, a sentence each: list entries that will not be there, configuration that
  // cannot be read afterwards. A strict edit is refused for them.
  std::vector<std::string> warnings;

  [[nodiscard]] bool changes_something() const { return !first_change.empty(); }
};

}  // namespace oclacp::host
