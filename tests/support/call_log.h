// Call logs: what a walk did, as text that people read.
#pragma once

#include <string>
#include <vector>

#include "support/platform.h"

namespace support {

// The calls of a walk, one a line, indented by the handler that made them. The log of a handler that leaves without an
// end record goes on, one step too deep, until a handler around it ends or leaves the hierarchy.
//
// Two things are folded, and only when they are exactly as they should be; otherwise every call of them is shown:
// - A record that went to both sinks (asked for, logged, numbered, traced) is one line, "TRC name: text".
// - Comparisons of one tag with one expected tag after the other are one line, with '=' before the one that matched.
std::vector<std::string> call_log(const std::vector<Call>& calls);

// The added paths, one a line: the edit operation, path, value, module, list flag and last flag. Without a source node
// it is "read" for a native path, which is asked for, and "report" for an OpenConfig one; "entry" is a list entry that
// was found or created by its key.
std::vector<std::string> output_table(const std::vector<Addition>& additions);

}  // namespace support
