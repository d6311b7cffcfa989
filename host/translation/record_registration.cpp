#include "host/translation/record_registration.h"

#include "host/base/error.h"
#include "host/translation/mapping_module.h"

namespace oclacp::host {

const RecordRegistry& register_records_of(const std::string& module_file) {
  const MappingModule module(module_file);
  MappingModule::RecordRegistration* register_all = module.record_registration();
  if (register_all == nullptr) {
    throw file_error(ErrorKind::kOperationFailed, module_file, "has no records");
  }
  const cerrno status = register_all();
  if (status != YFW_OK) {
    throw Error(ErrorKind::kInternal, RecordRegistry::of_process().reason());
  }
  return RecordRegistry::of_process();
}

}  // namespace oclacp::host
