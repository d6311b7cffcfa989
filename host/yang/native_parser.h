// Native data from its text.
#pragma once

#include <string>

#include "host/yang/libyang_ptr.h"

namespace oclacp::host {

struct ParsedNative {
  LYD_FORMAT format;
  TreePtr data;  // the first of the top nodes, among them empty containers that stand for nothing; may be null
};

// Reads valid data of the native models in JSON (RFC 7951) or XML; configuration alone, or state too. Throws Error.
ParsedNative parse_native(const ly_ctx* context, const std::string& text, bool takes_state);

}  // namespace oclacp::host
