// What the datastores do at their start.
#include <utility>

#include "host/base/error.h"
#include "server/datastores/datastores.h"

namespace oclacp::server {
namespace {

// Of the changes, what takes back those that a configuration shows as made.
Changes taking_back(const Changes& changes, const lyd_node* running, bool& are_all_made) {
  Changes made;
  for (const Change& change : changes) {
    if (shown_side(running, change) == Shown::kAfter) {
      made.push_back(change);
    }
  }
  are_all_made = made.size() == changes.size();
  return reversed(made);
}

}  // namespace

std::vector<std::string> Datastores::recover() {
  std::vector<std::string> told;
  recover_unfinished(told);
  if (pending_) {
    if (const std::string why = why_pending_ends(); !why.empty()) {
      const std::string whose = pending_->owner.name;
      CommitResult result = roll_back(pending_->owner, "return of a commit that was not confirmed: " + why);
      told.push_back("running: the confirmed commit of " + whose + " is taken back: " + why);
      told.insert(told.end(), result.warnings.begin(), result.warnings.end());
    } else {
      set_deadline();
    }
  }
  last_ = device_.snapshot();
  return told;
}

// Empty when it stays pending. The wall clock is believed as long as it stands between the commit and its deadline.
std::string Datastores::why_pending_ends() const {
  if (pending_->persist_id.empty()) {
    return "its session has ended";
  }
  if (pending_->boot_id != clock_.boot_id() || pending_->boot_id.empty()) {
    return "the machine was started anew";
  }
  const Clock::Wall now = clock_.wall();
  if (now >= pending_->deadline) {
    return "its time is over";
  }
  return now + std::chrono::seconds(1) < pending_->started ? "the clock was set back" : "";
}

void Datastores::recover_unfinished(std::vector<std::string>& told) {
  const std::optional<JournalEntry> entry = journal_.unfinished();
  if (!entry) {
    return;
  }
  const std::string what = "running: a commit of " + entry->by + ", which was interrupted, ";
  const std::unique_ptr<host::DeviceLock> lock =
      device_.lock({.longest_wait = limits_.longest_wait, .owner = "the recovery of an interrupted commit"});
  const std::shared_ptr<const host::DeviceSnapshot> now = device_.snapshot();
  bool are_all_made = false;
  const Changes back = taking_back(entry->changes, now->running(), are_all_made);
  if (are_all_made) {
    journal_.finish();
    told.push_back(what + "is complete");
    return;
  }
  if (!back.empty()) {
    std::vector<std::string> warnings =
        device_.commit(*lock, *now, with_changes(native_, now->running(), back), {.may_interrupt = true});
    told.insert(told.end(), warnings.begin(), warnings.end());
  }
  journal_.abandon();
  told.push_back(what + (back.empty() ? "had changed nothing" : "is taken back"));
}

}  // namespace oclacp::server
