// The interfaces of a device by name.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/base/export.h"
#include "host/devices/active_configuration.h"
#include "host/devices/device.h"

namespace oclacp::host {

class InterfaceTable {
 public:
  // `inventory` outlives this. Interfaces that are only configured have a display name, and nothing else.
  InterfaceTable(const std::vector<Interface>& inventory, const ActiveConfiguration& configuration);

  // The number of an interface in the inventory, from 1, by its name in entry form; 0 when there is none.
  [[nodiscard]] uint32_t find(std::string_view name) const;
  [[nodiscard]] const Interface& at(uint32_t number) const { return inventory_[number - 1]; }

  // The name as people write it, by the data store's element or by its entry form; the same text for an unknown one.
  [[nodiscard]] std::string_view display_name(std::string_view name) const;

 private:
  const std::vector<Interface>& inventory_;
  std::unordered_map<std::string, uint32_t> numbers_;
  std::unordered_map<std::string, std::string_view> display_names_;
};

// The names of a device's interfaces, by the handles that the host's interface manager gives out; empty for another
// handle. Copies the names.
OCLACP_HOST_API std::function<std::string(std::uint32_t handle)> interface_names(const DeviceSnapshot& device);

}  // namespace oclacp::host
