#include "host/files/directory_lock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <cstring>
#include <thread>

#include "host/base/error.h"

namespace oclacp::host {

DirectoryLock::DirectoryLock(const std::string& directory, std::chrono::seconds longest_wait)
    : folder_(open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  if (!folder_.is_open()) {
    const bool is_missing = errno == ENOENT || errno == ENOTDIR;
    throw Error(directory + (is_missing ? ": no such device directory"
                                        : std::string(": cannot be opened: ") + std::strerror(errno)));
  }
  // flock() itself waits without end, so the lock is asked for again and again.
  constexpr auto kPause = std::chrono::milliseconds(5);
  const auto deadline = std::chrono::steady_clock::now() + longest_wait;
  while (flock(folder_.number(), LOCK_EX | LOCK_NB) != 0) {
    if (errno != EWOULDBLOCK && errno != EINTR) {
      throw Error(directory + ": cannot be locked: " + std::strerror(errno));
    }
    if (std::chrono::steady_clock::now() >= deadline) {
      throw Error(directory + ": the device is busy: another edit has held it for " +
                  std::to_string(longest_wait.count()) + " seconds");
    }
    std::this_thread::sleep_for(kPause);
  }
}

}  // namespace oclacp::host
