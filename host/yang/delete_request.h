// A delete request for one path.
#pragma once

#include <string>

#include "host/yang/libyang.h"

namespace oclacp::host {

// The request, in JSON, that deletes the node of an instance path such as
// /lacp/interfaces/interface[name='Bundle-Ether1']/config; the module prefix at the top may be left out. `context` is
// that of the requests. Throws Refusal, naming the path, when it is no path of one node.
std::string make_delete_request(const ly_ctx* context, const std::string& path);

}  // namespace oclacp::host
