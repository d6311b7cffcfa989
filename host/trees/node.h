// Nodes as the module walks them: the contract's record, and what the host knows of it.
#pragma once

#include <libyang/libyang.h>

#include <string>

#include "host/base/contract.h"

namespace oclacp::host {

// What the framework knows of a node beyond the contract's record: the target of yfw_datatree::framework.
struct NodeInfo {
  yfw_datatree* parent;     // null at the top
  const lyd_node* data;     // opaque (without schema) where a leaf has no value or an entry lacks a key; null for a
                            // node that the request does not name
  const lysc_node* schema;  // never null
};

inline const NodeInfo& info_of(const yfw_datatree* node) {
  return *static_cast<const NodeInfo*>(node->framework);
}

// The path of a node with module prefixes where they change, and with its list entries' keys; an entry without its keys
// stands there bare.
std::string node_path(const yfw_datatree* node);

// The value of a leaf as the request has it; null when it has none. Differs from the node's own value where the module
// is handed another.
const char* requested_value(const yfw_datatree* leaf);

// The key of a list entry as the request has it; null when it names none. Lists of a served model have one key.
const char* key_value(const yfw_datatree* entry);

// Whether a leaf says which list entry it is in: it is the key, or the leaf of a container of the entry that the key
// refers to.
bool is_key_or_key_target(const yfw_datatree* leaf);

// Throws the Error of a delete of such a leaf that is not the key.
[[noreturn]] void refuse_delete_of_name(const yfw_datatree* leaf);

// Whether a node is deleted: its operation, or the nearest above it, deletes or removes.
bool is_deleted(const yfw_datatree* node);

}  // namespace oclacp::host
