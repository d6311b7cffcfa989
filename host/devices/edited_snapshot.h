// A device with another configuration.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/devices/device.h"

namespace oclacp::host {

// What a device holds, but for its running configuration: the device as an edit would leave it.
class EditedSnapshot : public DeviceSnapshot {
 public:
  // `base` and `running`, the first of the top nodes or null, outlive this.
  EditedSnapshot(const DeviceSnapshot& base, const lyd_node* running) : base_(base), running_(running) {}

  [[nodiscard]] uint32_t router_type() const override { return base_.router_type(); }
  [[nodiscard]] const std::vector<Interface>& interfaces() const override { return base_.interfaces(); }
  [[nodiscard]] const lyd_node* running() const override { return running_; }
  [[nodiscard]] const lyd_node* operational() const override { return base_.operational(); }
  [[nodiscard]] bool assumes_lacp() const override { return base_.assumes_lacp(); }
  [[nodiscard]] std::string normalized_value(const lysc_node& leaf, std::string_view value) const override {
    return base_.normalized_value(leaf, value);
  }
  [[nodiscard]] std::vector<std::string> warnings() const override { return base_.warnings(); }

 private:
  const DeviceSnapshot& base_;
  const lyd_node* running_;
};

}  // namespace oclacp::host
