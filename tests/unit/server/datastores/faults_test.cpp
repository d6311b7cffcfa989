// What becomes of the datastores when any step fails, or the process is killed at any step.
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>

#include "host/devices/folder_device.h"
#include "tests/unit/server/datastores/server_test.h"

namespace oclacp::server {
namespace {

using host::Error;
using host::ErrorKind;
using testing::AnyOf;

constexpr Datastore kRunning = Datastore::kRunning;
constexpr Datastore kCandidate = Datastore::kCandidate;

// Counts the steps of an operation, and ends it at one of them.
class Steps {
 public:
  enum class End { kFail, kKill };

  // From now on; `number` from 1, 0 for none of them.
  void end_at(size_t number, End end) {
    at_ = number;
    end_ = end;
    taken_ = 0;
  }
  void take() {
    if (++taken_ != at_) {
      return;
    }
    if (end_ == End::kKill) {
      std::raise(SIGKILL);
    }
    throw Error(ErrorKind::kOperationFailed, "step " + std::to_string(taken_) + " fails");
  }
  // Whether the step was reached.
  [[nodiscard]] bool is_ended() const { return at_ != 0 && taken_ >= at_; }

 private:
  size_t at_ = 0;
  size_t taken_ = 0;
  End end_ = End::kFail;
};

class SteppedFolder final : public StateFolder {
 public:
  SteppedFolder(const std::string& path, Steps& steps) : StateFolder(path), steps_(steps) {}

  void write(const std::string& name, const std::string& content) override {
    steps_.take();
    StateFolder::write(name, content);
    steps_.take();
  }
  void rename(const std::string& from, const std::string& to) override {
    steps_.take();
    StateFolder::rename(from, to);
    steps_.take();
  }
  void remove(const std::string& name) override {
    steps_.take();
    StateFolder::remove(name);
    steps_.take();
  }

 private:
  Steps& steps_;
};

// A folder that is set change by change when `is_in_parts`, as the bonds of a kernel are: what is killed leaves half.
// A failure in the middle takes back what was done, as the contract of devices has it.
class SteppedDevice final : public host::Device {
 public:
  SteppedDevice(const std::string& folder, Steps& steps, bool is_in_parts)
      : below_(schemas().native(), folder), steps_(steps), is_in_parts_(is_in_parts) {}

  [[nodiscard]] const std::string& name() const override { return below_.name(); }
  std::shared_ptr<const host::DeviceSnapshot> snapshot() override {
    steps_.take();
    return below_.snapshot();
  }
  std::unique_ptr<host::DeviceLock> lock(const host::LockOptions& options) override {
    steps_.take();
    return std::make_unique<Lock>(*this, below_.lock(options));
  }
  std::vector<std::string> commit(const host::DeviceLock& lock, const host::DeviceSnapshot& base, host::TreePtr running,
                                  const host::CommitOptions& options) override {
    const host::DeviceLock& held = dynamic_cast<const Lock&>(lock).below();
    steps_.take();
    if (is_in_parts_) {
      commit_in_parts(held, base, running.get());
    } else {
      below_.commit(held, base, std::move(running), options);
    }
    return {};
  }
  int change_descriptor() override { return below_.change_descriptor(); }
  bool take_changes() override { return below_.take_changes(); }

 private:
  class Lock final : public host::DeviceLock {
   public:
    Lock(const Device& device, std::unique_ptr<host::DeviceLock> below)
        : DeviceLock(device), below_(std::move(below)) {}
    [[nodiscard]] const host::DeviceLock& below() const { return *below_; }

   private:
    std::unique_ptr<host::DeviceLock> below_;
  };

  void commit_in_parts(const host::DeviceLock& held, const host::DeviceSnapshot& base, const lyd_node* running) {
    Changes made;
    try {
      for (const Change& change : find_changes(base.running(), running)) {
        made.push_back(change);
        below_.commit(held, *below_.snapshot(), with_changes(schemas().native(), base.running(), made), {});
        steps_.take();
      }
    } catch (const Error&) {
      below_.commit(held, *below_.snapshot(), copy_of(base.running()), {});
      throw;
    }
  }

  host::FolderDevice below_;
  Steps& steps_;
  bool is_in_parts_;
};

// All that goes with a process, and the folders that stay.
class Daemon {
 public:
  Daemon(const std::string& device, const std::string& state, const Clock& clock, bool is_in_parts)
      : device_(device, steps_, is_in_parts),
        folder_(state, steps_),
        datastores_(schemas().native(), device_, folder_, clock) {
    datastores_.recover();
  }

  Steps& steps() { return steps_; }
  Datastores& datastores() { return datastores_; }

  std::string values(Datastore datastore = kRunning) {
    std::string text;
    for (const unsigned value : priorities_of(*datastores_.snapshot(datastore), 3)) {
      text += (text.empty() ? "" : " ") + std::to_string(value);
    }
    return text;
  }

 private:
  Steps steps_;
  SteppedDevice device_;
  SteppedFolder folder_;
  Datastores datastores_;
};

struct Scenario {
  const char* name;
  std::function<void(Datastores&)> prepare;  // is not interrupted
  std::function<void(Datastores&)> run;
  // What running may be after an interruption and the next start, and what it is when nothing interrupts.
  std::vector<std::string> after_a_kill;
  std::string done;
};

CommitRequest confirmed() {
  return {.may_interrupt = false, .confirmation = Confirmation{}, .persist_id = ""};
}

void edit_candidate(Datastores& datastores) {
  datastores.edit(alice(), kCandidate, setting(0, 9, 3));
  datastores.edit(alice(), kCandidate, setting(1, 8, 3));
}

void commit_confirmed(Datastores& datastores) {
  edit_candidate(datastores);
  datastores.commit(alice(), confirmed());
}

void commit_confirmed_and_edit(Datastores& datastores) {
  commit_confirmed(datastores);
  datastores.edit(alice(), kCandidate, setting(2, 7, 3));
}

void edit_running(Datastores& datastores) {
  datastores.edit(alice(), kRunning, to(priorities({7, 0, 5})));
}

void keep_startup_and_edit_running(Datastores& datastores) {
  datastores.copy(alice(), kRunning, Datastore::kStartup);
  edit_running(datastores);
}

void commit(Datastores& datastores) {
  datastores.commit(alice());
}

void commit_to_be_confirmed(Datastores& datastores) {
  datastores.commit(alice(), confirmed());
}

void cancel(Datastores& datastores) {
  datastores.cancel(alice(), "");
}

void undo(Datastores& datastores) {
  datastores.undo(alice(), 1);
}

void apply_startup(Datastores& datastores) {
  datastores.copy(alice(), Datastore::kStartup, kRunning);
}

const std::vector<Scenario>& scenarios() {
  static const std::vector<Scenario> kScenarios = {
      {"commit", edit_candidate, commit, {"1 2 3", "9 8 3"}, "9 8 3"},
      {"edit of running", [](Datastores&) {}, edit_running, {"1 2 3", "7 0 5"}, "7 0 5"},
      {"confirmed commit", edit_candidate, commit_to_be_confirmed, {"1 2 3"}, "9 8 3"},
      {"second confirmed commit", commit_confirmed_and_edit, commit_to_be_confirmed, {"1 2 3"}, "9 8 7"},
      {"confirmation", commit_confirmed, commit, {"1 2 3", "9 8 3"}, "9 8 3"},
      {"confirmation with more edits", commit_confirmed_and_edit, commit, {"1 2 3", "9 8 7"}, "9 8 7"},
      {"cancel", commit_confirmed, cancel, {"1 2 3"}, "1 2 3"},
      {"undo", edit_running, undo, {"7 0 5", "1 2 3"}, "1 2 3"},
      {"startup applied", keep_startup_and_edit_running, apply_startup, {"7 0 5", "1 2 3"}, "1 2 3"},
  };
  return kScenarios;
}

class FaultsTest : public testing::TestWithParam<std::tuple<size_t, bool>> {
 protected:
  FaultsTest() {
    device_.write("platform.json", R"({"oclacp-platform:platform": {"router-type": 7}})");
    reset();
  }

  [[nodiscard]] static const Scenario& scenario() { return scenarios()[std::get<0>(GetParam())]; }

  void reset() {
    device_.write("running.json", priorities({1, 2, 3}));
    state_.emplace();
  }
  [[nodiscard]] Daemon start() const { return {device_.path(), state_->path(), clock_, std::get<1>(GetParam())}; }

  [[nodiscard]] bool has_something_unfinished() const {
    return std::filesystem::exists(state_->path() + "/journal-intent") ||
           std::filesystem::exists(state_->path() + "/confirmed-commit");
  }
  static void expect_usable(Daemon& daemon) {
    for (const uint64_t number : daemon.datastores().journal().numbers()) {
      static_cast<void>(daemon.datastores().journal().read(number));
    }
    daemon.datastores().edit(alice(), kRunning, to(priorities({4, 4, 4})));
    EXPECT_EQ(daemon.values(), "4 4 4");
  }

  // A process that runs the scenario, killed at a step. Whether it came to its end.
  bool run_killed(size_t step) {
    const pid_t child = fork();
    if (child == 0) {
      Daemon daemon = start();
      scenario().prepare(daemon.datastores());
      daemon.steps().end_at(step, Steps::End::kKill);
      scenario().run(daemon.datastores());
      _exit(daemon.values() == scenario().done ? 0 : 1);
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFSIGNALED(status) || WEXITSTATUS(status) == 0)
        << "without an interruption it comes to something else";
    return WIFEXITED(status);
  }

  // A scenario in which one step fails, and what follows in the same process. Whether the step was reached.
  bool run_failing(size_t step) {
    Daemon daemon = start();
    scenario().prepare(daemon.datastores());
    const std::string before = daemon.values();
    const std::string candidate = daemon.values(kCandidate);
    daemon.steps().end_at(step, Steps::End::kFail);
    const std::string refusal = refusal_of([&] { scenario().run(daemon.datastores()); });
    const bool is_reached = daemon.steps().is_ended();
    daemon.steps().end_at(0, Steps::End::kFail);
    const std::string now = daemon.values();
    EXPECT_THAT(now, AnyOf(before, scenario().done)) << refusal;
    if (refusal == "accepted") {
      EXPECT_EQ(now, scenario().done);
    } else if (now == before) {
      EXPECT_EQ(daemon.values(kCandidate), candidate) << refusal;
    }
    daemon.datastores().end(alice());
    while (daemon.datastores().pending() != nullptr) {
      clock_.pass(std::chrono::hours(1));
      daemon.datastores().expire();
    }
    expect_usable(daemon);
    return is_reached;
  }

  TemporaryFolder device_;
  std::optional<TemporaryFolder> state_;
  TestClock clock_;
};

constexpr size_t kMostSteps = 60;

TEST_P(FaultsTest, KilledAtAnyStep_IsOldOrNewAfterTheNextStart) {
  static_cast<void>(schemas());  // read once, by this process
  size_t step = 0;
  bool is_done = false;
  while (!is_done) {
    ASSERT_LT(++step, kMostSteps);
    SCOPED_TRACE(step);
    reset();
    is_done = run_killed(step);
    Daemon next = start();
    EXPECT_THAT(scenario().after_a_kill, testing::Contains(next.values()));
    EXPECT_FALSE(has_something_unfinished());
    expect_usable(next);
  }
  EXPECT_GT(step, 5U);
}

TEST_P(FaultsTest, RestartKilledAtAnyStep_IsOldOrNewAfterTheOneBehind) {
  static_cast<void>(schemas());
  reset();
  // The last step that leaves something to be done: the device is changed, and that is not known yet.
  size_t interrupted = 0;
  for (size_t step = 1; !run_killed(step); ++step) {
    ASSERT_LT(step, kMostSteps);
    interrupted = has_something_unfinished() ? step : interrupted;
    reset();
  }
  ASSERT_GT(interrupted, 0U);
  for (size_t step = 1;; ++step) {
    ASSERT_LT(step, kMostSteps);
    SCOPED_TRACE(step);
    reset();
    run_killed(interrupted);
    const pid_t child = fork();
    if (child == 0) {
      Steps steps;
      SteppedDevice device(device_.path(), steps, std::get<1>(GetParam()));
      SteppedFolder folder(state_->path(), steps);
      Datastores datastores(schemas().native(), device, folder, clock_);
      steps.end_at(step, Steps::End::kKill);
      datastores.recover();
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    Daemon next = start();
    EXPECT_THAT(scenario().after_a_kill, testing::Contains(next.values()));
    EXPECT_FALSE(has_something_unfinished());
    if (WIFEXITED(status)) {
      EXPECT_EQ(WEXITSTATUS(status), 0);
      break;
    }
  }
}

TEST_P(FaultsTest, AnyStepFails_NothingIsHalfAndTheNextGoesOn) {
  bool is_reached = true;
  for (size_t step = 1; is_reached; ++step) {
    ASSERT_LT(step, kMostSteps);
    SCOPED_TRACE(step);
    reset();
    is_reached = run_failing(step);
    // What the failed step has left is no matter of the next start.
    EXPECT_EQ(start().values(), "4 4 4");
    EXPECT_FALSE(has_something_unfinished());
  }
}

std::string name_of(const testing::TestParamInfo<std::tuple<size_t, bool>>& parameters) {
  std::string name = scenarios()[std::get<0>(parameters.param)].name;
  std::replace(name.begin(), name.end(), ' ', '_');
  return name + (std::get<1>(parameters.param) ? "_InParts" : "");
}

INSTANTIATE_TEST_SUITE_P(Scenarios, FaultsTest,
                         testing::Combine(testing::Range(size_t{0}, scenarios().size()), testing::Bool()), name_of);

}  // namespace
}  // namespace oclacp::server
