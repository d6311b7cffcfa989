// What of a published model the mapping serves.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/explain/leaf_mapping_finder.h"

namespace oclacp::host {

// What the mapping does with one leaf.
struct CoveredLeaf {
  const lysc_node* schema;
  bool is_known;  // it has a row in the module's tables
  bool in_edits;  // an edit of it is accepted, and sets something natively
  bool in_reads;  // a read of it asks for something, of which the leaf is made
  // The native leaves that are read as it, in the order of the tables.
  std::vector<const lysc_node*> sources;
  std::optional<std::string> refusal;  // why every request that names it is refused; nothing when one is accepted
  const lysc_node* key = nullptr;  // the list key that carries the value of a leaf without sources; null without one

  [[nodiscard]] bool is_served() const { return in_edits || in_reads; }
};

// Why a leaf that is not served is not, in a few words.
std::string reason_of(const CoveredLeaf& leaf);

struct Coverage {
  const lys_module* module;         // the published model as loaded
  std::vector<CoveredLeaf> leaves;  // all of it, in the schema's order
};

// Every leaf's edit and read is tried.
Coverage find_coverage(const lys_module& model, const LeafTables& tables, Probe& probe, LeafMappingFinder& mappings);

}  // namespace oclacp::host
