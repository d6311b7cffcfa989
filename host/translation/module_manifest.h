// What the manifest beside a mapping module says.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/base/export.h"
#include "host/yang/schemas.h"

namespace oclacp::host {

// The nodes of yang/oclacp-module.yang, which describes them. Files are paths of their own here.
struct ModuleManifest {
  // The names of the functions that return the leaf tables.
  struct LeafTables {
    std::string published;
    std::string native_configuration;
    std::string native_state;
  };

  std::string file;
  std::string library;
  std::string initialisation;
  std::string cleanup;
  std::vector<std::string> registrations;
  std::vector<std::string> entry_paths;  // "/module:node"
  MappedSchemas schemas;
  std::string record_registration;  // empty without one
  std::optional<LeafTables> leaf_tables;
};

// Reads the manifest of a shared library: of libx.so the file libx.json beside it. `schemas` is the folder with
// oclacp-module.yang. Throws Error, naming the file.
OCLACP_HOST_API ModuleManifest read_module_manifest(const std::string& schemas, const std::string& library);

// The same of several. Throws Error also when two of them serve one path.
std::vector<ModuleManifest> read_module_manifests(const std::string& schemas,
                                                  const std::vector<std::string>& libraries);

}  // namespace oclacp::host
