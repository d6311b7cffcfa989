// Trace records as a tree of handlers.
#pragma once

#include <string>
#include <vector>

#include "host/base/export.h"

namespace oclacp::host {

// Draws the records of one walk, in their order: each handler on a line, indented under the one that called it, and
// what it recorded besides Start and End below it. A handler that leaves without an End record (it was skipped, or
// refused its arguments) ends where the next record shows that it did.
std::vector<std::string> OCLACP_HOST_API draw_trace(const std::vector<std::string>& records);

}  // namespace oclacp::host
