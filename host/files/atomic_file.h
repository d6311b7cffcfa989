// Files that outlive a crash.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/files/file_version.h"

namespace oclacp::host {

// Gives an existing file a new content, such that whoever reads it finds the old or the new one whole, after a crash of
// the program or the machine too: the content is written aside, beside the file, and brought to the disk before it
// takes the file's name. The mode stays, and so do the access control list and the other extended attributes
// (file_attributes.h); the group stays when the caller is of it, the owner when the caller is the owner or root.
// Another name of the same file, a hard link, keeps the old content, and is no longer one. One caller at a time; a file
// that was left aside by a crash goes.
//
// Returns what tells the new file from any later one. Throws Error, naming the file. The file is then as it was, unless
// the sentence says otherwise.
std::optional<FileVersion> replace_file(const std::string& file, std::string_view content);

}  // namespace oclacp::host
