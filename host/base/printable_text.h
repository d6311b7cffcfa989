// Texts of requests, files and command lines as people see them.
#pragma once

#include <string>
#include <string_view>

#include "host/base/export.h"

namespace oclacp::host {

// A text on one line of a terminal that does nothing but show it: with escapes ("\n", "\x1b", "\u202e") for control
// characters, line and paragraph separators and the marks that turn the direction of a text (Unicode, UAX #9), and for
// bytes that are no UTF-8. Everything else, backslashes too, stays as it is.
OCLACP_HOST_API std::string printable(std::string_view text);

// A value that a sentence quotes: no more than its first 200 characters, and then how many it has.
OCLACP_HOST_API std::string shortened(std::string_view value);

}  // namespace oclacp::host
