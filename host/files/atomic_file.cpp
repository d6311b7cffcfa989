#include "host/files/atomic_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "host/base/error.h"
#include "host/files/file_attributes.h"
#include "host/files/file_descriptor.h"
#include "host/files/system_call.h"

namespace oclacp::host {
namespace {

// Takes what a crash left at the place of the new content. It is not written to: it may be the file itself under a
// second name. Throws when something else stands there than such a file.
std::string cleared_place(const std::string& file) {
  std::string name = file + ".new";
  struct stat left {};
  if (lstat(name.c_str(), &left) == 0) {
    if (!S_ISREG(left.st_mode)) {
      throw file_error(
          ErrorKind::kOperationFailed, name,
          "is not a regular file, and in the way of the new content of " + file + ", which stays as it is");
    }
    // A failure shows when the name is taken.
    static_cast<void>(retry_interrupted([&] { return unlink(name.c_str()); }));
  }
  return name;
}

// The new content beside the file; goes when it does not become the file.
class Aside {
 public:
  explicit Aside(const std::string& file)
      : file_(file), name_(cleared_place(file)), descriptor_(retry_interrupted([this] {
          return open(name_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
        })) {
    check(descriptor_.is_open());
  }
  ~Aside() {
    if (descriptor_.is_open() && !is_in_place_) {
      static_cast<void>(retry_interrupted([this] { return unlink(name_.c_str()); }));
    }
  }
  Aside(const Aside&) = delete;
  Aside& operator=(const Aside&) = delete;
  Aside(Aside&&) = delete;
  Aside& operator=(Aside&&) = delete;

  void take_mode_owner_and_attributes() {
    struct stat old {};
    check(retry_interrupted([&] { return stat(file_.c_str(), &old); }) == 0);
    // Only root gives files away; a file of another user's becomes the writer's own. To keep the group it is enough to
    // be of it, so that the one is not lost with the other.
    constexpr auto kAsItIs = static_cast<uid_t>(-1);
    check(change_owner(kAsItIs, old.st_gid) || errno == EPERM);
    check(change_owner(old.st_uid, kAsItIs) || errno == EPERM);
    // With an access control list the group bits are its mask, which fchmod() would make those of the group if the list
    // were not there before.
    copy_file_attributes(file_, descriptor_.number());
    check(retry_interrupted([&] { return fchmod(descriptor_.number(), old.st_mode & ALLPERMS); }) == 0);
  }

  void write(std::string_view content) {
    while (!content.empty()) {
      const ssize_t count =
          retry_interrupted([&] { return ::write(descriptor_.number(), content.data(), content.size()); });
      check(count >= 0);
      if (count == 0) {
        throw file_error(ErrorKind::kOperationFailed, file_,
                         "cannot be replaced and stays as it is: the system takes no more of the new content");
      }
      content.remove_prefix(static_cast<size_t>(count));
    }
    check(retry_interrupted([this] { return fsync(descriptor_.number()); }) == 0);
  }

  std::optional<FileVersion> put_in_place() {
    check(retry_interrupted([this] { return std::rename(name_.c_str(), file_.c_str()); }) == 0);
    is_in_place_ = true;
    return file_version(descriptor_.number());
  }

 private:
  [[nodiscard]] bool change_owner(uid_t user, gid_t group) const {
    return retry_interrupted([&] { return fchown(descriptor_.number(), user, group); }) == 0;
  }

  void check(bool went_well) const {
    if (!went_well) {
      throw system_error(errno, file_, "cannot be replaced and stays as it is: ");
    }
  }

  const std::string& file_;
  std::string name_;
  FileDescriptor descriptor_;
  bool is_in_place_ = false;
};

FileDescriptor open_folder_of(const std::string& file) {
  const std::filesystem::path folder = std::filesystem::path(file).parent_path();
  const char* name = folder.empty() ? "." : folder.c_str();
  return FileDescriptor(retry_interrupted([&] { return open(name, O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
}

// A name is on the disk when its folder is.
void make_names_durable(const FileDescriptor& folder, const std::string& file) {
  if (retry_interrupted([&] { return fsync(folder.number()); }) != 0) {
    throw system_error(errno, file, "is replaced, but may be the old one again if the power fails: ");
  }
}

}  // namespace

std::optional<FileVersion> replace_file(const std::string& file, std::string_view content) {
  // From when the file is replaced on nothing may fail for want of memory or descriptors.
  const FileDescriptor folder = open_folder_of(file);
  if (!folder.is_open()) {
    throw system_error(errno, file, "cannot be replaced and stays as it is: ");
  }
  std::optional<FileVersion> version;
  {
    Aside aside(file);
    aside.take_mode_owner_and_attributes();
    aside.write(content);
    version = aside.put_in_place();
  }
  make_names_durable(folder, file);
  return version;
}

}  // namespace oclacp::host
