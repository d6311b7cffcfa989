#include "server/datastores/state_folder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "host/base/error.h"
#include "host/files/file_descriptor.h"
#include "host/files/read_file.h"
#include "host/files/system_call.h"

namespace oclacp::server {
namespace {

namespace fs = std::filesystem;
using host::retry_interrupted;

constexpr std::string_view kAside = ".new";

const std::string& make_folder(const std::string& path) {
  if (retry_interrupted([&] { return mkdir(path.c_str(), S_IRWXU); }) != 0 && errno != EEXIST) {
    throw host::system_error(errno, path, "cannot be made: ");
  }
  return path;
}

void write_all(int descriptor, std::string_view content, const std::string& file) {
  while (!content.empty()) {
    const ssize_t count = retry_interrupted([&] { return ::write(descriptor, content.data(), content.size()); });
    if (count <= 0) {
      throw host::system_error(count < 0 ? errno : EIO, file, "cannot be written: ");
    }
    content.remove_prefix(static_cast<size_t>(count));
  }
  if (retry_interrupted([&] { return fsync(descriptor); }) != 0) {
    throw host::system_error(errno, file, "cannot be written: ");
  }
}

}  // namespace

StateFolder::StateFolder(const std::string& path)
    : path_(path), lock_(make_folder(path), {.longest_wait = std::chrono::milliseconds(0), .owner = ""}) {}

std::optional<std::string> StateFolder::read(const std::string& name) const {
  struct stat status {};
  if (stat(file(name).c_str(), &status) != 0 && errno == ENOENT) {
    return std::nullopt;
  }
  return host::read_regular_file(file(name));
}

std::vector<std::string> StateFolder::names() const {
  std::error_code trouble;
  std::vector<std::string> names;
  for (fs::directory_iterator entry(path_, trouble); !trouble && entry != fs::directory_iterator();
       entry.increment(trouble)) {
    if (std::string name = entry->path().filename(); !name.ends_with(kAside)) {
      names.push_back(std::move(name));
    }
  }
  if (trouble) {
    throw host::system_error(trouble.value(), path_);
  }
  return names;
}

void StateFolder::write(const std::string& name, const std::string& content) {
  const std::string aside = file(name) + std::string(kAside);
  {
    const host::FileDescriptor descriptor(retry_interrupted(
        [&] { return open(aside.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR); }));
    if (!descriptor.is_open()) {
      throw host::system_error(errno, aside, "cannot be written: ");
    }
    write_all(descriptor.number(), content, aside);
  }
  if (retry_interrupted([&] { return std::rename(aside.c_str(), file(name).c_str()); }) != 0) {
    throw host::system_error(errno, file(name), "cannot be replaced: ");
  }
  make_names_durable();
}

void StateFolder::rename(const std::string& from, const std::string& to) {
  if (retry_interrupted([&] { return std::rename(file(from).c_str(), file(to).c_str()); }) != 0) {
    throw host::system_error(errno, file(from), "cannot be renamed: ");
  }
  make_names_durable();
}

void StateFolder::remove(const std::string& name) {
  if (retry_interrupted([&] { return unlink(file(name).c_str()); }) != 0) {
    if (errno == ENOENT) {
      return;
    }
    throw host::system_error(errno, file(name), "cannot be removed: ");
  }
  make_names_durable();
}

// A name is on the disk when its folder is.
void StateFolder::make_names_durable() const {
  const host::FileDescriptor folder(
      retry_interrupted([&] { return open(path_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
  if (!folder.is_open() || retry_interrupted([&] { return fsync(folder.number()); }) != 0) {
    throw host::system_error(errno, path_, "may be the old one again if the power fails: ");
  }
}

}  // namespace oclacp::server
