// What a request creates must not be there.
#pragma once

#include "host/services/current_device.h"
#include "host/trees/request_tree.h"

namespace oclacp::host {

// Refuses a request that creates (RFC 6241, 7.2) a list entry or container of openconfig-lacp that the device has: an
// interface with LACP, or a container with something in it. Leaves are judged where they are set (edit_application.h).
// Throws Error, naming the node.
void check_creations(RequestTree& tree, CurrentDevice& device);

}  // namespace oclacp::host
