#include "host/files/file_attributes.h"

#include <sys/xattr.h>

#include <algorithm>
#include <cerrno>
#include <functional>
#include <string_view>
#include <vector>

#include "host/base/error.h"
#include "host/files/system_call.h"

namespace oclacp::host {
namespace {

constexpr std::string_view kAccessList = "system.posix_acl_access";

[[noreturn]] void fail(const std::string& file, const std::string& what) {
  throw system_error(errno, file, "cannot be replaced and stays as it is: " + what + ": ");
}

// What `read` writes to a place of a size, or, for no place, how much it would be; nothing when it fails.
bool read_whole(const std::function<ssize_t(char*, size_t)>& read, std::string& text) {
  do {
    const ssize_t size = read(nullptr, 0);
    if (size < 0) {
      return false;
    }
    text.resize(static_cast<size_t>(size));
    const ssize_t count = read(text.data(), text.size());
    if (count >= 0) {
      text.resize(static_cast<size_t>(count));
      return true;
    }
  } while (errno == ERANGE);  // it grew meanwhile
  return false;
}

// The names, each with a terminator, as the system lists them; none on a file system without attributes.
std::vector<std::string> attribute_names(const std::string& file) {
  std::string list;
  const auto read = [&file](char* place, size_t size) { return listxattr(file.c_str(), place, size); };
  if (!read_whole(read, list)) {
    if (errno == ENOTSUP) {
      return {};
    }
    fail(file, "its attributes are not told");
  }
  std::vector<std::string> names;
  for (size_t at = 0; at < list.size(); at += names.back().size() + 1) {
    names.emplace_back(list.c_str() + at);
  }
  return names;
}

void copy(const std::string& name, const std::string& from, int to) {
  std::string value;
  const bool is_copied =
      read_whole([&](char* place, size_t size) { return getxattr(from.c_str(), name.c_str(), place, size); }, value) &&
      retry_interrupted([&] { return fsetxattr(to, name.c_str(), value.data(), value.size(), 0); }) == 0;
  // The names of access control lists, of POSIX and of network file systems, begin so.
  const bool is_required = name.starts_with("system.");
  const bool is_not_ours = errno == EPERM || errno == EACCES || errno == ENOTSUP || errno == ENODATA;
  if (!is_copied && (is_required || !is_not_ours)) {
    fail(from, "its attribute " + name + " cannot be kept");
  }
}

}  // namespace

void copy_file_attributes(const std::string& from, int to) {
  const std::vector<std::string> names = attribute_names(from);
  const bool has_list = std::find(names.begin(), names.end(), kAccessList) != names.end();
  // The default list of the folder would let in users that the file does not.
  if (!has_list && retry_interrupted([&] { return fremovexattr(to, kAccessList.data()); }) != 0 && errno != ENODATA &&
      errno != ENOTSUP) {
    fail(from, "the access control list of its folder holds for the new content");
  }
  for (const std::string& name : names) {
    copy(name, from, to);
  }
}

}  // namespace oclacp::host
