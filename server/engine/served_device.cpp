#include "server/engine/served_device.h"

#include <utility>

#include "host/base/error.h"
#include "host/devices/open_device.h"
#include "host/present/answer_writer.h"

namespace oclacp::server {

ServedDevice::ServedDevice(ServedDeviceSettings settings)
    : settings_(std::move(settings)),
      translator_(settings_.schemas, settings_.module_file),
      device_(host::open_device(translator_.native_context(), settings_.device)),
      folder_(settings_.state_folder),
      datastores_(translator_.native_context(), *device_, folder_, clock_, settings_.limits),
      answers_([this](const host::DeviceSnapshot& snapshot, const std::vector<std::string>& paths,
                      const host::ReadOptions& options) { return translator_.get(snapshot, paths, options); },
               settings_.cached_answers),
      watch_([this](const PathWatch::Path& path) {
        const std::shared_ptr<const host::DeviceSnapshot> snapshot =
            seen_ != nullptr ? seen_ : datastores_.snapshot(Datastore::kRunning);
        return leaves_of(answers_.get(snapshot, {path.first}, {.content = path.second, .keeps_going = true})->data);
      }) {
  // From here on, so that nothing is missed between the first look and the first signal.
  device_->change_descriptor();
  for (const std::string& sentence : datastores_.recover()) {
    settings_.log(sentence);
  }
}

std::shared_ptr<const host::Answer> ServedDevice::read(Datastore datastore, const std::vector<std::string>& paths,
                                                       const host::ReadOptions& options) {
  return answers_.get(datastores_.snapshot(datastore), paths, options);
}

std::string ServedDevice::get(Datastore datastore, const std::vector<std::string>& paths,
                              const host::ReadOptions& options, host::Format format) {
  return host::print_answer(read(datastore, paths, options)->data, host::libyang_format(format));
}

CommitResult ServedDevice::edit(const Owner& owner, Datastore target, const std::string& request,
                                const host::PlanOptions& options, const CommitRequest& commit) {
  std::vector<std::string> warnings;
  CommitResult result = datastores_.edit(
      owner, target,
      [&](const host::DeviceSnapshot& current) -> std::optional<host::TreePtr> {
        host::EditPlan plan = translator_.plan_edit(request, current, options);
        warnings = plan.warnings;
        return plan.changes_something() ? std::optional(std::move(plan.running)) : std::nullopt;
      },
      commit);
  result.warnings.insert(result.warnings.begin(), warnings.begin(), warnings.end());
  return result;
}

int ServedDevice::descriptor() noexcept {
  try {
    return device_->change_descriptor();
  } catch (const host::Error&) {
    return -1;  // it was there at the start
  }
}

// The snapshot is one for all who are told.
void ServedDevice::take_signal() noexcept {
  try {
    const Changes outside = datastores_.take_outside_changes();
    if (!outside.empty()) {
      tell_outside_(outside);
    }
    if (watch_.size() != 0) {
      seen_ = datastores_.last_seen();
      watch_.update();
    }
  } catch (const host::Error& error) {
    log_failure(error);
  }
  seen_ = nullptr;
}

void ServedDevice::meet_deadline() noexcept {
  try {
    if (const std::optional<CommitResult> result = datastores_.expire()) {
      settings_.log("running: a commit that was not confirmed in time is taken back");
      for (const std::string& warning : result->warnings) {
        settings_.log(warning);
      }
    }
  } catch (const host::Error& error) {
    log_failure(error);
  }
}

void ServedDevice::log_failure(const host::Error& error) const noexcept {
  try {
    settings_.log(error.what());
  } catch (const std::exception&) {
    return;  // nothing is left to tell it to
  }
}

}  // namespace oclacp::server
