#include "host/files/read_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <memory>
#include <thread>

#include "host/base/error.h"
#include "host/files/system_call.h"

namespace oclacp::host {
namespace {

[[noreturn]] void refuse(const std::string& file) {
  throw system_error(errno, file);
}

using std::chrono::milliseconds;
using std::chrono::nanoseconds;
using std::chrono::steady_clock;
using std::chrono::system_clock;

// A file system tells the time of a write by the kernel's tick: two writes within one cannot be told apart.
constexpr milliseconds kTick(20);
constexpr milliseconds kReadTimeout(2000);

struct CloseFile {
  void operator()(FILE* stream) const {
    if (stream != stdin) {
      static_cast<void>(std::fclose(stream));
    }
  }
};
using FilePtr = std::unique_ptr<FILE, CloseFile>;

FilePtr open_file(const std::string& file) {
  if (file == "-") {
    return FilePtr(stdin);
  }
  const int descriptor = retry_interrupted([&] { return open(file.c_str(), O_RDONLY | O_CLOEXEC); });
  FilePtr stream(descriptor < 0 ? nullptr : fdopen(descriptor, "rb"));
  if (stream == nullptr) {
    refuse(file);
  }
  return stream;
}

// Opening a pipe or a terminal without waiting for its other end, to find out that it is one.
FilePtr open_regular_file(const std::string& file) {
  const int descriptor = retry_interrupted([&] { return open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC); });
  if (descriptor < 0) {
    refuse(file);
  }
  struct stat status {};
  FilePtr stream(fdopen(descriptor, "rb"));
  if (stream == nullptr || fstat(descriptor, &status) != 0) {
    refuse(file);
  }
  if (!S_ISREG(status.st_mode)) {
    throw file_error(ErrorKind::kOperationFailed, file, "is not a regular file");
  }
  return stream;
}

// `expected`: how much there may be.
std::string read_rest(FILE* stream, const std::string& file, std::size_t limit, std::size_t expected = 0) {
  std::string text;
  text.reserve(expected);
  std::array<char, 1 << 16> buffer{};
  while (text.size() <= limit) {
    const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), stream);
    text.append(buffer.data(), count);
    if (std::ferror(stream) != 0) {
      if (errno != EINTR) {
        refuse(file);
      }
      std::clearerr(stream);
    } else if (count == 0) {
      break;
    }
  }
  return text;
}

// What changes when a file is written.
struct FileState {
  system_clock::time_point written;
  off_t size;

  bool operator==(const FileState&) const = default;
};

FileState state_of(FILE* stream, const std::string& file) {
  struct stat status {};
  if (fstat(fileno(stream), &status) != 0) {
    refuse(file);
  }
  const nanoseconds since_epoch = std::chrono::seconds(status.st_mtim.tv_sec) + nanoseconds(status.st_mtim.tv_nsec);
  return {system_clock::time_point(std::chrono::duration_cast<system_clock::duration>(since_epoch)), status.st_size};
}

}  // namespace

std::string read_text_file(const std::string& file, std::size_t limit) {
  return read_rest(open_file(file).get(), file, limit);
}

std::string read_regular_file(const std::string& file) {
  return read_rest(open_regular_file(file).get(), file, std::string::npos);
}

std::string read_stable_file(const std::string& file) {
  // Whoever puts a new file in its place leaves this one as it is.
  const FilePtr stream = open_regular_file(file);
  const auto deadline = steady_clock::now() + kReadTimeout;
  bool was_empty = false;
  while (steady_clock::now() < deadline) {
    const FileState before = state_of(stream.get(), file);
    const auto age = system_clock::now() - before.written;
    if (age >= system_clock::duration::zero() && age < kTick) {
      std::this_thread::sleep_for(kTick - age);
      continue;
    }
    std::rewind(stream.get());
    std::string text = read_rest(stream.get(), file, std::string::npos, static_cast<size_t>(before.size));
    const bool is_settled = state_of(stream.get(), file) == before && text.size() == static_cast<size_t>(before.size);
    // A file that is about to be written anew may be empty for a moment before its time tells.
    if (is_settled && (!text.empty() || was_empty)) {
      return text;
    }
    was_empty = text.empty();
    std::this_thread::sleep_for(kTick);
  }
  throw file_error(ErrorKind::kInUse, file, "still being written after 2 s; not read");
}

}  // namespace oclacp::host
