// Looking at a device again and again.
#pragma once

#include <functional>

#include "host/translation/translator.h"

namespace oclacp::cli {

// Prints the table of what `read` returns every `seconds`, with what counters gained per second, until the process is
// interrupted (SIGINT) or told to end (SIGTERM). A terminal is cleared in front of each table; elsewhere a blank line
// stands between two. What cannot be read at one time is reported, and tried again at the next. Throws host::Error when
// the first time fails.
void watch(const host::Translator& translator, double seconds, const std::function<host::Answer()>& read);

}  // namespace oclacp::cli
