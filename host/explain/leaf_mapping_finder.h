// How the values of each leaf are mapped, found out by running the mapping.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/explain/leaf_mapping.h"
#include "host/explain/leaf_tables.h"
#include "host/explain/probe.h"
#include "host/explain/sample_values.h"

namespace oclacp::host {

// What leaves a leaf: an edit of openconfig-lacp sets native leaves, a native leaf is reported as others.
struct LeafMappings {
  std::vector<LeafMapping> mappings;
  // Every value is refused, for this reason. Then there are no mappings.
  std::optional<std::string> refusal;
};

// Used by one thread at a time.
class LeafMappingFinder {
 public:
  // All outlive this.
  LeafMappingFinder(const LeafTables& tables, const Schemas& schemas, Probe& probe)
      : tables_(tables), schemas_(schemas), probe_(probe) {}

  const LeafMappings& from(const lysc_node* leaf);

  // The mappings that lead to a leaf, in the order of the tables.
  std::vector<LeafMapping> to(const lysc_node* leaf);

  // The list key that refers to a leaf of openconfig-lacp and stands for it natively, so that the leaf has no mappings
  // of its own; null when there is none.
  [[nodiscard]] const lysc_node* key_referring_to(const lysc_node* leaf) const;

 private:
  LeafMappings edits_of(const lysc_node* leaf);
  LeafMappings reports_of(const lysc_node* leaf);
  std::vector<const lysc_node*> reported_without(const lysc_node* leaf);
  bool needs_lacp(const LeafMapping& mapping);
  SampleValues samples_with_written(const lysc_node* leaf);

  const LeafTables& tables_;
  const Schemas& schemas_;
  Probe& probe_;
  std::unordered_map<const lysc_node*, LeafMappings> outgoing_;
};

}  // namespace oclacp::host
