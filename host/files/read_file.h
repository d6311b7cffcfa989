// Reading a whole file.
#pragma once

#include <string>

#include "host/base/export.h"

namespace oclacp::host {

// The content of a file; "-" is the standard input. Reads no more than `limit` bytes and one more, so that what is too
// long can be told. Throws Error, naming the file, when it cannot be read.
OCLACP_HOST_API std::string read_text_file(const std::string& file, std::size_t limit = std::string::npos);

// The content of a file that a device is kept in. One that is read without end, or whose writer is waited for, cannot
// be that: what is not a regular file, nor a link to one, is refused.
std::string read_regular_file(const std::string& file);

// The same for a file that another program may be writing while it is read: the content is that of one moment, the old
// or the new. A file that was just written is waited for, some hundredths of a second; one that is written without a
// pause for two seconds is refused.
std::string read_stable_file(const std::string& file);

}  // namespace oclacp::host
