#include "server/datastores/datastores.h"

#include <algorithm>
#include <utility>

#include "host/base/error.h"
#include "host/yang/libyang_error.h"

namespace oclacp::server {
namespace {

using host::Error;
using host::ErrorKind;

// How long after a rollback that failed it is tried again.
constexpr std::chrono::seconds kRetry(10);

size_t index_of(Datastore datastore) {
  return static_cast<size_t>(datastore);
}

}  // namespace

// The right to change the device: that of whoever has locked running, or one of its own.
class Datastores::DeviceUse {
 public:
  DeviceUse(const Datastores& datastores, const Owner& owner) {
    const std::optional<Held>& held = datastores.locks_[index_of(Datastore::kRunning)];
    if (held) {
      lock_ = held->device.get();
      return;
    }
    try {
      own_ = datastores.device_.lock({.longest_wait = datastores.limits_.longest_wait, .owner = owner.name});
    } catch (const Error& error) {
      if (error.kind() != ErrorKind::kLockDenied) {
        throw;
      }
      throw LockDenied(ErrorKind::kInUse, error.what(), 0);  // who changes something asked for no lock
    }
    lock_ = own_.get();
  }

  [[nodiscard]] const host::DeviceLock& lock() const { return *lock_; }

 private:
  std::unique_ptr<host::DeviceLock> own_;
  const host::DeviceLock* lock_ = nullptr;
};

Datastores::Datastores(const ly_ctx* native, host::Device& device, StateFolder& folder, const Clock& clock,
                       const DatastoreLimits& limits)
    : native_(native),
      device_(device),
      clock_(clock),
      limits_(limits),
      candidate_(native, device),
      startup_(native, folder),
      journal_(folder, limits.journal_entries),
      confirmed_(native, folder),
      pending_(confirmed_.read()) {}

std::shared_ptr<const host::DeviceSnapshot> Datastores::snapshot(Datastore datastore) {
  switch (datastore) {
    case Datastore::kRunning:
      return device_.snapshot();
    case Datastore::kCandidate:
      return candidate_.snapshot();
    case Datastore::kStartup:
      break;
  }
  // The device with another configuration, as a candidate is.
  Candidate startup(native_, device_);
  startup.edit([this](const host::DeviceSnapshot& /*running*/) { return std::optional(startup_.read()); });
  return startup.snapshot();
}

void Datastores::check_lock(const Owner& owner, Datastore datastore) const {
  const Owner* holder = lock_holder(datastore);
  if (holder != nullptr && holder->id != owner.id) {
    throw LockDenied(ErrorKind::kInUse, std::string(to_text(datastore)) + ": is locked by " + holder->name, holder->id);
  }
}

void Datastores::check_pending(const Owner& owner, const std::string& persist_id) const {
  if (!persist_id.empty() && (!pending_ || pending_->persist_id != persist_id)) {
    throw Error(ErrorKind::kInvalidValue, "no confirmed commit with the persist-id '" + persist_id + "' is pending");
  }
  if (pending_ && persist_id.empty() && (!pending_->persist_id.empty() || pending_->owner.id != owner.id)) {
    throw Error(ErrorKind::kInUse, "running: the confirmed commit of " + pending_->owner.name + " is pending until " +
                                       to_text(pending_->deadline));
  }
}

void Datastores::check_may_change_running(const Owner& owner, const CommitRequest& request) const {
  check_lock(owner, Datastore::kRunning);
  check_pending(owner, request.persist_id);
}

CommitResult Datastores::edit(const Owner& owner, Datastore target, const Plan& plan, const CommitRequest& request) {
  if (target == Datastore::kStartup) {
    throw Error(ErrorKind::kOperationNotSupported, "startup: is copied or deleted as a whole, and not edited");
  }
  if (target == Datastore::kCandidate) {
    check_lock(owner, target);
    candidate_.edit(plan);
    return {};
  }
  check_may_change_running(owner, request);
  const DeviceUse use(*this, owner);
  Commit commit = {device_.snapshot(), nullptr, {}};
  if (std::optional<host::TreePtr> after = plan(*commit.base)) {
    commit.changes = find_changes(commit.base->running(), after->get());
    commit.after = *std::move(after);
  }
  return carry_out(owner, request, use.lock(), std::move(commit), "");
}

CommitResult Datastores::commit(const Owner& owner, const CommitRequest& request) {
  check_lock(owner, Datastore::kCandidate);
  check_may_change_running(owner, request);
  const DeviceUse use(*this, owner);
  Commit commit = {device_.snapshot(), nullptr, {}};
  commit.after = candidate_.on(*commit.base);
  commit.changes = find_changes(commit.base->running(), commit.after.get());
  CommitResult result = carry_out(owner, request, use.lock(), std::move(commit), "");
  candidate_.discard();
  return result;
}

// What is to come back if nobody confirms is durable before the device is changed. A commit that confirms is part of
// what comes back until it is confirmed, so that a crash never leaves half.
CommitResult Datastores::carry_out(const Owner& owner, const CommitRequest& request, const host::DeviceLock& lock,
                                   Commit commit, const std::string& note) {
  const bool is_expected_back = request.confirmation || (pending_ && !commit.changes.empty());
  std::optional<PendingCommit> previous;
  if (is_expected_back) {
    previous = std::exchange(pending_, make_pending(owner, request, commit));
  }
  const Changes changes = commit.changes;
  CommitResult result;
  try {
    if (is_expected_back) {
      confirmed_.write(*pending_);
    }
    const JournalEntry entry = make_entry(owner, changes, note);
    result = apply(entry, lock, std::move(commit), {.may_interrupt = request.may_interrupt});
  } catch (const Error&) {
    const bool is_in_place = settle_failed_commit(changes);
    if (is_in_place && request.confirmation) {
      set_deadline();
    } else if (!is_in_place && is_expected_back) {
      replace_pending(std::move(previous));
    }
    throw;
  }
  if (request.confirmation) {
    set_deadline();
  } else if (pending_) {
    replace_pending(std::nullopt);
  }
  return result;
}

JournalEntry Datastores::make_entry(const Owner& owner, const Changes& changes, const std::string& note) const {
  return {0, clock_.wall(), owner.user, owner.name, note, changes};
}

CommitResult Datastores::apply(const JournalEntry& entry, const host::DeviceLock& lock, Commit commit,
                               const host::CommitOptions& options) {
  CommitResult result;
  if (commit.changes.empty()) {
    return result;
  }
  journal_.begin(entry);
  note_outside_changes(commit.base);
  result.warnings = device_.commit(lock, *commit.base, std::move(commit.after), options);
  result.changes = std::move(commit.changes);
  // It is done; what fails now is told, and nothing more.
  try {
    result.number = journal_.finish();
    last_ = device_.snapshot();
  } catch (const Error& error) {
    result.warnings.emplace_back(error.what());
  }
  return result;
}

// Whether a commit that failed is in place all the same, as one that could not be made durable. It is journalled then.
bool Datastores::settle_failed_commit(const Changes& changes) {
  if (changes.empty()) {
    return false;
  }
  try {
    const std::shared_ptr<const host::DeviceSnapshot> now = device_.snapshot();
    const bool is_done = std::all_of(changes.begin(), changes.end(), [&](const Change& change) {
      return shown_side(now->running(), change) == Shown::kAfter;
    });
    if (!is_done) {
      journal_.abandon();
    } else if (journal_.unfinished()) {
      journal_.finish();
    }
    return is_done;
  } catch (const Error&) {
    return false;  // the next start looks again at what was begun
  }
}

// The first of several confirmed commits tells what comes back.
PendingCommit Datastores::make_pending(const Owner& owner, const CommitRequest& request, const Commit& commit) const {
  const lyd_node* now = commit.base->running();
  PendingCommit next;
  next.owner = pending_ ? pending_->owner : owner;
  next.persist_id = request.confirmation ? request.confirmation->persist_id : pending_->persist_id;
  next.started = clock_.wall();
  next.deadline = request.confirmation ? next.started + request.confirmation->timeout : pending_->deadline;
  next.boot_id = clock_.boot_id();
  next.before = copy_of(pending_ ? pending_->before.get() : now);
  next.changes = find_changes(next.before.get(), commit.changes.empty() ? now : commit.after.get());
  return next;
}

void Datastores::replace_pending(std::optional<PendingCommit> pending) {
  if (pending) {
    confirmed_.write(*pending);
  } else {
    confirmed_.remove();
    deadline_.reset();
  }
  pending_ = std::move(pending);
}

void Datastores::set_deadline() {
  const Clock::Wall::duration left = std::max(pending_->deadline - clock_.wall(), Clock::Wall::duration(0));
  deadline_ = clock_.steady() + std::chrono::duration_cast<Clock::Steady::duration>(left);
}

CommitResult Datastores::cancel(const Owner& owner, const std::string& persist_id) {
  if (!pending_) {
    throw Error(ErrorKind::kInvalidValue, "no confirmed commit is pending");
  }
  check_lock(owner, Datastore::kRunning);
  check_pending(owner, persist_id);
  return roll_back(owner, "cancel of a confirmed commit");
}

std::optional<CommitResult> Datastores::expire() {
  if (!deadline_ || clock_.steady() < *deadline_) {
    return std::nullopt;
  }
  deadline_ = clock_.steady() + kRetry;  // unless it succeeds
  return roll_back(pending_->owner, "return of a commit that was not confirmed in time");
}

CommitResult Datastores::roll_back(const Owner& owner, const std::string& note) {
  const DeviceUse use(*this, owner);
  Commit commit = {device_.snapshot(), nullptr, {}};
  commit.after = without_commit(native_, *pending_, commit.base->running());
  commit.changes = find_changes(commit.base->running(), commit.after.get());
  const Changes changes = commit.changes;
  CommitResult result;
  try {
    // To take back what was allowed is always allowed.
    result = apply(make_entry(owner, changes, note), use.lock(), std::move(commit), {.may_interrupt = true});
  } catch (const Error&) {
    static_cast<void>(settle_failed_commit(changes));
    throw;
  }
  replace_pending(std::nullopt);
  return result;
}

void Datastores::discard(const Owner& owner) {
  check_lock(owner, Datastore::kCandidate);
  candidate_.discard();
}

CommitResult Datastores::copy(const Owner& owner, Datastore source, Datastore target, const CommitRequest& request) {
  if (source == target) {
    throw Error(ErrorKind::kInvalidValue, std::string(to_text(target)) + ": is copied to itself");
  }
  if (target == Datastore::kRunning) {
    check_may_change_running(owner, request);
    const DeviceUse use(*this, owner);
    Commit commit = {device_.snapshot(), copy_of(snapshot(source)->running()), {}};
    commit.changes = find_changes(commit.base->running(), commit.after.get());
    return carry_out(owner, request, use.lock(), std::move(commit), std::string("copy of ") + to_text(source));
  }
  check_lock(owner, target);
  const std::shared_ptr<const host::DeviceSnapshot> copied = snapshot(source);
  if (target == Datastore::kStartup) {
    startup_.write(copied->running());
  } else if (source == Datastore::kRunning) {
    candidate_.discard();
  } else {
    candidate_.edit([&](const host::DeviceSnapshot& /*current*/) { return std::optional(copy_of(copied->running())); });
  }
  return {};
}

void Datastores::delete_startup(const Owner& owner) {
  check_lock(owner, Datastore::kStartup);
  startup_.remove();
}

void Datastores::validate(Datastore datastore) {
  lyd_node* tree = copy_of(snapshot(datastore)->running()).release();
  const LY_ERR status = lyd_validate_all(&tree, native_, LYD_VALIDATE_NO_STATE, nullptr);
  const host::TreePtr owned(tree);
  if (status != LY_SUCCESS) {
    throw host::libyang_error(native_, to_text(datastore), "native ");
  }
}

void Datastores::lock(const Owner& owner, Datastore datastore) {
  const std::string name = to_text(datastore);
  if (const Owner* holder = lock_holder(datastore); holder != nullptr) {
    throw LockDenied(ErrorKind::kLockDenied, name + ": is locked by " + holder->name, holder->id);
  }
  if (datastore == Datastore::kCandidate && candidate_.is_changed()) {
    throw LockDenied(ErrorKind::kLockDenied, name + ": has edits that were neither committed nor discarded", 0);
  }
  Held held = {owner, nullptr};
  if (datastore == Datastore::kRunning) {
    if (pending_ && pending_->owner.id != owner.id) {
      throw LockDenied(ErrorKind::kLockDenied,
                       name + ": the confirmed commit of " + pending_->owner.name + " is pending", pending_->owner.id);
    }
    try {
      held.device = device_.lock({.longest_wait = std::chrono::milliseconds(0), .owner = owner.name});
    } catch (const Error& error) {
      if (error.kind() != ErrorKind::kLockDenied) {
        throw;
      }
      throw LockDenied(error.kind(), error.what(), 0);
    }
  }
  locks_[index_of(datastore)] = std::move(held);
}

void Datastores::unlock(const Owner& owner, Datastore datastore) {
  const Owner* holder = lock_holder(datastore);
  if (holder == nullptr || holder->id != owner.id) {
    throw Error(ErrorKind::kOperationFailed, std::string(to_text(datastore)) + ": is " +
                                                 (holder == nullptr ? "not locked" : "locked by " + holder->name));
  }
  locks_[index_of(datastore)].reset();
}

const Owner* Datastores::lock_holder(Datastore datastore) const {
  const std::optional<Held>& held = locks_[index_of(datastore)];
  return held ? &held->owner : nullptr;
}

CommitResult Datastores::end(const Owner& owner) {
  CommitResult result;
  if (pending_ && pending_->persist_id.empty() && pending_->owner.id == owner.id) {
    try {
      result = roll_back(owner, "return of a commit that was not confirmed by the end of its session");
    } catch (const Error& error) {
      deadline_ = clock_.steady() + kRetry;
      result.warnings.emplace_back(error.what());
    }
  }
  if (const Owner* holder = lock_holder(Datastore::kCandidate); holder != nullptr && holder->id == owner.id) {
    candidate_.discard();
  }
  for (std::optional<Held>& held : locks_) {
    if (held && held->owner.id == owner.id) {
      held.reset();
    }
  }
  return result;
}

CommitResult Datastores::undo(const Owner& owner, uint64_t number, const CommitRequest& request) {
  check_may_change_running(owner, request);
  const JournalEntry entry = journal_.read(number);
  const DeviceUse use(*this, owner);
  Commit commit = {device_.snapshot(), nullptr, {}};
  if (const std::string path = find_departure(commit.base->running(), entry.changes); !path.empty()) {
    throw host::node_error(ErrorKind::kInUse, path,
                           "has changed since commit " + std::to_string(number) + ", which stays as it is");
  }
  commit.changes = reversed(entry.changes);
  commit.after = with_changes(native_, commit.base->running(), commit.changes);
  return carry_out(owner, request, use.lock(), std::move(commit), "undo of commit " + std::to_string(number));
}

Changes Datastores::take_outside_changes() {
  static_cast<void>(device_.take_changes());
  note_outside_changes(device_.snapshot());
  return std::exchange(outside_changes_, {});
}

void Datastores::note_outside_changes(const std::shared_ptr<const host::DeviceSnapshot>& now) {
  if (last_ != nullptr && last_->version().configuration != now->version().configuration) {
    const Changes changes = find_changes(last_->running(), now->running());
    outside_changes_.insert(outside_changes_.end(), changes.begin(), changes.end());
  }
  last_ = now;
}

}  // namespace oclacp::server
