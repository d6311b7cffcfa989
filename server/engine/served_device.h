// A device with its datastores and the translator, as the engine's thread has them.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/devices/device.h"
#include "host/translation/translator.h"
#include "server/datastores/datastores.h"
#include "server/datastores/path_watch.h"
#include "server/engine/job_thread.h"
#include "server/engine/read_cache.h"

namespace oclacp::server {

struct ServedDeviceSettings {
  host::SchemaDirectories schemas;
  std::string module_file;
  std::string device;        // as host::open_device() takes it
  std::string state_folder;  // of this device alone
  DatastoreLimits limits = {};
  size_t cached_answers = 16;
  // What the log should tell, a sentence each; on the engine's thread.
  std::function<void(const std::string& sentence)> log = [](const std::string& /*sentence*/) {};
};

// All but the result of read() is values. Its functions throw host::Error.
class ServedDevice final : public ThreadState {
 public:
  // Opens the device and brings to its end what a crash has left.
  explicit ServedDevice(ServedDeviceSettings settings);

  Datastores& datastores() { return datastores_; }
  PathWatch& watch() { return watch_; }

  // A read of OpenConfig data. What was read of the same data before is not read again.
  std::shared_ptr<const host::Answer> read(Datastore datastore, const std::vector<std::string>& paths,
                                           const host::ReadOptions& options);
  // The same as a document.
  std::string get(Datastore datastore, const std::vector<std::string>& paths, const host::ReadOptions& options,
                  host::Format format);

  // An edit in JSON or XML of OpenConfig data. The plan's warnings come first among those of the result.
  CommitResult edit(const Owner& owner, Datastore target, const std::string& request, const host::PlanOptions& options,
                    const CommitRequest& commit = {});

  // Is told what changed running other than by a commit of its datastores. Does not throw.
  void on_outside_changes(std::function<void(const Changes& changes)> tell) { tell_outside_ = std::move(tell); }

  int descriptor() noexcept override;
  void take_signal() noexcept override;
  std::optional<Steady> deadline() noexcept override { return datastores_.deadline(); }
  void meet_deadline() noexcept override;

 private:
  void log_failure(const host::Error& error) const noexcept;

  ServedDeviceSettings settings_;
  host::Translator translator_;
  std::unique_ptr<host::Device> device_;
  StateFolder folder_;
  Clock clock_;
  Datastores datastores_;
  ReadCache answers_;
  std::shared_ptr<const host::DeviceSnapshot> seen_;  // what one update of the watch reads
  PathWatch watch_;
  std::function<void(const Changes& changes)> tell_outside_ = [](const Changes& /*changes*/) {};
};

}  // namespace oclacp::server
