// What the data store answers to a search.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace oclacp::host {

// The items' texts one behind the other, each with its terminator, and where each begins: a copy to be cut in place is
// one piece of memory, however many items there are.
struct FoundItems {
  std::string texts;
  std::vector<std::size_t> begins;
};

}  // namespace oclacp::host
