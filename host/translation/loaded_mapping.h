// A module with the schemas on both sides of it.
#pragma once

#include <string>

#include "host/translation/mapping_module.h"
#include "host/trees/tree_context.h"
#include "host/yang/schemas.h"

namespace oclacp::host {

// What translators and explainers work with. Used by one thread at a time.
struct LoadedMapping {
  Schemas schemas;
  TreeContext native;      // what the module adds for a request
  TreeContext openconfig;  // what it adds for native data
  MappingModule module;

  LoadedMapping(const SchemaDirectories& directories, const std::string& module_file)
      : schemas(directories), native(schemas.native()), openconfig(schemas.request()), module(module_file) {}
};

}  // namespace oclacp::host
