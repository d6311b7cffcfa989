// The records that a mapping module describes.
#pragma once

#include <string>
#include <vector>

#include "host/base/export.h"
#include "host/records/record_registry.h"

namespace oclacp::host {

// Loads mapping modules, has each register its records with the registry of the process, and unloads them. Returns that
// registry. `schemas` and `libraries` as for manifests (module_manifest.h). Throws Error when a module cannot be
// loaded, none has records, or one of them is refused.
OCLACP_HOST_API const RecordRegistry& register_records_of(const std::string& schemas,
                                                          const std::vector<std::string>& libraries);

}  // namespace oclacp::host
