// Opaque nodes: those that libyang keeps without a schema, where a leaf has no value, an entry lacks a key, or the
// schema does not know them.
#pragma once

#include <libyang/libyang.h>

#include "host/base/contract.h"

namespace oclacp::host {

// Null for a node with a schema, and for null.
inline const lyd_node_opaq* as_opaque(const lyd_node* node) {
  return node != nullptr && node->schema == nullptr ? reinterpret_cast<const lyd_node_opaq*>(node) : nullptr;
}

// The name of any node.
inline const char* name_of(const lyd_node* node) {
  return node->schema != nullptr ? node->schema->name : as_opaque(node)->name.name;
}

// The schema of an opaque node below `parent`, null for a top node. Throws Error when there is none.
const lysc_node* find_opaque_schema(const ly_ctx* context, const lyd_node_opaq& node, const yfw_datatree* parent);

// The text of an opaque leaf, whose node in the request's tree is `node`; null when it has no value. Throws Error when
// its type does not take the text.
const char* opaque_value(const ly_ctx* context, const lyd_node_opaq& leaf, const yfw_datatree* node);

}  // namespace oclacp::host
