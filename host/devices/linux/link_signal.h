// Being told when links change.
#pragma once

#include "host/files/file_descriptor.h"

namespace oclacp::host {

// The kernel's messages about links (RTNLGRP_LINK), of which no more is taken than that they came: what changed is read
// anew. Used by one thread at a time.
class LinkSignal {
 public:
  // Of the network namespace that the calling thread is in, in which it stays. Throws std::system_error.
  LinkSignal();
  // Takes over a socket that does not block, with something at its other end that sends as the kernel does.
  explicit LinkSignal(int descriptor) : socket_(descriptor) {}

  // Readable when something came.
  [[nodiscard]] int descriptor() const { return socket_.number(); }

  // Takes what came. Whether that was anything, or something may be lost since too much came.
  bool take();

 private:
  FileDescriptor socket_;
};

}  // namespace oclacp::host
