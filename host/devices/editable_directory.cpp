#include "host/devices/editable_directory.h"

#include <filesystem>
#include <system_error>

#include "host/base/error.h"
#include "host/files/atomic_file.h"
#include "host/yang/libyang_ptr.h"

namespace oclacp::host {
namespace {

namespace fs = std::filesystem;

// The file that keeps the running configuration. A link is followed, so that it stays one.
std::string find_file(const std::string& directory) {
  std::string named = directory + "/running.json";
  std::error_code trouble;
  if (fs::is_symlink(named, trouble)) {
    const fs::path real = fs::canonical(named, trouble);
    if (!trouble) {
      return real;
    }
  }
  return named;  // reading it tells what is wrong
}

}  // namespace

EditableDirectory::EditableDirectory(const ly_ctx* native, const std::string& directory)
    : native_(native),
      directory_(directory),
      file_(find_file(directory)),
      lock_(fs::path(file_).parent_path()),
      device_(native, directory) {}

void EditableDirectory::commit(const lyd_node* running) {
  if (find_file(directory_) != file_) {
    throw Error(directory_ + "/running.json: became a link to another file meanwhile, and stays as it is");
  }
  replace_file(file_, print_tree(native_, running, LYD_JSON));
}

}  // namespace oclacp::host
