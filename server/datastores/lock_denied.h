// What somebody is told whose way a lock is in.
#pragma once

#include <cstdint>
#include <string>

#include "host/base/error.h"

namespace oclacp::server {

// kLockDenied for whoever wants a lock, kInUse for whoever wants to change what is locked.
class LockDenied : public host::Error {
 public:
  LockDenied(host::ErrorKind kind, const std::string& sentence, uint64_t holder)
      : host::Error(kind, sentence), holder_(holder) {}

  // The session that holds it; 0 for another program, or when it is no session's (RFC 6241, 7.5).
  [[nodiscard]] uint64_t holder() const { return holder_; }

 private:
  uint64_t holder_;
};

}  // namespace oclacp::server
