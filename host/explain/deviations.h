// What the mapping does not serve, as YANG says it.
#pragma once

#include <string>

#include "host/explain/coverage.h"

namespace oclacp::host {

// A module (RFC 7950) that deviates openconfig-lacp as loaded: every leaf that is not served, and every container or
// list in which nothing is, is not supported.
std::string deviation_module(const Coverage& coverage);

}  // namespace oclacp::host
