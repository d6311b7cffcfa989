// The device behind the host, as far as a mapping looks at it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/base/export.h"
#include "host/yang/libyang_ptr.h"

namespace oclacp::host {

enum class InterfaceType { kPhysical, kBundle, kVirtual };

// One interface that the device has, configured or not.
struct Interface {
  std::string name;
  InterfaceType type;
};

// A device. What it answers stays as it is while a request is worked on.
class OCLACP_HOST_API Device {
 public:
  Device() = default;
  virtual ~Device() = default;
  Device(const Device&) = delete;
  Device& operator=(const Device&) = delete;
  Device(Device&&) = delete;
  Device& operator=(Device&&) = delete;

  // The platform type number, by which a mapping decides whether it serves the device.
  [[nodiscard]] virtual uint32_t router_type() const = 0;
  [[nodiscard]] virtual const std::vector<Interface>& interfaces() const = 0;
  // The running configuration: the first of its top nodes, of the native models; null when it is empty.
  [[nodiscard]] virtual const lyd_node* running() const = 0;
  // The operational state: the first of its top nodes, of the native models; null when there is none. Throws Error
  // when it cannot be had.
  [[nodiscard]] virtual const lyd_node* operational() const { return nullptr; }
  // Whether every interface counts as having LACP, because the configuration of the interfaces is not known.
  [[nodiscard]] virtual bool assumes_lacp() const { return false; }
  // The text that the device keeps when a leaf of its configuration is set to `value`. As written unless the device has
  // a form of its own.
  [[nodiscard]] virtual std::string normalized_value(const lysc_node& /*leaf*/, std::string_view value) const {
    return std::string(value);
  }
};

// A device of which nothing is known but, if at all, its configuration. It is of a platform type that mappings serve.
class OCLACP_HOST_API EmptyDevice : public Device {
 public:
  // `running`: what running() answers; outlives this.
  explicit EmptyDevice(const lyd_node* running = nullptr) : running_(running) {}

  [[nodiscard]] uint32_t router_type() const override { return 7; }
  [[nodiscard]] const std::vector<Interface>& interfaces() const override { return interfaces_; }
  [[nodiscard]] const lyd_node* running() const override { return running_; }

 private:
  const lyd_node* running_;
  std::vector<Interface> interfaces_;
};

}  // namespace oclacp::host
