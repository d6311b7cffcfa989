// From a request's text to the tree that the module walks.
#pragma once

#include <string>

#include "host/trees/request_tree.h"

namespace oclacp::host {

struct ParsedRequest {
  LYD_FORMAT format;
  RequestTree tree;  // its top node is /openconfig-lacp:lacp
};

// Reads a request in JSON (RFC 7951, attributes by RFC 7952) or XML, against the schemas of the request side. Leaves
// may lack a value, and list entries their key, as in deletions and reads. Throws Error.
ParsedRequest parse_request(const ly_ctx* context, const std::string& text);

// Refuses a request whose top node is another than /openconfig-lacp:lacp.
void require_served_top(RequestTree& tree);

}  // namespace oclacp::host
