#include "host/explain/coverage.h"

#include "host/yang/schema_nodes.h"

namespace oclacp::host {
namespace {

CoveredLeaf cover(const LeafTables& tables, Probe& probe, LeafMappingFinder& mappings, const lysc_node* leaf) {
  CoveredLeaf covered{leaf, tables.find(leaf) != nullptr, false, false, {}, std::nullopt};
  for (const LeafMapping& mapping : mappings.to(leaf)) {
    covered.sources.push_back(mapping.from);
  }
  const LeafMappings& outgoing = mappings.from(leaf);
  covered.in_edits = !outgoing.mappings.empty();
  const ProbeResult asked = probe.read(leaf);
  covered.in_reads = !asked.leaves.empty() && !covered.sources.empty();
  if (outgoing.refusal) {
    covered.refusal = asked.refusal;
  }
  if (covered.is_served()) {
    return covered;
  }
  // Natively the name of an entry is kept once, as its key.
  covered.key = mappings.key_referring_to(leaf);
  if (covered.key != nullptr) {
    covered.in_edits = !outgoing.refusal && !mappings.from(covered.key).mappings.empty();
    covered.in_reads = !mappings.to(covered.key).empty();
  }
  return covered;
}

}  // namespace

std::string reason_of(const CoveredLeaf& leaf) {
  if (!leaf.is_known) {
    return "unknown to the mapping";
  }
  return std::string(leaf.refusal ? "refused" : "has no effect") + (leaf.sources.empty() ? ", has no source" : "");
}

Coverage find_coverage(const lys_module& model, const LeafTables& tables, Probe& probe, LeafMappingFinder& mappings) {
  Coverage coverage{&model, {}};
  for (const lysc_node* top = coverage.module->compiled->data; top != nullptr; top = top->next) {
    for (const lysc_node* leaf : leaves_of(top)) {
      coverage.leaves.push_back(cover(tables, probe, mappings, leaf));
    }
  }
  return coverage;
}

}  // namespace oclacp::host
