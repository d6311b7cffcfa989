// Searching the items of the data store.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace oclacp::host {

// The items' texts one after the other, each with its terminator, and where each begins: a copy to be cut in place is
// one piece of memory, however many items there are.
struct FoundItems {
  std::string texts;
  std::vector<std::size_t> begins;
};

// The items whose whole text matches a POSIX extended regular expression; nothing when it is not one.
std::optional<FoundItems> search_items(const std::vector<std::string>& items, const std::string& pattern);

}  // namespace oclacp::host
