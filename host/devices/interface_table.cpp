#include "host/devices/interface_table.h"

#include "host/base/interface_names.h"

namespace oclacp::host {

InterfaceTable::InterfaceTable(const std::vector<Interface>& inventory, const ActiveConfiguration& configuration)
    : inventory_(inventory) {
  for (const auto& [element, name] : configuration.elements()) {
    display_names_.emplace(element, name);
  }
  for (size_t index = 0; index < inventory.size(); ++index) {
    const std::string form = entry_form(inventory[index].name);
    numbers_.emplace(form, static_cast<uint32_t>(index + 1));
    display_names_.emplace(form, inventory[index].name);
  }
}

uint32_t InterfaceTable::find(std::string_view name) const {
  const auto found = numbers_.find(std::string(name));
  return found == numbers_.end() ? 0 : found->second;
}

std::string_view InterfaceTable::display_name(std::string_view name) const {
  const auto found = display_names_.find(std::string(name));
  return found == display_names_.end() ? name : found->second;
}

// A handle is the interface's number in the inventory, from 1.
std::function<std::string(std::uint32_t handle)> interface_names(const DeviceSnapshot& device) {
  return [inventory = device.interfaces()](std::uint32_t handle) {
    return handle == 0 || handle > inventory.size() ? std::string() : inventory[handle - 1].name;
  };
}

}  // namespace oclacp::host
