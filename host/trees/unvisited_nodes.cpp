#include "host/trees/unvisited_nodes.h"

#include <algorithm>

#include "host/trees/node.h"

namespace oclacp::host {

const yfw_datatree* find_unvisited_node(RequestTree& tree) {
  const auto found = std::find_if(tree.nodes().begin(), tree.nodes().end(), [](const yfw_datatree& node) {
    return (node.hierarchy_flags & YFW_HIERARCHY_ENTERED) == 0 && !lysc_is_key(info_of(&node).schema);
  });
  return found == tree.nodes().end() ? nullptr : &*found;
}

}  // namespace oclacp::host
