#include "host/explain/coverage.h"

#include "host/explain/schema_path.h"

namespace oclacp::host {
namespace {

bool is_asked_for(Probe& probe, const lysc_node* leaf) {
  const ProbeResult asked = probe.read(leaf);
  return !asked.refusal && !asked.leaves.empty();
}

CoveredLeaf cover(const LeafTables& tables, Probe& probe, Flows& flows, const lysc_node* leaf) {
  const LeafRow* row = tables.find(leaf);
  CoveredLeaf covered{leaf, row != nullptr, false, false, {}};
  const Outgoing& outgoing = flows.from(leaf);
  covered.in_edits = !outgoing.flows.empty();
  covered.in_reads = is_asked_for(probe, leaf) && !flows.to(leaf).empty();
  if (covered.is_served()) {
    covered.sources = row == nullptr ? std::vector<const lysc_node*>() : row->targets;
    return covered;
  }
  // Natively the name of an entry is kept once, as its key.
  covered.key = flows.key_referring_to(leaf);
  if (covered.key != nullptr) {
    covered.in_edits = !outgoing.refusal && !flows.from(covered.key).flows.empty();
    covered.in_reads = !flows.to(covered.key).empty();
  }
  return covered;
}

}  // namespace

Coverage find_coverage(const LeafTables& tables, const Schemas& schemas, Probe& probe, Flows& flows) {
  Coverage coverage{ly_ctx_get_module_implemented(schemas.request(), "openconfig-lacp"), {}};
  for (const lysc_node* top = coverage.module->compiled->data; top != nullptr; top = top->next) {
    for (const lysc_node* leaf : leaves_of(top)) {
      coverage.leaves.push_back(cover(tables, probe, flows, leaf));
    }
  }
  return coverage;
}

}  // namespace oclacp::host
