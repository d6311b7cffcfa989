// The data-store client.
#include <cstring>
#include <string>

#include "host/base/contract.h"
#include "host/base/status_text.h"
#include "host/services/current_device.h"
#include "host/services/item_search.h"

using oclacp::host::CurrentDevice;
using oclacp::host::FoundItems;
using oclacp::host::kBadQuery;
using oclacp::host::kNotFound;

// A connection to the active interface configuration; or, without a device, the one to the interface manager's global
// data, which can be opened and closed and holds nothing.
struct sysdb_connection {
  CurrentDevice* device;
};

struct sysdb_result_list {
  const FoundItems& found;
  std::string texts;  // a copy, as the caller may cut it
  size_t next = 0;
};

namespace {

sysdb_connection globals_connection{nullptr};

}  // namespace

sysdb_handle yfw_intf_mgbl_connid = nullptr;

cerrno _sysdb_bind(sysdb_handle* connection, const char* path, uint32_t /*flags*/) {
  if (std::strcmp(path, SYSDB_INTERFACE_GLOBALS) == 0) {
    *connection = &globals_connection;
    return YFW_OK;
  }
  CurrentDevice* device = CurrentDevice::current();
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
  const bool is_answered = connection->device != nullptr && second_pattern[0] == '\0';
  const FoundItems* found = is_answered ? connection->device->find_items(pattern) : nullptr;
  if (found == nullptr) {
    return kBadQuery;
  }
  *count = static_cast<uint32_t>(found->begins.size());
  *list = found->begins.empty() ? nullptr : new sysdb_result_list{*found, found->texts};
  return YFW_OK;
}

cerrno sysdb_list_next(sysdb_list_handle list, char** path, uint32_t* /*item_type*/, uint32_t* /*item_size*/) {
  if (list->next == list->found.begins.size()) {
    return kNotFound;
  }
  *path = &list->texts[list->found.begins[list->next++]];
  return YFW_OK;
}

cerrno sysdb_list_free(sysdb_list_handle list) {
  delete list;
  return YFW_OK;
}
