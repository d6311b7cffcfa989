// Calls of the system that a signal may interrupt.
#pragma once

#include <cerrno>

namespace oclacp::host {

// Makes a system call, such as "[&] { return fsync(descriptor); }", until no signal interrupts it (signal(7)); returns
// what it returned last. Not for close(2), after which the descriptor is gone in any case.
template <typename Call>
auto retry_interrupted(const Call& call) {
  while (true) {
    const auto result = call();
    if (result != -1 || errno != EINTR) {
      return result;
    }
  }
}

}  // namespace oclacp::host
