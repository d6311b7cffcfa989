#include "server/datastores/candidate.h"

#include <utility>

#include "host/base/error.h"

namespace oclacp::server {

std::shared_ptr<const host::DeviceSnapshot> Candidate::snapshot() {
  return staged_ ? staged_->snapshot() : device_.snapshot();
}

// What the first edit is made from is kept before it is planned, so that a change of running meanwhile is seen as such.
void Candidate::edit(const Plan& plan) {
  const bool is_first = !staged_;
  if (is_first) {
    staged_.emplace(device_);
  }
  std::optional<host::TreePtr> after;
  try {
    after = plan(*staged_->snapshot());
  } catch (...) {
    if (is_first) {
      staged_.reset();
    }
    throw;
  }
  if (after) {
    staged_->commit(*staged_->lock({}), *staged_->snapshot(), *std::move(after), {});
  } else if (is_first) {
    staged_.reset();
  }
}

Changes Candidate::changes() {
  return staged_ ? find_changes(staged_->base().running(), staged_->snapshot()->running()) : Changes();
}

host::TreePtr Candidate::on(const host::DeviceSnapshot& running) {
  if (!staged_) {
    return copy_of(running.running());
  }
  const Changes theirs = find_changes(staged_->base().running(), running.running());
  if (theirs.empty()) {
    return copy_of(staged_->snapshot()->running());
  }
  const Changes ours = changes();
  if (const Change* in_the_way = find_collision(ours, theirs); in_the_way != nullptr) {
    throw host::Error(host::ErrorKind::kInUse,
                      describe(*in_the_way) + " in running since the candidate was made, which changes the same",
                      {.path = in_the_way->path, .file = "", .line = 0});
  }
  return with_changes(native_, running.running(), ours);
}

}  // namespace oclacp::server
