// A device over another one, on which edits are tried and gathered.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/devices/device.h"

namespace oclacp::host {

// Takes commits without passing them on, so that each edit is planned against the result of the one before; apply()
// then changes the device below once, by the difference of them all. All but the running configuration is what the
// device below held when this was made. Its lock is its owner's own matter, and always to be had.
class OCLACP_HOST_API StagedDevice final : public Device {
 public:
  // `below` outlives this. Throws Error when it cannot be read.
  explicit StagedDevice(Device& below);

  [[nodiscard]] const std::string& name() const override { return below_.name(); }
  std::shared_ptr<const DeviceSnapshot> snapshot() override;
  std::unique_ptr<DeviceLock> lock(const LockOptions& options) override;
  std::vector<std::string> commit(const DeviceLock& lock, const DeviceSnapshot& base, TreePtr running,
                                  const CommitOptions& options) override;
  int change_descriptor() override { return below_.change_descriptor(); }
  bool take_changes() override { return below_.take_changes(); }

  // What the device below held when this was made or last applied.
  [[nodiscard]] const DeviceSnapshot& base() const { return *base_; }
  [[nodiscard]] bool is_changed() const { return staged_ != nullptr; }

  // Commits what was gathered to the device below, with `lock`, one of that device; as Device::commit(). Goes on from
  // its new configuration, or when it is refused from where it was.
  std::vector<std::string> apply(const DeviceLock& lock, const CommitOptions& options);

 private:
  class Snapshot;

  Device& below_;
  std::shared_ptr<const DeviceSnapshot> base_;
  std::shared_ptr<const Snapshot> staged_;  // null when nothing was committed here
  uint64_t commits_ = 0;
};

}  // namespace oclacp::host
