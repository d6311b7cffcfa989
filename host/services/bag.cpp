// The registry of the process: what a loaded module calls, and having it call that.
#include "host/base/contract.h"
#include "host/records/record_registry.h"
#include "host/translation/mapping_module.h"

namespace oclacp::host {

RecordRegistry& RecordRegistry::of_process() {
  static RecordRegistry registry;
  return registry;
}

const RecordRegistry& register_records_of(const std::string& module_file) {
  const MappingModule module(module_file);
  MappingModule::RecordRegistration* register_all = module.record_registration();
  if (register_all == nullptr) {
    throw Error(module_file + ": has no records");
  }
  const cerrno status = register_all();
  if (status != YFW_OK) {
    throw Error(RecordRegistry::of_process().reason());
  }
  return RecordRegistry::of_process();
}

}  // namespace oclacp::host

using oclacp::host::RecordRegistry;

cerrno bag_register_start() {
  return RecordRegistry::of_process().start();
}

cerrno bag_register(const bag_descriptor* descriptor) {
  return RecordRegistry::of_process().add(descriptor);
}

cerrno bag_register_end() {
  return RecordRegistry::of_process().end();
}

void bag_register_abort() {
  RecordRegistry::of_process().abort();
}
