// Paths as a request.
#pragma once

#include <string>
#include <vector>

#include "host/trees/request_parser.h"
#include "host/trees/request_tree.h"

namespace oclacp::host {

// What a delete says to a node that is not there (RFC 6241, 7.2).
enum class AbsentNode {
  kIsRefused,  // operation "delete"
  kIsFine      // operation "remove"
};

// Reads paths of nodes of the served models, such as "/lacp/interfaces/interface[name='Bundle-Ether1']/config", into
// the one request that names these nodes and nothing beside them (yang/path_parser.h has the forms of a path). A
// module, by name or prefix, is needed only where a name alone would mean another node. A predicate gives a child its
// value;
// "[.='FAST']" after a leaf is the leaf's own. A list without its keys, or with "*" for them, stands for all its
// entries. What is named twice, or lies in something that is named too, counts once. All paths are of one top node.
// Throws Error.
RequestTree parse_paths(const ly_ctx* context, const std::vector<std::string>& paths);

// The request that deletes the nodes of such paths; of children only list keys are given values in it. Throws Error.
ParsedRequest parse_delete_paths(const ly_ctx* context, const std::vector<std::string>& paths, AbsentNode absent);

}  // namespace oclacp::host
