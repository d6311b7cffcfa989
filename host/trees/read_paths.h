// What a read asks for, natively.
#pragma once

#include <string>
#include <vector>

#include "host/trees/output_log.h"

namespace oclacp::host {

// The distinct paths of a read's log, in the order in which they were first asked for: module prefixes where they
// change, keys where they are known, and " = value" after a leaf that is to have a value. An entry whose keys are not
// known means all entries; an entry is listed itself only when nothing in it is.
std::vector<std::string> list_read_paths(const OutputLog& log);

}  // namespace oclacp::host
