#include "host/translation/record_registration.h"

#include "host/base/error.h"
#include "host/translation/mapping_module.h"

namespace oclacp::host {

const RecordRegistry& register_records_of(const std::string& schemas, const std::vector<std::string>& libraries) {
  bool has_records = false;
  for (const ModuleManifest& manifest : read_module_manifests(schemas, libraries)) {
    const MappingModule module(manifest);
    MappingModule::RecordRegistration* register_all = module.record_registration();
    if (register_all == nullptr) {
      continue;
    }
    has_records = true;
    if (register_all() != YFW_OK) {
      throw Error(ErrorKind::kInternal, RecordRegistry::of_process().reason());
    }
  }
  if (!has_records) {
    throw file_error(ErrorKind::kOperationFailed, libraries.front(), "has no records");
  }
  return RecordRegistry::of_process();
}

}  // namespace oclacp::host
