// Reading a whole file.
#pragma once

#include <string>

#include "host/export.h"

namespace oclacp::host {

// The content of a file; "-" is the standard input. Reads no more than `limit` bytes and one more, so that what is too
// long can be told. Throws Refusal, naming the file, when it cannot be read.
OCLACP_HOST_API std::string read_text_file(const std::string& file, std::size_t limit = std::string::npos);

}  // namespace oclacp::host
