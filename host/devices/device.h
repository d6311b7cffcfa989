// Devices: places that keep a configuration and a state, and what they hold at one moment.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/base/export.h"
#include "host/files/file_lock.h"
#include "host/yang/libyang_ptr.h"
#include "host/yang/native_document.h"

namespace oclacp::host {

enum class InterfaceType { kPhysical, kBundle, kVirtual };

// One interface that the device has, configured or not.
struct Interface {
  std::string name;
  InterfaceType type;
};

// What a device holds at one moment, as far as a mapping looks at it. It never changes, so that any number of readers
// share one; a part that is read when it is first asked for is read once. Used by one thread at a time.
class OCLACP_HOST_API DeviceSnapshot {
 public:
  // Two snapshots of one Device whose numbers are equal hold the same.
  struct Version {
    uint64_t configuration = 0;  // of platform type, inventory and running configuration
    uint64_t state = 0;          // of all that, and of the operational state

    bool operator==(const Version&) const = default;
  };

  DeviceSnapshot() = default;
  virtual ~DeviceSnapshot() = default;
  DeviceSnapshot(const DeviceSnapshot&) = delete;
  DeviceSnapshot& operator=(const DeviceSnapshot&) = delete;
  DeviceSnapshot(DeviceSnapshot&&) = delete;
  DeviceSnapshot& operator=(DeviceSnapshot&&) = delete;

  // The platform type number, by which a mapping decides whether it serves the device.
  [[nodiscard]] virtual uint32_t router_type() const = 0;
  [[nodiscard]] virtual const std::vector<Interface>& interfaces() const = 0;
  // The running configuration: the first of its top nodes, of the native models; null when it is empty.
  [[nodiscard]] virtual const lyd_node* running() const = 0;
  // The operational state: the first of its top nodes, of the native models; null when there is none. Throws Error
  // when it cannot be had.
  [[nodiscard]] virtual const lyd_node* operational() const { return nullptr; }
  // The same as a document, which can be read in pieces; null when the device keeps it in another form.
  [[nodiscard]] virtual const NativeDocument* operational_document() const { return nullptr; }
  // Whether every interface is treated as having LACP, because the configuration of the interfaces is not known.
  [[nodiscard]] virtual bool assumes_lacp() const { return false; }
  // The text that the device keeps when a leaf of its configuration is set to `value`. As written unless the device has
  // a form of its own.
  [[nodiscard]] virtual std::string normalized_value(const lysc_node& /*leaf*/, std::string_view value) const {
    return std::string(value);
  }
  [[nodiscard]] virtual Version version() const { return {}; }
  // What a reader has to know of how it was read, such as what is withheld without a privilege: a sentence each.
  [[nodiscard]] virtual std::vector<std::string> warnings() const { return {}; }
};

// A device of which nothing is known but, if at all, its configuration. It is of a platform type that mappings serve.
class OCLACP_HOST_API EmptySnapshot : public DeviceSnapshot {
 public:
  // `running`: what running() returns; outlives this.
  explicit EmptySnapshot(const lyd_node* running = nullptr) : running_(running) {}

  [[nodiscard]] uint32_t router_type() const override { return 7; }
  [[nodiscard]] const std::vector<Interface>& interfaces() const override { return interfaces_; }
  [[nodiscard]] const lyd_node* running() const override { return running_; }

 private:
  const lyd_node* running_;
  std::vector<Interface> interfaces_;
};

class Device;

// The right to change a device, which one at a time has. It ends with this object, which may be kept over several
// commits and handed on.
class OCLACP_HOST_API DeviceLock {
 public:
  explicit DeviceLock(const Device& device) : device_(device) {}
  virtual ~DeviceLock() = default;
  DeviceLock(const DeviceLock&) = delete;
  DeviceLock& operator=(const DeviceLock&) = delete;
  DeviceLock(DeviceLock&&) = delete;
  DeviceLock& operator=(DeviceLock&&) = delete;

  [[nodiscard]] const Device& device() const { return device_; }

 private:
  const Device& device_;
};

struct CommitOptions {
  // Whether what the device can only change by an interruption of traffic is changed at all.
  bool may_interrupt = false;
};

// A place that keeps a configuration and a state. Outlives its locks; its snapshots may outlive it, but not the
// schemas. Used by one thread at a time.
class OCLACP_HOST_API Device {
 public:
  Device() = default;
  virtual ~Device() = default;
  Device(const Device&) = delete;
  Device& operator=(const Device&) = delete;
  Device(Device&&) = delete;
  Device& operator=(Device&&) = delete;

  // For messages, such as the path of the folder.
  [[nodiscard]] virtual const std::string& name() const = 0;

  // What it holds now. What did not change since it was last read is not read again, and all that did not is the same
  // object. Throws Error.
  virtual std::shared_ptr<const DeviceSnapshot> snapshot() = 0;

  // Keeps off all others who take the lock, in this and in other processes. Throws Error, which says who holds it, when
  // it is not to be had within the time.
  virtual std::unique_ptr<DeviceLock> lock(const LockOptions& options) = 0;

  // Makes `running`, a valid configuration of the native models, the device's running configuration, for good. Whoever
  // reads the device sees the old or the new one; where that is not possible, a failure takes back what was done.
  // `base` is the snapshot of this device that `running` was made from: when the device holds another configuration by
  // now, because of a program that takes no lock, nothing is done. `lock` is one of this device. Returns what the
  // caller has to know, a sentence each. Throws Error, and the old configuration stays unless the sentence says
  // otherwise.
  virtual std::vector<std::string> commit(const DeviceLock& lock, const DeviceSnapshot& base, TreePtr running,
                                          const CommitOptions& options) = 0;

  // A file descriptor that is readable (poll(2), POLLIN) when the device may have changed, whoever changed it, a commit
  // through this too. It is the device's, and for nothing else than to be polled. Changes are signalled from the first
  // call on. Throws Error.
  virtual int change_descriptor() = 0;

  // Takes what the descriptor signals, so that it waits for the next change, and returns whether the device may have
  // changed since the last call; snapshot() then tells. Throws Error.
  virtual bool take_changes() = 0;
};

}  // namespace oclacp::host
