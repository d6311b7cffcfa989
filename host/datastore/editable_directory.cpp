#include "host/datastore/editable_directory.h"

#include <filesystem>

#include "host/datastore/durable_file.h"
#include "host/yang/libyang.h"

namespace oclacp::host {

EditableDirectory::EditableDirectory(const ly_ctx* native, const std::string& directory)
    : native_(native), directory_(directory), lock_(directory), device_(native, directory) {}

void EditableDirectory::commit(const lyd_node* running) {
  // A link is followed, so that it stays one.
  const std::string file = std::filesystem::canonical(directory_ + "/running.json");
  replace_file(file, print_tree(native_, running, LYD_JSON));
}

}  // namespace oclacp::host
