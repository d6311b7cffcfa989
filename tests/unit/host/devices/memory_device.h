// Devices without files.
#pragma once

#include <sys/eventfd.h>
#include <unistd.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/base/error.h"
#include "host/devices/device.h"
#include "host/files/file_descriptor.h"
#include "host/yang/tree_printer.h"
#include "tests/support/native_json.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {

// The running configuration of a text in JSON.
inline TreePtr running(const std::string& text) {
  lyd_node* tree = nullptr;
  EXPECT_EQ(
      lyd_parse_data_mem(schemas().native(), text.c_str(), LYD_JSON, LYD_PARSE_STRICT, LYD_VALIDATE_NO_STATE, &tree),
      LY_SUCCESS);
  return TreePtr(tree);
}

// What a device holds that is kept as texts.
class MemorySnapshot : public DeviceSnapshot {
 public:
  explicit MemorySnapshot(const std::string& text, Version version = {})
      : MemorySnapshot(host::running(text), version) {}
  MemorySnapshot(TreePtr running, Version version) : running_(std::move(running)), version_(version) {}

  [[nodiscard]] uint32_t router_type() const override { return 7; }
  [[nodiscard]] const std::vector<Interface>& interfaces() const override { return interfaces_; }
  [[nodiscard]] const lyd_node* running() const override { return running_.get(); }
  [[nodiscard]] Version version() const override { return version_; }

 private:
  TreePtr running_;
  Version version_;
  std::vector<Interface> interfaces_;
};

// A device that lives as long as the test.
class MemoryDevice final : public Device {
 public:
  explicit MemoryDevice(const std::string& configuration)
      : snapshot_(std::make_shared<MemorySnapshot>(configuration, DeviceSnapshot::Version{1, 1})) {}

  [[nodiscard]] const std::string& name() const override { return name_; }
  std::shared_ptr<const DeviceSnapshot> snapshot() override { return snapshot_; }

  std::unique_ptr<DeviceLock> lock(const LockOptions& options) override {
    if (holder_ != nullptr) {
      throw Error(ErrorKind::kLockDenied, name_ + ": the device is busy: " + *holder_ + " has held it");
    }
    holder_ = std::make_unique<std::string>(options.owner);
    return std::make_unique<Lock>(*this);
  }

  std::vector<std::string> commit(const DeviceLock& lock, const DeviceSnapshot& base, TreePtr running,
                                  const CommitOptions& /*options*/) override {
    if (&lock.device() != this) {
      throw Error(ErrorKind::kInternal, name_ + ": cannot be changed under the lock of another device");
    }
    if (base.version() != snapshot_->version()) {
      throw Error(ErrorKind::kInUse, name_ + ": was changed by another program meanwhile, and stays as it is");
    }
    ++commits_;
    replace(std::move(running));
    return {};
  }

  int change_descriptor() override { return events_.number(); }
  bool take_changes() override {
    eventfd_t count = 0;
    return eventfd_read(events_.number(), &count) == 0;
  }

  // What another program does that takes no lock.
  void change(const std::string& configuration) { replace(host::running(configuration)); }

  [[nodiscard]] size_t commits() const { return commits_; }

 private:
  class Lock final : public DeviceLock {
   public:
    explicit Lock(MemoryDevice& device) : DeviceLock(device), held_(device) {}
    ~Lock() override { held_.holder_ = nullptr; }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    Lock(Lock&&) = delete;
    Lock& operator=(Lock&&) = delete;

   private:
    MemoryDevice& held_;
  };

  void replace(TreePtr running) {
    const DeviceSnapshot::Version version = snapshot_->version();
    snapshot_ = std::make_shared<MemorySnapshot>(std::move(running),
                                                 DeviceSnapshot::Version{version.configuration + 1, version.state + 1});
    eventfd_write(events_.number(), 1);
  }

  std::string name_ = "memory";
  std::shared_ptr<const DeviceSnapshot> snapshot_;
  std::unique_ptr<std::string> holder_;
  FileDescriptor events_{eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)};
  size_t commits_ = 0;
};

// The running configuration of a snapshot in JSON, without blanks.
inline std::string json_of(const DeviceSnapshot& snapshot) {
  std::string text = print_tree(schemas().native(), snapshot.running(), LYD_JSON);
  std::erase_if(text, [](char character) { return character == ' ' || character == '\n'; });
  return text;
}

// A running configuration with one interface "a"; `members` are its further members.
inline std::string interface_a(const std::string& members) {
  return support::native_interfaces(R"({"active": "act", "interface-name": "a")" +
                                    (members.empty() ? "" : ", " + members) + "}");
}

inline std::string lacp_of_a(const std::string& members) {
  return interface_a(R"("Talvo-Brin-QD-bundlemgr-cfg:lacp": {)" + members + "}");
}

}  // namespace oclacp::host
