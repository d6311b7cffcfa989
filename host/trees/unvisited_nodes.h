// Nodes of a request that a mapping skips.
#pragma once

#include "host/trees/request_tree.h"

namespace oclacp::host {

// The first node, from the top down, that the module did not enter while it walked the request; null when there is
// none. A key says which entry its entry is and needs no visit.
const yfw_datatree* find_unvisited_node(RequestTree& tree);

}  // namespace oclacp::host
