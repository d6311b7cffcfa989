#include "host/devices/staged_device.h"

#include <utility>

#include "host/base/error.h"
#include "host/devices/edited_snapshot.h"

namespace oclacp::host {

class StagedDevice::Snapshot final : public EditedSnapshot {
 public:
  Snapshot(std::shared_ptr<const DeviceSnapshot> base, TreePtr running, uint64_t number)
      : EditedSnapshot(*base, running.get()), base_(std::move(base)), running_(std::move(running)), number_(number) {}

  [[nodiscard]] Version version() const override {
    constexpr uint64_t kStaged = uint64_t{1} << 63;  // apart from those of the device below
    return {kStaged | number_, kStaged | number_};
  }

 private:
  std::shared_ptr<const DeviceSnapshot> base_;
  TreePtr running_;
  uint64_t number_;
};

StagedDevice::StagedDevice(Device& below) : below_(below), base_(below.snapshot()) {}

std::shared_ptr<const DeviceSnapshot> StagedDevice::snapshot() {
  if (staged_ != nullptr) {
    return staged_;
  }
  return base_;
}

std::unique_ptr<DeviceLock> StagedDevice::lock(const LockOptions& /*options*/) {
  return std::make_unique<DeviceLock>(*this);
}

std::vector<std::string> StagedDevice::commit(const DeviceLock& lock, const DeviceSnapshot& base, TreePtr running,
                                              const CommitOptions& /*options*/) {
  if (&lock.device() != this) {
    throw Error(ErrorKind::kInternal, name() + ": cannot be changed under the lock of another device");
  }
  if (base.version() != snapshot()->version()) {
    throw Error(ErrorKind::kInUse, name() + ": the edit was made from an earlier configuration, and is left out");
  }
  staged_ = std::make_shared<const Snapshot>(base_, std::move(running), ++commits_);
  return {};
}

std::vector<std::string> StagedDevice::apply(const DeviceLock& lock, const CommitOptions& options) {
  if (!is_changed()) {
    return {};
  }
  lyd_node* running = nullptr;
  if (staged_->running() != nullptr &&
      lyd_dup_siblings(staged_->running(), nullptr, LYD_DUP_RECURSIVE | LYD_DUP_WITH_FLAGS, &running) != LY_SUCCESS) {
    throw Error(ErrorKind::kOutOfMemory,
                name() + ": no memory is left for a copy of the configuration, and nothing is changed");
  }
  std::vector<std::string> told = below_.commit(lock, *base_, TreePtr(running), options);
  base_ = below_.snapshot();
  staged_ = nullptr;
  return told;
}

}  // namespace oclacp::host
