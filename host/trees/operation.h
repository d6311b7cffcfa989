// Edit operations of nodes.
#pragma once

#include "host/base/contract.h"

namespace oclacp::host {

// Whether an operation (YFW_OPERATION_*) takes something away and puts nothing in its place.
constexpr bool deletes(uint32_t operation) {
  return operation == YFW_OPERATION_DELETE || operation == YFW_OPERATION_REMOVE;
}

}  // namespace oclacp::host
