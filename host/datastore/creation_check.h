// What a request creates must not be there.
#pragma once

#include "host/datastore/installed_device.h"
#include "host/framework/request_tree.h"

namespace oclacp::host {

// Refuses a request that creates (RFC 6241, 7.2) a list entry or container of openconfig-lacp that the device has: an
// interface with LACP, or a container with something in it. Leaves are judged where they are set (edit_application.h).
// Throws Refusal, naming the node.
void check_creations(RequestTree& tree, InstalledDevice& device);

}  // namespace oclacp::host
