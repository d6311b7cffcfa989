// What libyang lets pass in data that a device or a user gives.
#pragma once

#include <string>

#include "host/yang/libyang_ptr.h"

namespace oclacp::host {

// Whose models data may be of, all of them loaded in the native context.
enum class DataKind {
  kNative,    // the device's configuration, or configuration and state
  kState,     // the device's state alone
  kPlatform,  // the description of the device, module oclacp-platform
};

// Refuses attributes, as what an edit deletes would be taken for data; nodes of models of the other kind; and interface
// names that the interface manager's buffers do not hold, since a model counts characters and a buffer bytes. `top` is
// the first of the top nodes, or null. `file`: where the data is from, empty when it is from
// a request. Throws Error.
void check_data(const lyd_node* top, DataKind kind, const std::string& file);

}  // namespace oclacp::host
