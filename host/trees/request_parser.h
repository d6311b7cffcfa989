// From a request's text to the tree that the module walks.
#pragma once

#include <string>

#include "host/trees/request_tree.h"
#include "host/yang/format.h"

namespace oclacp::host {

struct ParsedRequest {
  Format format;
  RequestTree tree;
  std::string default_operation = {};  // what an <edit-config> around it says (RFC 6241, 7.2); empty without
};

// Reads a request in JSON (RFC 7951, attributes by RFC 7952) or XML, against the schemas of the request side. Leaves
// may lack a value, and list entries their key, as in deletions and reads. In XML the data may stand in <config>,
// <edit-config> or <rpc> (yang/edit_envelope.h). Throws Error.
ParsedRequest parse_request(const ly_ctx* context, const std::string& text);

// Reads a request that holds the node which `path` leads to, or children of it (trees/resource_document.h). Throws
// Error.
ParsedRequest parse_resource(const ly_ctx* context, const std::string& path, const std::string& text);

// Refuses a request with more than one top node.
void require_one_top(RequestTree& tree, bool is_alone);

}  // namespace oclacp::host
