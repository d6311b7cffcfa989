// A platform that does the least that a request needs: it compares, copies and counts, and keeps nothing.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace bench {

struct CountingPlatform {
  std::size_t calls = 0;
  std::size_t additions = 0;

  // The data store's items, and the next to be given out. An item is cut in place by the module, so it is copied.
  std::vector<std::string> store_items;
  std::size_t next_item = 0;
  std::string given_item;
};

// The platform that the contract's functions count for.
CountingPlatform& counting_platform();

}  // namespace bench
