// Where the records of a module go: the contract's two opaque types.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "host/base/contract.h"

// A debug-log stream: each record is written as one line at once.
struct yfw_log_stream {
  std::ostream* out;
};

// A trace buffer.
struct yfw_trace_buffer {
  std::vector<std::string> records;
};

namespace oclacp::host {

// The debug-log filter word: bit n lets the records of level n pass.
inline constexpr uintptr_t kLogNothing = 0;
inline constexpr uintptr_t kLogEverything = (1U << YFW_LOG_ERROR) | (1U << YFW_LOG_TRACE);

}  // namespace oclacp::host
