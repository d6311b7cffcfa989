#include "host/explain/explainer.h"

#include "host/explain/coverage_printer.h"
#include "host/explain/deviations.h"
#include "host/explain/explanation.h"
#include "host/yang/schema_nodes.h"

namespace oclacp::host {

struct Explainer::Parts {
  Schemas schemas;
  TreeContext openconfig;
  SchemaIndex native;
  MappingModule module;
  LeafTables tables;
  Probe probe;
  LeafMappingFinder mappings;

  Parts(const SchemaDirectories& directories, const std::string& module_file)
      : schemas(directories),
        openconfig(schemas.request()),
        native(schemas.native()),
        module(module_file),
        tables(module, openconfig.index, native),
        probe(module, schemas, openconfig, native),
        mappings(tables, schemas, probe) {}
};

Explainer::Explainer(const SchemaDirectories& schemas, const std::string& module_file)
    : parts_(std::make_unique<Parts>(schemas, module_file)) {}

Explainer::~Explainer() = default;

std::string Explainer::explain(const std::string& path) {
  Explanation explanation(parts_->tables, parts_->schemas, parts_->probe, parts_->mappings);
  std::string text;
  for (const lysc_node* node : find_nodes(parts_->schemas, path)) {
    text += (text.empty() ? "" : "\n") + explanation.describe(node);
  }
  return text;
}

std::string Explainer::coverage(CoverageFormat format) {
  const Coverage coverage = find_coverage(parts_->tables, parts_->schemas, parts_->probe, parts_->mappings);
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
