// A path as a request.
#pragma once

#include <string>

#include "host/trees/request_parser.h"
#include "host/trees/request_tree.h"

namespace oclacp::host {

// Reads the path of a node of openconfig-lacp, such as "/lacp/interfaces/interface[name='Bundle-Ether1']/config", into
// the request that names this node and nothing beside it. A module's prefix is needed only where a node is of another
// module than the one above, and not at the top. A predicate gives a child its value; "[.='FAST']" behind a leaf is the
// leaf's own. A list without predicates stands for all its entries. Throws Error.
RequestTree parse_path(const ly_ctx* context, const std::string& path);

// The request that deletes the node of such a path; of children only list keys are given values in it. Throws Error.
ParsedRequest parse_delete_path(const ly_ctx* context, const std::string& path);

}  // namespace oclacp::host
