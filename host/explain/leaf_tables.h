// The module's tables of leaves, joined with the schemas.
#pragma once

#include <libyang/libyang.h>

#include <vector>

#include "host/translation/loaded_mapping.h"

namespace oclacp::host {

// A row with the nodes that it is about.
struct LeafRow {
  const oclacp_leaf* leaf;
  const lysc_node* schema;
  std::vector<const lysc_node*> targets;  // in the order in which they are served
};

// Rows and targets whose nodes the loaded schemas do not have are left out.
class LeafTables {
 public:
  // `mapping` outlives this. Throws Error when no module has tables.
  explicit LeafTables(LoadedMapping& mapping);

  [[nodiscard]] const std::vector<LeafRow>& openconfig() const { return openconfig_; }
  [[nodiscard]] const std::vector<LeafRow>& native() const { return native_; }

  // The row of a leaf of either side; null when no handler serves it.
  [[nodiscard]] const LeafRow* find(const lysc_node* leaf) const;

 private:
  std::vector<LeafRow> openconfig_;
  std::vector<LeafRow> native_;
};

}  // namespace oclacp::host
