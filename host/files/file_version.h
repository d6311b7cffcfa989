// Telling whether a file is still the one that was read.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <optional>
#include <string>

namespace oclacp::host {

// What changes when a file is written or another takes its name.
struct FileVersion {
  dev_t device;
  ino_t inode;
  off_t size;
  int64_t written;  // both in nanoseconds since the epoch
  int64_t changed;
  // Whether that was some time ago when this was told. Else the file may be written once more and look the same: a file
  // system tells the time by the kernel's tick.
  bool is_settled;

  // Whether both look the same.
  [[nodiscard]] bool looks_like(const FileVersion& other) const;
  // Whether nobody has touched the file from when `earlier` was told to when this was.
  [[nodiscard]] bool is_unchanged_since(const FileVersion& earlier) const {
    return earlier.is_settled && looks_like(earlier);
  }
};

// That of an open file; nothing when the system does not tell.
std::optional<FileVersion> file_version(int descriptor);

// That of the file that a path leads to; nothing when it leads to none.
std::optional<FileVersion> file_version(const std::string& path);

}  // namespace oclacp::host
