// Running a module's walkers.
#pragma once

#include <optional>

#include "host/base/contract.h"
#include "host/base/error.h"
#include "host/translation/record_sinks.h"
#include "host/trees/output_log.h"
#include "host/trees/request_tree.h"

namespace oclacp::host {

// Walks a request under an operation code (YFW_REQUEST_*) into `output`. Throws Error when the request fails.
void walk_request(yfw_map_walker walker, RequestTree& tree, uint32_t operation, OutputLog& output,
                  const RecordSinks& sinks);

// Walks native data, whose top node is `top`, under the operation code of a read into `output`. Returns why the walk
// failed; nothing when it did not.
std::optional<Error> walk_native(yfw_map_walker walker, const yfw_datatree* top, uint32_t operation, OutputLog& output,
                                 const RecordSinks& sinks);

}  // namespace oclacp::host
