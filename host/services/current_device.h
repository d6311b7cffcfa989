// The device that the contract's functions answer from. The data-store client and the interface manager have no context
// argument, so the device is installed for the thread that works on a request.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "host/devices/active_configuration.h"
#include "host/devices/device.h"
#include "host/devices/interface_table.h"
#include "host/services/item_search.h"

namespace oclacp::host {

// Installs a device for the current thread as long as this lives. Scopes may be nested; the inner one counts.
class CurrentDevice {
 public:
  explicit CurrentDevice(const DeviceSnapshot& device);
  ~CurrentDevice();
  CurrentDevice(const CurrentDevice&) = delete;
  CurrentDevice& operator=(const CurrentDevice&) = delete;
  CurrentDevice(CurrentDevice&&) = delete;
  CurrentDevice& operator=(CurrentDevice&&) = delete;

  // The one of this thread; null outside of every scope.
  static CurrentDevice* current();

  [[nodiscard]] const DeviceSnapshot& device() const { return device_; }

  // Whether an interface's configuration holds something of LACP, or the device treats it so.
  bool has_lacp(std::string_view interface) { return device_.assumes_lacp() || configuration().has_lacp(interface); }

  // Both are built when they are first asked for.
  const ActiveConfiguration& configuration();
  const InterfaceTable& interfaces();

  // The items of the configuration whose whole text matches a POSIX extended regular expression; null when it is none.
  // They live as long as this. Each pattern is worked on once, since a mapping asks the same for every entry.
  const FoundItems* find_items(const std::string& pattern);

 private:
  const DeviceSnapshot& device_;
  CurrentDevice* outer_;
  std::optional<ActiveConfiguration> configuration_;
  std::optional<InterfaceTable> interfaces_;
  std::unordered_map<std::string, std::optional<FoundItems>> found_items_;
};

}  // namespace oclacp::host
