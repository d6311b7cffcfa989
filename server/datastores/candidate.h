// The configuration that is worked on before it is committed.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "host/devices/device.h"
#include "host/devices/staged_device.h"
#include "server/datastores/change.h"

namespace oclacp::server {

// A valid configuration made of another one; nothing when nothing changes.
using Plan = std::function<std::optional<host::TreePtr>(const host::DeviceSnapshot& current)>;

// Lies over the running configuration of a device. Without edits it is running, and follows it; with edits it stays
// what they made of the running configuration that they began with, until they are committed or discarded. Used by one
// thread at a time.
class Candidate {
 public:
  // Both outlive this. `native`: the context of the device's configurations.
  Candidate(const ly_ctx* native, host::Device& device) : native_(native), device_(device) {}

  // What it is now. Throws host::Error when running cannot be read.
  [[nodiscard]] std::shared_ptr<const host::DeviceSnapshot> snapshot();

  // Makes what `plan` makes of it what it is. What `plan` throws leaves it as it was.
  void edit(const Plan& plan);

  // It is running again.
  void discard() { staged_.reset(); }

  // What it changes of the running configuration that it was made from.
  [[nodiscard]] Changes changes();
  [[nodiscard]] bool is_changed() { return staged_ && !changes().empty(); }

  // What it comes to on `running`, which may be another configuration than the one that it was made from: a valid
  // configuration of its own. Throws host::Error with ErrorKind::kInUse, saying what changed, when running has changed
  // where the candidate does; the candidate stays as it is.
  [[nodiscard]] host::TreePtr on(const host::DeviceSnapshot& running);

 private:
  const ly_ctx* native_;
  host::Device& device_;
  std::optional<host::StagedDevice> staged_;  // nothing without edits
};

}  // namespace oclacp::server
