// The records that a mapping module describes.
#pragma once

#include <string>

#include "host/base/export.h"
#include "host/records/record_registry.h"

namespace oclacp::host {

// Loads a mapping module, has it register its records with the registry of the process, and unloads it. Answers that
// registry. Throws Error when the module cannot be loaded, has no records, or one of them is refused.
OCLACP_HOST_API const RecordRegistry& register_records_of(const std::string& module_file);

}  // namespace oclacp::host
