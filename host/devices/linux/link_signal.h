// Being told when links change.
#pragma once

#include <chrono>

#include "host/files/file_descriptor.h"

namespace oclacp::host {

// When somebody looks at links beside at the moment of a message.
struct LookTimes {
  // The kernel tells that a port goes down or comes up, and not how its LACP state machines go on from there.
  std::chrono::milliseconds after_message{100};
  int count_after_message = 10;
  // It tells nothing of what the partner's LACPDUs change, beyond whether a port carries frames.
  std::chrono::milliseconds steady{1000};
};

// The kernel's messages about links (RTNLGRP_LINK), of which no more is taken than that they came: what changed is read
// anew. Besides, the time to look at what the kernel sends no message of. Used by one thread at a time.
class LinkSignal {
 public:
  // Of the network namespace that the calling thread is in, in which it stays. Both throw std::system_error.
  LinkSignal();
  // Takes over a socket that does not block, with something at its other end that sends as the kernel does.
  explicit LinkSignal(int descriptor, const LookTimes& times = {});

  // Readable when something came, or it is time to look.
  [[nodiscard]] int descriptor() const { return both_.number(); }

  // Takes what came. Whether that was anything, or something may be lost since too much came, or it is time to look.
  bool take();

 private:
  void watch(const FileDescriptor& descriptor);
  void set_timer(std::chrono::milliseconds time);
  bool take_messages();
  bool take_time();

  FileDescriptor socket_;
  FileDescriptor timer_;
  FileDescriptor both_;  // an epoll descriptor of the two
  LookTimes times_;
  int looks_left_ = 0;  // of those after a message
};

}  // namespace oclacp::host
