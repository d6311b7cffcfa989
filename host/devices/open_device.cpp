#include "host/devices/open_device.h"

#include "host/devices/folder_device.h"

namespace oclacp::host {

std::unique_ptr<Device> open_device(const ly_ctx* native, const std::string& name) {
  return std::make_unique<FolderDevice>(native, name);
}

}  // namespace oclacp::host
