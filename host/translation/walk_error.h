// What to report about a walk that failed.
#pragma once

#include "host/base/error.h"
#include "host/services/mapping_context.h"
#include "host/trees/request_tree.h"

namespace oclacp::host {

// One sentence that names the node and the reason: "/openconfig-lacp:lacp/...: not supported by this mapping (error tag
// 'state', code 0xaaf2ee00)". `status` is the entry walker's.
Error request_error(const MappingContext& context, RequestTree& tree, cerrno status);

// The same for a walk of native data, which begins at `top`.
Error native_error(const MappingContext& context, const yfw_datatree* top, cerrno status);

}  // namespace oclacp::host
