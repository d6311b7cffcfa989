// What data of one side of the mapping is made and written with.
#pragma once

#include "host/trees/schema_index.h"
#include "host/yang/node_shapes.h"
#include "host/yang/value_check.h"

namespace oclacp::host {

// Kept from one request to the next, as each part learns what it is asked for. Used by one thread at a time.
struct TreeContext {
  // `context` outlives this.
  explicit TreeContext(const ly_ctx* context) : index(context) {}

  SchemaIndex index;
  NodeShapes shapes;
  ValueCheck values;
};

}  // namespace oclacp::host
