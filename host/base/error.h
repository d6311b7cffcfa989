// The one way in which the host's C++ side says no.
#pragma once

#include <stdexcept>

#include "host/base/export.h"

namespace oclacp::host {

// A request, schema, device or module that cannot be used. what() is one sentence for a person, without a full stop,
// that begins with what it is about: the path of a node ("/openconfig-lacp:lacp/config: ...") or the name of a file.
class OCLACP_HOST_API Error : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace oclacp::host
