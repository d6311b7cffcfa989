// The commit that comes back unless it is confirmed (RFC 6241, 8.4).
#pragma once

#include <optional>
#include <string>

#include "host/yang/libyang_ptr.h"
#include "server/datastores/change.h"
#include "server/datastores/clock.h"
#include "server/datastores/owner.h"
#include "server/datastores/state_folder.h"

namespace oclacp::server {

struct PendingCommit {
  Owner owner;
  // By which any session confirms or cancels it; empty for one that only its owner does, and that ends with the owner.
  std::string persist_id;
  Clock::Wall started;
  Clock::Wall deadline;
  std::string boot_id;   // of the run of the machine that it was made in
  host::TreePtr before;  // the running configuration that comes back
  Changes changes;       // from there to what was committed last
};

// Keeps the one that is pending in a file, "confirmed-commit". Used by one thread at a time.
class ConfirmedCommitFile {
 public:
  // Both outlive this.
  ConfirmedCommitFile(const ly_ctx* native, StateFolder& folder) : native_(native), folder_(folder) {}

  // Nothing when none is pending. All throw host::Error.
  [[nodiscard]] std::optional<PendingCommit> read() const;
  void write(const PendingCommit& pending);
  void remove();

 private:
  const ly_ctx* native_;
  StateFolder& folder_;
};

// The configuration that brings back what was before a pending commit. What other programs changed meanwhile elsewhere
// stays. Where they changed the same, all of the configuration before the commit comes back. Throws host::Error.
host::TreePtr without_commit(const ly_ctx* native, const PendingCommit& pending, const lyd_node* running);

}  // namespace oclacp::server
