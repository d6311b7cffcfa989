// Nodes of the schemas and their paths.
#pragma once

#include <libyang/libyang.h>

#include <string>
#include <vector>

#include "host/yang/path_parser.h"
#include "host/yang/schemas.h"

namespace oclacp::host {

// The nodes of both sides that a path names, those of openconfig-lacp first; more than one only when a name without a
// module stands on both sides. Modules may be given by name or prefix, or left out where the names tell. Predicates
// must name leaves of their node, and make no difference. Throws Error when there is no such node.
std::vector<const lysc_node*> find_nodes(const Schemas& schemas, const std::string& path);

// The child, with null the top node, that a step names; null when there is none. A name alone means the node of the
// module above where there is one.
const lysc_node* find_step(const ly_ctx* context, const lysc_node* above, const PathStep& step);

// The path of data of this node: module prefixes where they change, without keys.
std::string schema_path(const lysc_node* node);

// The same without prefixes.
std::string bare_path(const lysc_node* node);

inline bool is_leaf(const lysc_node* node) {
  return (node->nodetype & LYD_NODE_TERM) != 0;
}

// The children in data, in the schema's order; those of a choice's cases are among them.
std::vector<const lysc_node*> data_children(const lysc_node* parent);

// The leaves and leaf-lists of a node and of all that is in it, in the schema's order.
std::vector<const lysc_node*> leaves_of(const lysc_node* node);

// The innermost list that a node is, or is in; null outside of lists.
const lysc_node* innermost_list(const lysc_node* node);

}  // namespace oclacp::host
