// Who works with the datastores.
#pragma once

#include <cstdint>
#include <string>

namespace oclacp::server {

enum class Datastore { kRunning, kCandidate, kStartup };

// "running", "candidate", "startup".
inline const char* to_text(Datastore datastore) {
  switch (datastore) {
    case Datastore::kRunning:
      return "running";
    case Datastore::kCandidate:
      return "candidate";
    case Datastore::kStartup:
      break;
  }
  return "startup";
}

// A session, or whatever else locks and changes.
struct Owner {
  uint64_t id = 0;   // of the session, from 1; no other one of the same process has had it. 0: the daemon itself
  std::string user;  // "admin"
  std::string name;  // for messages and the journal: "NETCONF session 7"
};

}  // namespace oclacp::server
