// A device that is kept as files in a folder.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/devices/cached_file.h"
#include "host/devices/device.h"
#include "host/files/file_watch.h"

namespace oclacp::host {

// Keeps platform.json (module oclacp-platform), running.json (native models) and operational.json (native models, read
// when the operational state is first asked for), all RFC 7951. A file that is not touched is neither read nor parsed
// again.
//
// The lock is on the folder that running.json is in; when that is a link, on the folder of the file that it leads to,
// so that devices that share one configuration are changed one at a time.
class OCLACP_HOST_API FolderDevice final : public Device {
 public:
  struct Platform;
  struct Configuration;
  class State;

  // `native`: the context of the native side; outlives the device and its snapshots. Nothing is read yet.
  FolderDevice(const ly_ctx* native, std::string folder);
  ~FolderDevice() override;

  [[nodiscard]] const std::string& name() const override { return folder_; }
  std::shared_ptr<const DeviceSnapshot> snapshot() override;
  std::unique_ptr<DeviceLock> lock(const LockOptions& options) override;
  std::vector<std::string> commit(const DeviceLock& lock, const DeviceSnapshot& base, TreePtr running,
                                  const CommitOptions& options) override;
  int change_descriptor() override;
  bool take_changes() override;

 private:
  class Snapshot;

  FileWatch& watch();

  const ly_ctx* native_;
  std::string folder_;
  CachedFile<Platform> platform_;
  CachedFile<Configuration> running_;
  std::shared_ptr<const State> state_;
  std::shared_ptr<const Snapshot> last_;
  std::optional<FileWatch> watch_;
};

}  // namespace oclacp::host
