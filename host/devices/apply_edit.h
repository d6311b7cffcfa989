// Applying a native edit to a configuration.
#pragma once

#include "host/devices/device.h"
#include "host/trees/edit_tree.h"
#include "host/yang/libyang_ptr.h"

namespace oclacp::host {

// What the running configuration of `device` is after an edit: a valid tree of its own. The device stays as it is.
//
// Operations mean what they mean in NETCONF (RFC 6241, 7.2). In particular, what is deleted must be there, what is
// removed need not be, and what is created must not be. A list entry or container that is not there is not made for an
// edit that only takes something out of it.
//
// Throws Error, naming the native node, for what cannot be applied, for a value that the native model does not take,
// and when the result is not valid.
TreePtr apply_edit(const ly_ctx* native, const EditTree& edit, const DeviceSnapshot& device);

}  // namespace oclacp::host
