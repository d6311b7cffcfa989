// Network namespaces.
#pragma once

#include <string>

#include "host/files/file_descriptor.h"

namespace oclacp::host {

// Where namespaces have names (man ip-netns).
inline constexpr const char* kNamedNamespaces = "/run/netns";

// Moves the calling thread into a network namespace as long as this lives.
class NetworkNamespaceScope {
 public:
  // `name`: of a namespace in kNamedNamespaces; empty for the one that the thread is in. Throws Error, also when the
  // process lacks CAP_SYS_ADMIN, which the kernel wants for a move.
  explicit NetworkNamespaceScope(const std::string& name);
  // Ends the process when the thread cannot go back, since it would go on in the wrong namespace.
  ~NetworkNamespaceScope();
  NetworkNamespaceScope(const NetworkNamespaceScope&) = delete;
  NetworkNamespaceScope& operator=(const NetworkNamespaceScope&) = delete;
  NetworkNamespaceScope(NetworkNamespaceScope&&) = delete;
  NetworkNamespaceScope& operator=(NetworkNamespaceScope&&) = delete;

 private:
  FileDescriptor before_;  // closed when the thread was not moved
};

}  // namespace oclacp::host
