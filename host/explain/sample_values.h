// Values to run a mapping with.
#pragma once

#include <libyang/libyang.h>

#include <string>
#include <vector>

namespace oclacp::host {

// The interface that runs of a mapping are about.
inline constexpr const char* kSampleInterface = "Bundle-Ether1";

struct SampleValues {
  std::vector<std::string> values;
  bool is_complete = true;  // these are all the values that the leaf has
};

// All values of an enumeration, a boolean or an 8-bit number. Of any other type one that it takes, and of a union what
// its finite members take besides; of a number of milliseconds, the two LACP periods of IEEE 802.1AX. Empty when none
// is known that the leaf takes.
SampleValues sample_values(const lysc_node* leaf);

}  // namespace oclacp::host
