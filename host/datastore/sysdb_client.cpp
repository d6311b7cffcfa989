// The data-store client, and the probe for its library.
#include <fcntl.h>
#include <regex.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/contract.h"
#include "host/datastore/installed_device.h"
#include "host/status.h"

using oclacp::host::InstalledDevice;
using oclacp::host::kBadQuery;
using oclacp::host::kNotFound;

// A connection to the active interface configuration; or, without a device, the one to the interface manager's global
// data, which can be opened and closed and holds nothing.
struct sysdb_connection {
  InstalledDevice* device;
};

struct sysdb_result_list {
  std::vector<std::string> items;
  size_t next = 0;
};

namespace {

// A POSIX extended regular expression that must match a whole text.
class Pattern {
 public:
  explicit Pattern(const char* text) {
    const std::string anchored = std::string("^(") + text + ")$";
    compiled_ = regcomp(&regex_, anchored.c_str(), REG_EXTENDED | REG_NOSUB) == 0;
  }
  ~Pattern() {
    if (compiled_) {
      regfree(&regex_);
    }
  }
  Pattern(const Pattern&) = delete;
  Pattern& operator=(const Pattern&) = delete;
  Pattern(Pattern&&) = delete;
  Pattern& operator=(Pattern&&) = delete;

  [[nodiscard]] bool is_usable() const { return compiled_; }
  [[nodiscard]] bool matches(const std::string& text) const {
    return regexec(&regex_, text.c_str(), 0, nullptr, 0) == 0;
  }

 private:
  regex_t regex_{};
  bool compiled_ = false;
};

sysdb_connection globals_connection{nullptr};

}  // namespace

sysdb_handle yfw_intf_mgbl_connid = nullptr;

cerrno _sysdb_bind(sysdb_handle* connection, const char* path, uint32_t /*flags*/) {
  if (std::strcmp(path, SYSDB_INTERFACE_GLOBALS) == 0) {
    *connection = &globals_connection;
    return YFW_OK;
  }
  InstalledDevice* device = InstalledDevice::current();
  if (device == nullptr || std::strcmp(path, SYSDB_ACTIVE_INTERFACES) != 0) {
    return kBadQuery;
  }
  *connection = new sysdb_connection{device};
  return YFW_OK;
}

cerrno _sysdb_unbind(sysdb_handle connection) {
  if (connection == &globals_connection) {
    yfw_intf_mgbl_connid = nullptr;  // the next module that needs it binds it again
  } else {
    delete connection;
  }
  return YFW_OK;
}

cerrno sysdb_find(sysdb_handle connection, const char* pattern, const char* second_pattern, uint32_t* count,
                  sysdb_list_handle* list, uint32_t /*flags*/, uint32_t /*zero*/) {
  const Pattern compiled(pattern);
  if (connection->device == nullptr || !compiled.is_usable() || second_pattern[0] != '\0') {
    return kBadQuery;
  }
  auto found = std::make_unique<sysdb_result_list>();
  for (std::string& item : connection->device->configuration().items()) {
    if (compiled.matches(item)) {
      found->items.push_back(std::move(item));
    }
  }
  // A mapping may look for an interface by a part of its name. The longest names come first, so that it finds
  // Bundle-Ether10 before Bundle-Ether1.
  std::stable_sort(found->items.begin(), found->items.end(),
                   [](const std::string& one, const std::string& other) { return one.find('/') > other.find('/'); });
  *count = static_cast<uint32_t>(found->items.size());
  *list = found->items.empty() ? nullptr : found.release();
  return YFW_OK;
}

cerrno sysdb_list_next(sysdb_list_handle list, char** path, uint32_t* /*item_type*/, uint32_t* /*item_size*/) {
  if (list->next == list->items.size()) {
    return kNotFound;
  }
  *path = list->items[list->next++].data();
  return YFW_OK;
}

cerrno sysdb_list_free(sysdb_list_handle list) {
  delete list;
  return YFW_OK;
}

extern "C" {

// Stands in front of the C library's for everything that is loaded after the host. The client's library counts as
// present, since the client is this file; nothing has to be at its path. Every other question goes to the system.
__attribute__((visibility("default"))) int access(const char* path, int mode) noexcept;

int access(const char* path, int mode) noexcept {
  if (std::strcmp(path, SYSDB_LIBRARY_PATH) == 0) {
    return 0;
  }
  return faccessat(AT_FDCWD, path, mode, 0);
}
}
