// Where the records of a module go.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace oclacp::host {

// Null for nowhere. Records are appended, also those of a request that is refused.
struct RecordSinks {
  std::ostream* debug_log = nullptr;
  std::vector<std::string>* trace = nullptr;

  [[nodiscard]] bool are_used() const { return debug_log != nullptr || trace != nullptr; }
};

}  // namespace oclacp::host
