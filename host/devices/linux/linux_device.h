// The bonds of this machine as a device.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/devices/device.h"
#include "host/devices/linux/link_signal.h"
#include "host/devices/linux/link_snapshot.h"
#include "host/devices/linux/member_history.h"

namespace oclacp::host {

// The bonds in mode 802.3ad of one network namespace. To read needs no privilege, but without CAP_NET_ADMIN in the
// initial user namespace the kernel withholds a part, which the warnings of a snapshot say. To change anything takes
// CAP_NET_ADMIN; to use a named namespace CAP_SYS_ADMIN.
//
// Nothing is kept between reads, but for what a watcher sees: from the first call of change_descriptor() on, each
// snapshot is a look at the members (MemberHistory), and has what they went through since.
// The kernel has no transactions: a commit changes bond after bond, and when one fails
// puts back those before it; when that fails too, the Error says both.
//
// The lock is on a file below /run/oclacp, one for each network namespace. Programs that do not take it, such as ip,
// are not kept off.
class OCLACP_HOST_API LinuxDevice final : public Device {
 public:
  // `native`: the context of the native side; outlives the device and its snapshots. `network_namespace`: its name as
  // ip netns knows it; empty for the one of the calling thread. Nothing is read yet.
  explicit LinuxDevice(const ly_ctx* native, std::string network_namespace = "");
  ~LinuxDevice() override;

  [[nodiscard]] const std::string& name() const override { return name_; }
  std::shared_ptr<const DeviceSnapshot> snapshot() override;
  std::unique_ptr<DeviceLock> lock(const LockOptions& options) override;
  std::vector<std::string> commit(const DeviceLock& lock, const DeviceSnapshot& base, TreePtr running,
                                  const CommitOptions& options) override;
  int change_descriptor() override;
  bool take_changes() override;

 private:
  class Snapshot;

  void warn_of_managers(const LinkSnapshot& links, std::vector<std::string>& warnings);

  const ly_ctx* native_;
  std::string namespace_;
  std::string name_;
  std::shared_ptr<const Snapshot> last_;
  std::optional<LinkSignal> changes_;
  std::optional<MemberHistory> history_;  // of whoever watches
  bool has_warned_of_managers_ = false;
};

}  // namespace oclacp::host
