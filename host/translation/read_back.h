// What of an edit can be read as OpenConfig again.
#pragma once

#include <libyang/libyang.h>

#include <string>
#include <vector>

#include "host/devices/device.h"
#include "host/translation/loaded_mapping.h"
#include "host/trees/output_log.h"

namespace oclacp::host {

// Reads the nodes that an edit names out of `running`, the configuration that it comes to on `device`, and returns why
// native entries among them have no OpenConfig form; a sentence each. A device that keeps a period of 1 as it is
// written has none for it, and every later read of the whole would be refused. `edit` is what the module added for the
// edit.
std::vector<std::string> read_back(LoadedMapping& mapping, const OutputLog& edit, const DeviceSnapshot& device,
                                   const lyd_node* running);

}  // namespace oclacp::host
