// The schemas that the host works with.
#pragma once

#include <string>

#include "host/yang/libyang_ptr.h"

namespace oclacp::host {

// Where schemas are.
struct SchemaDirectories {
  std::string shipped;    // the project's own yang/ folder
  std::string published;  // where openconfig-lacp and what it imports are taken from instead; may be empty
};

// The two sides of the mapping, each in a libyang context of its own, so that a request cannot name a native node. Both
// know the NETCONF `operation` attribute. Not copied; used by one thread at a time.
class Schemas {
 public:
  // Throws Error when a schema cannot be loaded.
  explicit Schemas(const SchemaDirectories& directories);

  // What a request is read against: openconfig-lacp.
  [[nodiscard]] const ly_ctx* request() const { return request_.get(); }
  // What native edits and a device's files are made of: the native models and the device's own description.
  [[nodiscard]] const ly_ctx* native() const { return native_.get(); }

 private:
  ContextPtr request_;
  ContextPtr native_;
};

// The module that owns the `operation` attribute, in either context.
const lys_module* operation_module(const ly_ctx* context);

}  // namespace oclacp::host
