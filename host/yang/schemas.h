// The schemas that the host works with.
#pragma once

#include <string>
#include <vector>

#include "host/base/export.h"
#include "host/yang/libyang_ptr.h"

namespace oclacp::host {

// Where schemas are.
struct SchemaDirectories {
  std::string shipped;    // the project's own yang/ folder
  std::string published;  // where published models and what they import are taken from instead; may be empty
};

// A YANG module to load.
struct SchemaModule {
  std::string name;
  std::vector<std::string> features = {};  // those that are enabled
};

// What one mapping needs.
struct MappedSchemas {
  std::string needed_by;                 // for messages, such as the file that names them
  std::vector<std::string> directories;  // where they are
  std::vector<SchemaModule> published;   // requests are made of them
  std::vector<SchemaModule> native;      // the device's data is made of them
};

// The two sides of the mappings, each in a libyang context of its own, so that a request cannot name a native node.
// Both know the NETCONF `operation` attribute. Not copied; used by one thread at a time.
class Schemas {
 public:
  // Of a folder of published models each mapping takes all or nothing, and one at least takes it. Throws Error when a
  // schema cannot be loaded.
  Schemas(const SchemaDirectories& directories, const std::vector<MappedSchemas>& mapped);

  // What a request is read against: the published models.
  [[nodiscard]] const ly_ctx* request() const { return request_.get(); }
  // What native edits and a device's files consist of: the native models and the device's own description.
  [[nodiscard]] const ly_ctx* native() const { return native_.get(); }

 private:
  ContextPtr request_;
  ContextPtr native_;
};

// A context with modules of one folder. Throws Error.
ContextPtr make_schema_context(const std::string& directory, const std::vector<SchemaModule>& modules);

// The module that owns the `operation` attribute, in either context.
const lys_module* operation_module(const ly_ctx* context);

}  // namespace oclacp::host
