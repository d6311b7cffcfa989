// Mapping modules with the schemas on both sides of them.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "host/translation/mapping_module.h"
#include "host/trees/request_tree.h"
#include "host/trees/tree_context.h"
#include "host/yang/schemas.h"

namespace oclacp::host {

// What translators and explainers work with. Used by one thread at a time.
struct LoadedMapping {
  // `libraries`: the modules' shared libraries, each with its manifest beside it. Throws Error.
  LoadedMapping(const SchemaDirectories& directories, const std::vector<std::string>& libraries);

  // The module that serves a top node of a published model. Throws Error when none does.
  [[nodiscard]] const MappingModule& module_for(const lysc_node* top) const;
  [[nodiscard]] const MappingModule& module_for(RequestTree& request) const;

  // The entry walker of that module.
  [[nodiscard]] yfw_map_walker request_walker(RequestTree& request) const;

  Schemas schemas;
  TreeContext native;      // what modules add for a request
  TreeContext openconfig;  // what they add for native data
  std::deque<MappingModule> modules;

 private:
  LoadedMapping(const SchemaDirectories& directories, std::vector<ModuleManifest> manifests);
};

}  // namespace oclacp::host
