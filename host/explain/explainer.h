// What a mapping module does, told from its own tables and by running it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/base/export.h"
#include "host/yang/schemas.h"

namespace oclacp::host {

enum class CoverageFormat {
  kTable,  // for people
  kJson,
  kMarkdown,  // a page
  kYang,      // a module that deviates what is not served
};

// Loaded modules with their tables and the schemas on both sides. No device is asked. Used by one thread at a time.
class OCLACP_HOST_API Explainer {
 public:
  // `libraries`: the mapping modules' shared libraries, each with its manifest beside it. Throws Error.
  Explainer(const SchemaDirectories& schemas, const std::vector<std::string>& libraries);
  ~Explainer();
  Explainer(const Explainer&) = delete;
  Explainer& operator=(const Explainer&) = delete;
  Explainer(Explainer&&) = delete;
  Explainer& operator=(Explainer&&) = delete;

  // What the mapping does with a node of a published or of a native model. `path` is absolute; prefixes and
  // predicates may be there or not, and predicates make no difference. Throws Error when there is no such node.
  std::string explain(const std::string& path);

  // What of a published model, as loaded, the mapping serves. `model` is a name; empty for the first that a manifest
  // names. Throws Error when no mapping has it.
  std::string coverage(const std::string& model, CoverageFormat format);

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace oclacp::host
