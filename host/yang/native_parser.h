// Native data from its text.
#pragma once

#include <string>

#include "host/yang/libyang_ptr.h"

namespace oclacp::host {

// The format of native data, JSON (RFC 7951) or XML. Throws Error when it is not one whole document (document_check.h).
LYD_FORMAT inspect_native(const ly_ctx* context, const std::string& text);

// Reads valid data of the native models, which was inspected; configuration alone, or state too. The first of the top
// nodes, among them empty containers that stand for nothing; may be null. Throws Error.
TreePtr parse_native(const ly_ctx* context, const std::string& text, LYD_FORMAT format, bool takes_state);

}  // namespace oclacp::host
