// One writer at a time.
#pragma once

#include <chrono>
#include <string>

#include "host/files/file_descriptor.h"

namespace oclacp::host {

// How long a writer waits for the one before it.
inline constexpr std::chrono::seconds kLockWait(10);

// Holds a device directory as long as this lives, against everyone who does the same in this or another process. The
// lock is the system's (flock on the folder itself): it needs no file, and goes with a process that dies.
class DirectoryLock {
 public:
  // Waits for the lock. Throws Error when it is not to be had in time, or there is no such folder.
  explicit DirectoryLock(const std::string& directory, std::chrono::seconds longest_wait = kLockWait);

 private:
  FileDescriptor folder_;
};

}  // namespace oclacp::host
