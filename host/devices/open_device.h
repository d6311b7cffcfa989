// Devices by their names.
#pragma once

#include <memory>
#include <string>

#include "host/devices/device.h"

namespace oclacp::host {

// The device that `name` names on a command line: the path of a folder. Nothing is read yet, so that a device that is
// not there is told by the first use. `native`: the context of the native side; outlives the device and its snapshots.
OCLACP_HOST_API std::unique_ptr<Device> open_device(const ly_ctx* native, const std::string& name);

}  // namespace oclacp::host
