// One writer at a time.
#pragma once

#include <chrono>
#include <string>

#include "host/base/export.h"
#include "host/files/file_descriptor.h"

namespace oclacp::host {

struct LockOptions {
  // How long the one before is waited for.
  std::chrono::milliseconds longest_wait = std::chrono::seconds(10);
  // Who takes the lock, such as a session and its user; told to those of the same process that want it meanwhile. Those
  // of other processes are told the process and its program.
  std::string owner;
};

// Holds a folder or file as long as this lives, against everyone who does the same in this or another process. The lock
// is the system's (flock(2) on the folder or file itself): it needs no further file, and goes with a process that dies.
// Made and destroyed on any thread.
class OCLACP_HOST_API FileLock {
 public:
  // Waits for the lock. Throws Error when it is not to be had in time, naming the holder as far as the system tells it,
  // or when there is nothing called `path`.
  explicit FileLock(const std::string& path, const LockOptions& options = {});
  ~FileLock();
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;
  FileLock(FileLock&&) = delete;
  FileLock& operator=(FileLock&&) = delete;

 private:
  FileDescriptor file_;
};

}  // namespace oclacp::host
