// What the tests of the datastores share.
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "server/datastores/datastores.h"
#include "tests/support/native_json.h"
#include "tests/unit/host/devices/memory_device.h"

namespace oclacp::server {

using host::lacp_of_a;
using host::MemoryDevice;
using host::refusal_of;
using host::running;
using host::schemas;
using host::TemporaryFolder;

// Time that goes on when a test says so.
class TestClock final : public Clock {
 public:
  [[nodiscard]] Wall wall() const override { return wall_; }
  [[nodiscard]] Steady steady() const override { return steady_; }
  [[nodiscard]] std::string boot_id() const override { return boot_id_; }

  void pass(std::chrono::seconds time) {
    wall_ += time;
    steady_ += time;
  }
  void set_wall(std::chrono::seconds since_epoch) { wall_ = Wall(since_epoch); }
  void start_machine() { boot_id_ += "'"; }

 private:
  Wall wall_{std::chrono::seconds(1'700'000'000)};
  Steady steady_{std::chrono::seconds(1000)};
  std::string boot_id_ = "boot";
};

inline const Owner& alice() {
  static const Owner kAlice = {1, "alice", "session 1"};
  return kAlice;
}
inline const Owner& bob() {
  static const Owner kBob = {2, "bob", "session 2"};
  return kBob;
}

// A plan that makes a configuration in JSON the new one, whatever the old one is.
inline Plan to(const std::string& configuration) {
  return [configuration](const host::DeviceSnapshot& /*current*/) { return std::optional(running(configuration)); };
}

// A configuration of interfaces "i0", "i1", ... with a system priority each; 0 for an interface that is not there.
inline std::string priorities(const std::vector<unsigned>& values) {
  std::string entries;
  for (size_t index = 0; index < values.size(); ++index) {
    if (values[index] != 0) {
      entries += (entries.empty() ? "" : ", ") +
                 support::native_entry("i" + std::to_string(index),
                                       R"("mode": "active", "system-priority": )" + std::to_string(values[index]));
    }
  }
  return support::native_interfaces(entries);
}

// The priorities that a configuration has.
inline std::vector<unsigned> priorities_of(const host::DeviceSnapshot& snapshot, size_t count) {
  std::vector<unsigned> values;
  for (size_t index = 0; index < count; ++index) {
    const std::string path =
        "/Talvo-Brin-QD-ifmgr-cfg:interface-configurations/interface-configuration[active='act'][interface-name='i" +
        std::to_string(index) + "']/Talvo-Brin-QD-bundlemgr-cfg:lacp/system-priority";
    lyd_node* found = nullptr;
    const bool is_there =
        snapshot.running() != nullptr && lyd_find_path(snapshot.running(), path.c_str(), 0, &found) == LY_SUCCESS;
    values.push_back(is_there ? static_cast<unsigned>(std::stoul(lyd_get_value(found))) : 0);
  }
  return values;
}

// A plan that sets one priority and leaves the rest as it is.
inline Plan setting(size_t index, unsigned value, size_t count) {
  return [=](const host::DeviceSnapshot& current) {
    std::vector<unsigned> values = priorities_of(current, count);
    values[index] = value;
    return std::optional(running(priorities(values)));
  };
}

// Datastores over a device that outlives them, as it does a daemon.
class DatastoresTest : public testing::Test {
 protected:
  // As after a start of the daemon. `are_left`: as they were left, without an end.
  void start() {
    datastores_.reset();
    folder_.reset();
    folder_.emplace(state_.path());
    datastores_.emplace(schemas().native(), device_, *folder_, clock_);
    told_ = datastores_->recover();
  }

  void SetUp() override { start(); }

  [[nodiscard]] std::string values(Datastore datastore = Datastore::kRunning) {
    std::string text;
    for (const unsigned value : priorities_of(*datastores_->snapshot(datastore), 3)) {
      text += (text.empty() ? "" : " ") + std::to_string(value);
    }
    return text;
  }

  TemporaryFolder state_;
  TestClock clock_;
  MemoryDevice device_{priorities({1, 2, 3})};
  std::optional<StateFolder> folder_;
  std::optional<Datastores> datastores_;
  std::vector<std::string> told_;
};

// The kind of a refusal, or nothing.
template <typename Action>
std::optional<host::ErrorKind> kind_of_refusal(Action&& action) {
  try {
    std::forward<Action>(action)();
  } catch (const host::Error& error) {
    return error.kind();
  }
  return std::nullopt;
}

}  // namespace oclacp::server
