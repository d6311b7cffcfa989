// What the mapping does with a node, in words.
#pragma once

#include <string>
#include <vector>

#include "host/explain/flows.h"

namespace oclacp::host {

// All outlive this. Used by one thread at a time.
class Explanation {
 public:
  Explanation(const LeafTables& tables, const Schemas& schemas, Probe& probe, Flows& flows)
      : tables_(tables), schemas_(schemas), probe_(probe), flows_(flows) {}

  // A node of either side. Of a leaf: the functions that serve it, the nodes of the other side in both directions, and
  // what becomes of its values. Of any other node: for each leaf in it, the nodes of the other side. Ends with a line
  // end.
  std::string of(const lysc_node* node);

 private:
  std::string of_leaf(const lysc_node* leaf);
  std::string of_inner_node(const lysc_node* node);
  std::string of_entries(const lysc_node* list);
  std::string of_edits(const lysc_node* leaf);
  std::string of_reads(const lysc_node* leaf);
  std::string of_reports(const lysc_node* leaf);
  std::string of_askers(const lysc_node* leaf);
  std::string of_served(const lysc_node* leaf);
  std::string of_incoming(const lysc_node* leaf, const std::string& heading);
  std::string ways_of(const lysc_node* leaf);
  std::vector<const lysc_node*> entries_named_by(const lysc_node* list);
  [[nodiscard]] bool is_openconfig(const lysc_node* node) const { return node->module->ctx == schemas_.request(); }

  const LeafTables& tables_;
  const Schemas& schemas_;
  Probe& probe_;
  Flows& flows_;
};

}  // namespace oclacp::host
