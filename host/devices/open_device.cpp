#include "host/devices/open_device.h"

#include <string_view>

#include "host/base/error.h"
#include "host/devices/folder_device.h"
#include "host/devices/linux/linux_device.h"

namespace oclacp::host {

std::unique_ptr<Device> open_device(const ly_ctx* native, const std::string& name) {
  constexpr std::string_view kLinux = "linux";
  constexpr std::string_view kNamespaceOfLinux = "linux:";
  if (name == kLinux) {
    return std::make_unique<LinuxDevice>(native);
  }
  if (name.starts_with(kNamespaceOfLinux)) {
    if (name == kNamespaceOfLinux) {
      throw Error(ErrorKind::kInvalidValue, name + ": names no network namespace");
    }
    return std::make_unique<LinuxDevice>(native, name.substr(kNamespaceOfLinux.size()));
  }
  return std::make_unique<FolderDevice>(native, name);
}

}  // namespace oclacp::host
