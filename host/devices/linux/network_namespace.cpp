#include "host/devices/linux/network_namespace.h"

#include <fcntl.h>
#include <sched.h>

#include <cerrno>
#include <cstring>
#include <exception>

#include "host/base/error.h"
#include "host/files/system_call.h"

namespace oclacp::host {
namespace {

constexpr int kNone = -1;

int open_namespace(const char* file) {
  return retry_interrupted([&] { return open(file, O_RDONLY | O_CLOEXEC); });
}

}  // namespace

NetworkNamespaceScope::NetworkNamespaceScope(const std::string& name)
    : before_(name.empty() ? kNone : open_namespace("/proc/thread-self/ns/net")) {
  if (name.empty()) {
    return;
  }
  if (name.find('/') != std::string::npos || name == "." || name == "..") {
    throw Error(ErrorKind::kOperationFailed, "linux:" + name + ": not the name of a network namespace");
  }
  const FileDescriptor wanted(open_namespace((std::string(kNamedNamespaces) + "/" + name).c_str()));
  if (!wanted.is_open()) {
    throw Error(ErrorKind::kOperationFailed,
                "linux:" + name + ": " +
                    (errno == ENOENT ? "there is no network namespace of this name" : std::strerror(errno)));
  }
  if (!before_.is_open()) {
    throw Error(ErrorKind::kOperationFailed, "linux:" + name + ": /proc/thread-self/ns/net: " + std::strerror(errno));
  }
  if (setns(wanted.number(), CLONE_NEWNET) != 0) {
    throw Error(ErrorKind::kOperationFailed,
                "linux:" + name + ": " +
                    (errno == EPERM ? "to enter a network namespace takes CAP_SYS_ADMIN" : std::strerror(errno)));
  }
}

NetworkNamespaceScope::~NetworkNamespaceScope() {
  if (before_.is_open() && setns(before_.number(), CLONE_NEWNET) != 0) {
    std::terminate();
  }
}

}  // namespace oclacp::host
