#include "host/datastore/installed_device.h"

#include "host/contract.h"

namespace oclacp::host {
namespace {

thread_local InstalledDevice* installed = nullptr;

}  // namespace

InstalledDevice::InstalledDevice(const Device& device) : device_(device), outer_(installed) {
  installed = this;
}

InstalledDevice::~InstalledDevice() {
  installed = outer_;
}

InstalledDevice* InstalledDevice::current() {
  return installed;
}

const ActiveConfiguration& InstalledDevice::configuration() {
  if (!configuration_) {
    configuration_.emplace(device_.running());
  }
  return *configuration_;
}

const InterfaceDirectory& InstalledDevice::interfaces() {
  if (!interfaces_) {
    interfaces_.emplace(device_.interfaces(), configuration());
  }
  return *interfaces_;
}

}  // namespace oclacp::host

uint32_t platform_get_router_type() {
  const auto* device = oclacp::host::InstalledDevice::current();
  return device == nullptr ? 0 : device->device().router_type();
}
