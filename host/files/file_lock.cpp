#include "host/files/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <map>
#include <mutex>
#include <sstream>
#include <thread>
#include <utility>

#include "host/base/error.h"
#include "host/files/system_call.h"

namespace oclacp::host {
namespace {

using FileId = std::pair<dev_t, ino_t>;

FileId id_of(int descriptor) {
  struct stat status {};
  return fstat(descriptor, &status) == 0 ? FileId(status.st_dev, status.st_ino) : FileId(0, 0);
}

// The owners of the locks that this process holds.
class Owners {
 public:
  void add(const FileId& file, const std::string& owner) {
    const std::lock_guard guard(mutex_);
    owners_[file] = owner;
  }
  void remove(const FileId& file) {
    const std::lock_guard guard(mutex_);
    owners_.erase(file);
  }
  // Empty for one that is not held, or by an owner without a name.
  std::string find(const FileId& file) {
    const std::lock_guard guard(mutex_);
    const auto found = owners_.find(file);
    return found == owners_.end() ? "" : found->second;
  }

 private:
  std::mutex mutex_;
  std::map<FileId, std::string> owners_;
};

Owners& owners() {
  static Owners all;
  return all;
}

// The process that holds a lock of flock(2), by proc(5), /proc/locks; 0 when the system does not tell.
pid_t find_holder(const FileId& file) {
  std::ostringstream wanted;
  const auto two_digits = [&wanted](unsigned number) {
    wanted << (number < 16 ? "0" : "") << std::hex << number << std::dec << ':';
  };
  two_digits(major(file.first));
  two_digits(minor(file.first));
  wanted << file.second;
  std::ifstream locks("/proc/locks");
  for (std::string line; std::getline(locks, line);) {
    // "1: FLOCK  ADVISORY  WRITE 4711 fe:01:1234 0 EOF"; those that wait have "->" after the number.
    std::istringstream fields(line);
    std::string number;
    std::string kind;
    std::string mode;
    std::string access;
    pid_t process = 0;
    std::string place;
    if (fields >> number >> kind >> mode >> access >> process >> place && kind == "FLOCK" && place == wanted.str()) {
      return process;
    }
  }
  return 0;
}

// "another edit", with what is known of the one that holds the lock.
std::string describe_holder(const FileId& file) {
  if (std::string owner = owners().find(file); !owner.empty()) {
    return owner;
  }
  const pid_t process = find_holder(file);
  if (process <= 0) {
    return "another edit";
  }
  std::string program;
  std::getline(std::ifstream("/proc/" + std::to_string(process) + "/comm"), program);
  return "another edit, of process " + std::to_string(process) + (program.empty() ? "" : " (" + program + "),");
}

std::string seconds_of(std::chrono::milliseconds time) {
  std::ostringstream text;
  text << static_cast<double>(time.count()) / 1000;
  return text.str() + (time == std::chrono::seconds(1) ? " second" : " seconds");
}

// flock() itself waits without end, so the lock is asked for again and again.
bool take_within(int descriptor, std::chrono::milliseconds time) {
  constexpr std::chrono::milliseconds kPause(5);
  const auto deadline = std::chrono::steady_clock::now() + time;
  while (retry_interrupted([&] { return flock(descriptor, LOCK_EX | LOCK_NB); }) != 0) {
    if (errno != EWOULDBLOCK || std::chrono::steady_clock::now() >= deadline) {
      return false;
    }
    std::this_thread::sleep_for(kPause);
  }
  return true;
}

}  // namespace

FileLock::FileLock(const std::string& path, const LockOptions& options)
    : file_(retry_interrupted([&] { return open(path.c_str(), O_RDONLY | O_CLOEXEC); })) {
  if (!file_.is_open()) {
    const bool is_missing = errno == ENOENT || errno == ENOTDIR;
    throw is_missing ? file_error(ErrorKind::kOperationFailed, path, "no such device directory")
                     : system_error(errno, path, "cannot be opened: ");
  }
  if (take_within(file_.number(), options.longest_wait)) {
    owners().add(id_of(file_.number()), options.owner);
    return;
  }
  if (errno != EWOULDBLOCK) {
    throw system_error(errno, path, "cannot be locked: ");
  }
  throw file_error(ErrorKind::kLockDenied, path,
                   "the device is busy: " + describe_holder(id_of(file_.number())) + " has held it for " +
                       seconds_of(options.longest_wait));
}

FileLock::~FileLock() {
  owners().remove(id_of(file_.number()));
}

}  // namespace oclacp::host
