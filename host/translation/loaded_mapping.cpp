#include "host/translation/loaded_mapping.h"

#include <algorithm>
#include <utility>

#include "host/base/error.h"
#include "host/yang/schema_nodes.h"

namespace oclacp::host {
namespace {

std::vector<MappedSchemas> schemas_of(const std::vector<ModuleManifest>& manifests) {
  std::vector<MappedSchemas> schemas;
  for (const ModuleManifest& manifest : manifests) {
    schemas.push_back(manifest.schemas);
  }
  return schemas;
}

bool serves(const MappingModule& module, const lysc_node* top) {
  const std::vector<std::string>& paths = module.manifest().entry_paths;
  return std::find(paths.begin(), paths.end(), schema_path(top)) != paths.end();
}

// A manifest may promise more than the module registers.
void check_entry_paths(const MappingModule& module, const ly_ctx* context) {
  for (const std::string& path : module.manifest().entry_paths) {
    const lysc_node* top = lys_find_path(context, nullptr, path.c_str(), 0);
    if (top == nullptr || module.request_walker(top->module->ns, top->name) == nullptr) {
      throw file_error(ErrorKind::kOperationFailed, module.manifest().file,
                       "serves " + path + ", which " +
                           (top == nullptr ? "none of its schemas has" : "the module does not register"));
    }
  }
}

}  // namespace

LoadedMapping::LoadedMapping(const SchemaDirectories& directories, const std::vector<std::string>& libraries)
    : LoadedMapping(directories, read_module_manifests(directories.shipped, libraries)) {}

LoadedMapping::LoadedMapping(const SchemaDirectories& directories, std::vector<ModuleManifest> manifests)
    : schemas(directories, schemas_of(manifests)), native(schemas.native()), openconfig(schemas.request()) {
  for (ModuleManifest& manifest : manifests) {
    check_entry_paths(modules.emplace_back(std::move(manifest)), schemas.request());
  }
}

const MappingModule& LoadedMapping::module_for(const lysc_node* top) const {
  const auto found =
      std::find_if(modules.begin(), modules.end(), [&](const MappingModule& module) { return serves(module, top); });
  if (found == modules.end()) {
    throw node_error(ErrorKind::kUnknownElement, schema_path(top), "no mapping serves this node");
  }
  return *found;
}

const MappingModule& LoadedMapping::module_for(RequestTree& request) const {
  return module_for(info_of(request.top()).schema);
}

yfw_map_walker LoadedMapping::request_walker(RequestTree& request) const {
  const lysc_node* top = info_of(request.top()).schema;
  return module_for(top).request_walker(top->module->ns, top->name);
}

}  // namespace oclacp::host
