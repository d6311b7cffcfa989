// The datastores of a device (RFC 8342): running, candidate and startup, with locks, confirmed commits and a journal.
#pragma once

#include <array>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/devices/device.h"
#include "server/datastores/candidate.h"
#include "server/datastores/change.h"
#include "server/datastores/clock.h"
#include "server/datastores/confirmed_commit.h"
#include "server/datastores/journal.h"
#include "server/datastores/lock_denied.h"
#include "server/datastores/owner.h"
#include "server/datastores/startup_file.h"
#include "server/datastores/state_folder.h"

namespace oclacp::server {

struct DatastoreLimits {
  size_t journal_entries = 100;  // at least 1
  // How long a commit waits for another program that works on the device. A lock is had at once or not at all.
  std::chrono::milliseconds longest_wait = std::chrono::seconds(1);
};

// A commit that comes back unless it is confirmed in time.
struct Confirmation {
  std::chrono::seconds timeout = std::chrono::minutes(10);
  std::string persist_id;  // for PendingCommit
};

// How running is changed.
struct CommitRequest {
  bool may_interrupt = false;                // as in host::CommitOptions
  std::optional<Confirmation> confirmation;  // without it the commit stays, and confirms the one that is pending
  std::string persist_id;                    // of the pending commit that this goes on with; empty for the owner's own
};

// What a change of running came to.
struct CommitResult {
  Changes changes;                    // empty when running was so already
  uint64_t number = 0;                // in the journal; 0 without changes
  std::vector<std::string> warnings;  // a sentence each
};

// All of one device. Whatever changes running does so as one commit, is journalled, and keeps off other programs while
// it goes on. Nobody overwrites what somebody else has changed meanwhile.
//
// Everything throws host::Error and has changed nothing then, unless it is said otherwise: LockDenied when another
// owner has locked what would be changed (kInUse, or kLockDenied for a lock), kInUse while the confirmed commit of
// another one is pending, and what the device throws. Used by one thread at a time.
class Datastores {
 public:
  // All outlive this. Reads what a crash may have left, changes nothing: recover() does.
  Datastores(const ly_ctx* native, host::Device& device, StateFolder& folder, const Clock& clock,
             const DatastoreLimits& limits = {});

  // To be called once before anything else. Brings to its end what a crash of the process or machine has interrupted:
  // a commit of which only a part reached the device is taken back; a confirmed commit comes back unless it has a
  // persist-id, the machine still runs since, and its time is not over. Returns what the log should tell, a sentence
  // each.
  std::vector<std::string> recover();

  // What a datastore holds. That of the candidate has the state of the device, too. kDataMissing for startup when there
  // is none. Startup alone is parsed at each call.
  std::shared_ptr<const host::DeviceSnapshot> snapshot(Datastore datastore);

  // Edits running, as one commit, or the candidate, of which the result is empty. kOperationNotSupported for startup.
  CommitResult edit(const Owner& owner, Datastore target, const Plan& plan, const CommitRequest& request = {});

  // What the candidate holds becomes running. The candidate is running afterwards; a refused commit leaves it as it
  // was. When running has changed since the candidate was made, edits that touch nothing that changed are made again on
  // what it is now; else kInUse says what changed.
  CommitResult commit(const Owner& owner, const CommitRequest& request = {});
  // What is pending comes back now. `persist_id` as in CommitRequest.
  CommitResult cancel(const Owner& owner, const std::string& persist_id);
  // Null for none.
  [[nodiscard]] const PendingCommit* pending() const { return pending_ ? &*pending_ : nullptr; }
  // When the pending commit comes back; expire() does that then. When it fails, it stays pending and this tells when to
  // try again.
  [[nodiscard]] std::optional<Clock::Steady> deadline() const { return deadline_; }
  // Nothing when it is not time.
  std::optional<CommitResult> expire();

  // Throws away the candidate's edits.
  void discard(const Owner& owner);
  // Copies a whole configuration (RFC 6241, 7.3); to running it is one commit.
  CommitResult copy(const Owner& owner, Datastore source, Datastore target, const CommitRequest& request = {});
  // kDataMissing when there is none.
  void delete_startup(const Owner& owner);
  // Whether a datastore holds a valid configuration.
  void validate(Datastore datastore);

  // RFC 6241, 7.5. The lock on running keeps off other programs, too.
  void lock(const Owner& owner, Datastore datastore);
  void unlock(const Owner& owner, Datastore datastore);
  // Null for none.
  [[nodiscard]] const Owner* lock_holder(Datastore datastore) const;
  // The owner is gone: its locks are free, the candidate that it had locked is running again, and its confirmed commit
  // comes back unless it has a persist-id. When that fails it is tried again (deadline()), and the result has the
  // reason as a warning.
  CommitResult end(const Owner& owner);

  [[nodiscard]] const Journal& journal() const { return journal_; }
  // Takes back a commit of the journal by a commit of its own. kInUse, naming the node, when what it would take back
  // has changed since.
  CommitResult undo(const Owner& owner, uint64_t number, const CommitRequest& request = {});

  // What changed running since the last call, other than by these datastores. To be called when the device signals.
  Changes take_outside_changes();
  // What running was at the end of that call, or after the last commit since.
  [[nodiscard]] const std::shared_ptr<const host::DeviceSnapshot>& last_seen() const { return last_; }

 private:
  struct Held {
    Owner owner;
    std::unique_ptr<host::DeviceLock> device;  // of running alone
  };
  // A change of running that is about to be made.
  struct Commit {
    std::shared_ptr<const host::DeviceSnapshot> base;
    host::TreePtr after;
    Changes changes;
  };
  class DeviceUse;

  void check_lock(const Owner& owner, Datastore datastore) const;
  void check_pending(const Owner& owner, const std::string& persist_id) const;
  void check_may_change_running(const Owner& owner, const CommitRequest& request) const;

  CommitResult carry_out(const Owner& owner, const CommitRequest& request, const host::DeviceLock& lock, Commit commit,
                         const std::string& note);
  CommitResult apply(const JournalEntry& entry, const host::DeviceLock& lock, Commit commit,
                     const host::CommitOptions& options);
  bool settle_failed_commit(const Changes& changes);
  [[nodiscard]] PendingCommit make_pending(const Owner& owner, const CommitRequest& request,
                                           const Commit& commit) const;
  void replace_pending(std::optional<PendingCommit> pending);
  void set_deadline();
  [[nodiscard]] JournalEntry make_entry(const Owner& owner, const Changes& changes, const std::string& note) const;
  CommitResult roll_back(const Owner& owner, const std::string& note);
  void recover_unfinished(std::vector<std::string>& told);
  [[nodiscard]] std::string why_pending_ends() const;
  void note_outside_changes(const std::shared_ptr<const host::DeviceSnapshot>& now);

  const ly_ctx* native_;
  host::Device& device_;
  const Clock& clock_;
  DatastoreLimits limits_;
  Candidate candidate_;
  StartupFile startup_;
  Journal journal_;
  ConfirmedCommitFile confirmed_;
  std::optional<PendingCommit> pending_;
  std::optional<Clock::Steady> deadline_;  // of what is pending
  std::array<std::optional<Held>, 3> locks_;
  std::shared_ptr<const host::DeviceSnapshot> last_;  // as far as changes from outside are known
  Changes outside_changes_;                           // that were not told yet
};

}  // namespace oclacp::server
