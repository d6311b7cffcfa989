#include "host/explain/explainer.h"

#include "host/base/error.h"
#include "host/explain/coverage_printer.h"
#include "host/explain/deviations.h"
#include "host/explain/explanation.h"
#include "host/yang/schema_nodes.h"

namespace oclacp::host {

struct Explainer::Parts {
  LoadedMapping mapping;
  LeafTables tables;
  Probe probe;
  LeafMappingFinder mappings;

  Parts(const SchemaDirectories& directories, const std::vector<std::string>& libraries)
      : mapping(directories, libraries), tables(mapping), probe(mapping), mappings(tables, mapping.schemas, probe) {}
};

Explainer::Explainer(const SchemaDirectories& schemas, const std::vector<std::string>& libraries)
    : parts_(std::make_unique<Parts>(schemas, libraries)) {}

Explainer::~Explainer() = default;

std::string Explainer::explain(const std::string& path) {
  Explanation explanation(parts_->tables, parts_->mapping.schemas, parts_->probe, parts_->mappings);
  std::string text;
  for (const lysc_node* node : find_nodes(parts_->mapping.schemas, path)) {
    text += (text.empty() ? "" : "\n") + explanation.describe(node);
  }
  return text;
}

std::string Explainer::coverage(const std::string& model, CoverageFormat format) {
  const std::vector<SchemaModule>& published = parts_->mapping.modules.front().manifest().schemas.published;
  const std::string& name = model.empty() ? published.front().name : model;
  const lys_module* module = ly_ctx_get_module_implemented(parts_->mapping.schemas.request(), name.c_str());
  if (module == nullptr || module->compiled->data == nullptr) {
    throw Error(ErrorKind::kInvalidValue, name + ": no mapping module has this published model");
  }
  const Coverage coverage = find_coverage(*module, parts_->tables, parts_->probe, parts_->mappings);
  switch (format) {
    case CoverageFormat::kJson:
      return coverage_json(coverage);
    case CoverageFormat::kMarkdown:
      return coverage_markdown(coverage);
    case CoverageFormat::kYang:
      return deviation_module(coverage);
    case CoverageFormat::kTable:
      break;
  }
  return coverage_table(coverage);
}

}  // namespace oclacp::host
