#include "host/services/current_device.h"

namespace oclacp::host {
namespace {

thread_local CurrentDevice* installed = nullptr;

}  // namespace

CurrentDevice::CurrentDevice(const DeviceSnapshot& device) : device_(device), outer_(installed) {
  installed = this;
}

CurrentDevice::~CurrentDevice() {
  installed = outer_;
}

CurrentDevice* CurrentDevice::current() {
  return installed;
}

const ActiveConfiguration& CurrentDevice::configuration() {
  if (!configuration_) {
    configuration_.emplace(device_.running());
  }
  return *configuration_;
}

const InterfaceTable& CurrentDevice::interfaces() {
  if (!interfaces_) {
    interfaces_.emplace(device_.interfaces(), configuration());
  }
  return *interfaces_;
}

const FoundItems* CurrentDevice::find_items(const std::string& pattern) {
  auto found = found_items_.find(pattern);
  if (found == found_items_.end()) {
    found = found_items_.emplace(pattern, search_items(configuration().items(), pattern)).first;
  }
  return found->second ? &*found->second : nullptr;
}

}  // namespace oclacp::host
