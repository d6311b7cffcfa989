// A part of a tree as a document.
#pragma once

#include <libyang/libyang.h>

#include <string>

namespace oclacp::host {

// Puts a resource, as RESTCONF has it (RFC 8040, 3.5), below what is above it: `text` is a document in JSON (RFC 7951)
// or XML that holds the node which `path` leads to, or children of that node, and becomes one that begins at the top
// node. Each list on the way needs its keys in the path. Lines keep their numbers. Throws Error.
std::string frame_resource(const ly_ctx* context, const std::string& path, const std::string& text);

}  // namespace oclacp::host
