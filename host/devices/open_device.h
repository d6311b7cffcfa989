// Devices by their names.
#pragma once

#include <memory>
#include <string>

#include "host/devices/device.h"

namespace oclacp::host {

// The device that `name` names on a command line: "linux" for the bonds of this machine, "linux:NETNS" for those of a
// named network namespace, otherwise the path of a folder ("./linux" for a folder of that name). Nothing is read yet,
// so that a device that is not there is reported by the first use. Throws Error. `native`: the context of the native
// side; outlives the device and its snapshots.
OCLACP_HOST_API std::unique_ptr<Device> open_device(const ly_ctx* native, const std::string& name);

}  // namespace oclacp::host
