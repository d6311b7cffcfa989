// What a file carries beside its content and mode.
#pragma once

#include <string>

namespace oclacp::host {

// Gives an open file that was just made the extended attributes of the file called `from` (xattr(7)), among them its
// access control list. One that the new file has from its folder goes. Where the system does not let the caller set an
// attribute, as with those of other security modules, or the file system has no such, the attribute is left out; but
// without its access control list, or when there is no room, nothing is done. Throws Error, naming `from`.
void copy_file_attributes(const std::string& from, int to);

}  // namespace oclacp::host
