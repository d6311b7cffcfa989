#include "host/files/file_version.h"

#include <sys/stat.h>
#include <sys/time.h>

#include <chrono>

#include "host/files/system_call.h"

namespace oclacp::host {
namespace {

// Longer than any kernel's tick.
constexpr int64_t kTick = 20'000'000;

int64_t nanoseconds_of(const timespec& time) {
  return int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

FileVersion version_of(const struct stat& status) {
  const int64_t now =
      std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::system_clock::now().time_since_epoch()).count();
  const int64_t changed = nanoseconds_of(status.st_ctim);
  return {status.st_dev, status.st_ino,         status.st_size, nanoseconds_of(status.st_mtim),
          changed,       now - changed >= kTick};
}

}  // namespace

bool FileVersion::looks_like(const FileVersion& other) const {
  return device == other.device && inode == other.inode && size == other.size && written == other.written &&
         changed == other.changed;
}

std::optional<FileVersion> file_version(int descriptor) {
  struct stat status {};
  return fstat(descriptor, &status) == 0 ? std::optional(version_of(status)) : std::nullopt;
}

std::optional<FileVersion> file_version(const std::string& path) {
  struct stat status {};
  return retry_interrupted([&] { return stat(path.c_str(), &status); }) == 0 ? std::optional(version_of(status))
                                                                             : std::nullopt;
}

}  // namespace oclacp::host
