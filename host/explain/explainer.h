// What a mapping module does, told from its own tables and by running it.
#pragma once

#include <memory>
#include <string>

#include "host/base/export.h"
#include "host/yang/schemas.h"

namespace oclacp::host {

enum class CoverageFormat {
  kTable,  // for people
  kJson,
  kMarkdown,  // a page
  kYang,      // a module that deviates what is not served
};

// A loaded module with its tables and the schemas on both sides. No device is asked. Used by one thread at a time.
class OCLACP_HOST_API Explainer {
 public:
  // `module_file`: the mapping module's shared library. Throws Error.
  Explainer(const SchemaDirectories& schemas, const std::string& module_file);
  ~Explainer();
  Explainer(const Explainer&) = delete;
  Explainer& operator=(const Explainer&) = delete;
  Explainer(Explainer&&) = delete;
  Explainer& operator=(Explainer&&) = delete;

  // What the mapping does with a node of openconfig-lacp or of a native model. `path` is absolute; prefixes and
  // predicates may be there or not, and predicates make no difference. Throws Error when there is no such node.
  std::string explain(const std::string& path);

  // What of openconfig-lacp, as loaded, the mapping serves.
  std::string coverage(CoverageFormat format);

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace oclacp::host
