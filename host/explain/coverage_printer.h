// The coverage of a mapping as text.
#pragma once

#include <string>

#include "host/explain/coverage.h"

namespace oclacp::host {

// For people: a table for each container.
std::string coverage_table(const Coverage& coverage);

// One object: "module", "revision" (null without one), "leaves". Each leaf has its "path", whether it is served in
// "edits" and in "reads", its native "sources", and as "key" the list key that carries it (null for none). Paths have
// module prefixes where they change.
std::string coverage_json(const Coverage& coverage);

// A page.
std::string coverage_markdown(const Coverage& coverage);

}  // namespace oclacp::host
