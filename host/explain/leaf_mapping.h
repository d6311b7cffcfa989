// How the values of a leaf are mapped.
#pragma once

#include <libyang/libyang.h>

#include <optional>
#include <string>
#include <vector>

namespace oclacp::host {

// One value on its way.
struct Conversion {
  std::string from;
  std::optional<std::string> to;       // nothing: nothing is built from it
  std::optional<std::string> refusal;  // why the mapping refuses the value
};

// The way from a leaf to one of the other side.
struct LeafMapping {
  const lysc_node* from;
  const lysc_node* to;
  std::vector<Conversion> conversions;  // by the values of `from`
  bool is_complete;                     // these are all the values that there are
  bool needs_lacp = false;              // nothing is built from them unless LACP is configured on the interface
};

// The conversion of a mapping as lines for a person.
std::vector<std::string> describe(const LeafMapping& mapping);

}  // namespace oclacp::host
