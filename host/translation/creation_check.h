// What a request creates must not be there.
#pragma once

#include <string>
#include <vector>

#include "host/services/current_device.h"
#include "host/trees/request_tree.h"

namespace oclacp::host {

// Refuses a request that creates (RFC 6241, 7.2) a list entry or container of openconfig-lacp that the device has: an
// interface with LACP, or a container with something in it. Leaves are judged where they are set (edit_application.h).
// Throws Error, naming the node.
void check_creations(RequestTree& tree, CurrentDevice& device);

// Refuses a request that creates a list entry or container without setting anything in it. LACP is configured on an
// interface by its settings: natively there is nothing that such a create would leave behind, so that it would not be
// there afterwards. Throws Error, naming the node.
void check_creations_set_something(RequestTree& tree);

// Why the list entries that a request names without doing anything in them would not be there after it, as the device
// does not have them now; a sentence each. For the same reason, only that a merge promises less.
std::vector<std::string> find_entries_without_settings(RequestTree& tree, CurrentDevice& device);

}  // namespace oclacp::host
