// The configuration that a device is given after a start of the machine.
#pragma once

#include <libyang/libyang.h>

#include "host/yang/libyang_ptr.h"
#include "server/datastores/state_folder.h"

namespace oclacp::server {

// Keeps it in a file, "startup". Used by one thread at a time.
class StartupFile {
 public:
  // Both outlive this. `native`: the context of the configuration.
  StartupFile(const ly_ctx* native, StateFolder& folder) : native_(native), folder_(folder) {}

  // All throw host::Error; the first with ErrorKind::kDataMissing when there is none, as remove() does.
  [[nodiscard]] host::TreePtr read() const;
  void write(const lyd_node* configuration);
  void remove();

 private:
  [[nodiscard]] std::string text() const;

  const ly_ctx* native_;
  StateFolder& folder_;
};

}  // namespace oclacp::server
