// The registration of records.
#include "host/base/contract.h"
#include "host/records/record_registry.h"

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
