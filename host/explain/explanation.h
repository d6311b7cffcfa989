// What the mapping does with a node, in words.
#pragma once

#include <string>
#include <vector>

#include "host/explain/leaf_mapping_finder.h"

namespace oclacp::host {

// All outlive this. Used by one thread at a time.
class Explanation {
 public:
  Explanation(const LeafTables& tables, const Schemas& schemas, Probe& probe, LeafMappingFinder& mappings)
      : tables_(tables), schemas_(schemas), probe_(probe), mappings_(mappings) {}

  // A node of either side. Of a leaf: the functions that serve it, the nodes of the other side in both directions, and
  // how its values are mapped. Of any other node: for each leaf in it, the nodes of the other side. Ends with a line
  // end.
  std::string describe(const lysc_node* node);

 private:
  std::string describe_leaf(const lysc_node* leaf);
  std::string describe_inner_node(const lysc_node* node);
  std::string describe_entries(const lysc_node* list);
  std::string describe_edits(const lysc_node* leaf);
  std::string describe_reads(const lysc_node* leaf);
  std::string describe_reports(const lysc_node* leaf);
  std::string describe_askers(const lysc_node* leaf);
  std::string describe_served(const lysc_node* leaf);
  std::string describe_incoming(const lysc_node* leaf, const std::string& heading);
  std::string describe_bonds(const lysc_node* leaf);
  std::string ways_of(const lysc_node* leaf);
  std::vector<const lysc_node*> entries_named_by(const lysc_node* list);
  [[nodiscard]] bool is_openconfig(const lysc_node* node) const { return node->module->ctx == schemas_.request(); }

  const LeafTables& tables_;
  const Schemas& schemas_;
  Probe& probe_;
  LeafMappingFinder& mappings_;
};

}  // namespace oclacp::host
