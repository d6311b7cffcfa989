#include "host/translation/module_manifest.h"

#include <filesystem>
#include <map>
#include <system_error>

#include "host/base/error.h"
#include "host/files/read_file.h"
#include "host/yang/data_nodes.h"
#include "host/yang/libyang_error.h"

namespace oclacp::host {
namespace {

namespace fs = std::filesystem;

constexpr const char* kManifestModule = "oclacp-module";
constexpr size_t kMaxManifestBytes = size_t{1} << 20;

// The values of the leaves and leaf-lists below a node, by name.
using Values = std::map<std::string, std::vector<std::string>>;

Values values_below(const lyd_node* above) {
  Values values;
  for (const lyd_node* node = lyd_child(above); node != nullptr; node = node->next) {
    if ((node->schema->nodetype & LYD_NODE_TERM) != 0) {
      values[node->schema->name].emplace_back(lyd_get_value(node));
    }
  }
  return values;
}

std::string only(const std::vector<std::string>& values) {
  return values.empty() ? "" : values.front();
}

TreePtr parse_manifest(const ly_ctx* context, const std::string& file) {
  const std::string text = read_text_file(file, kMaxManifestBytes);
  lyd_node* tree = nullptr;
  if (lyd_parse_data_mem(context, text.c_str(), LYD_JSON, LYD_PARSE_STRICT,
                         LYD_VALIDATE_NO_STATE | LYD_VALIDATE_PRESENT, &tree) != LY_SUCCESS) {
    throw libyang_error(context, "the manifest", file + ": ");
  }
  if (tree == nullptr) {
    throw file_error(ErrorKind::kOperationFailed, file, "describes no mapping module");
  }
  return TreePtr(tree);
}

MappedSchemas schemas_of(const lyd_node* module, const ModuleManifest& manifest,
                         const std::vector<std::string>& directories) {
  MappedSchemas schemas;
  schemas.needed_by = manifest.file;
  for (const std::string& directory : directories) {
    schemas.directories.push_back((fs::path(manifest.file).parent_path() / directory).lexically_normal());
  }
  for (const lyd_node* node = lyd_child(module); node != nullptr; node = node->next) {
    if (node->schema->nodetype == LYS_LIST) {
      Values values = values_below(node);
      std::vector<SchemaModule>& side = only(values["side"]) == "native" ? schemas.native : schemas.published;
      side.push_back({only(values["name"]), values["feature"]});
    }
  }
  return schemas;
}

}  // namespace

ModuleManifest read_module_manifest(const std::string& schemas, const std::string& library) {
  ModuleManifest manifest;
  // A name without a slash would be searched in the system's folders when it is loaded.
  manifest.library = library.find('/') == std::string::npos ? "./" + library : library;
  manifest.file = fs::path(manifest.library).replace_extension(".json");
  std::error_code unreadable;
  if (!fs::exists(manifest.library, unreadable) || !fs::exists(manifest.file, unreadable)) {
    const bool has_library = fs::exists(manifest.library, unreadable);
    throw Error(ErrorKind::kOperationFailed,
                "the mapping module cannot be loaded: " + manifest.library + ": " +
                    (has_library ? "has no manifest beside it, " + manifest.file : "no such file"),
                {.path = {}, .file = has_library ? manifest.file : manifest.library});
  }
  const ContextPtr context = make_schema_context(schemas, {{kManifestModule}});
  const TreePtr module = parse_manifest(context.get(), manifest.file);
  Values values = values_below(module.get());
  const std::string named = only(values["library"]);
  if (named != fs::path(manifest.library).filename()) {
    throw file_error(ErrorKind::kOperationFailed, manifest.file,
                     "is the manifest of " + named + ", not of " + manifest.library);
  }
  manifest.initialisation = only(values["initialisation"]);
  manifest.cleanup = only(values["cleanup"]);
  manifest.registrations = values["registration"];
  manifest.entry_paths = values["entry-path"];
  manifest.schemas = schemas_of(module.get(), manifest, values["schema-directory"]);
  manifest.record_registration = only(values["record-registration"]);
  if (const lyd_node* tables = child_named(module.get(), "leaf-tables"); tables != nullptr) {
    Values names = values_below(tables);
    manifest.leaf_tables = {only(names["published"]), only(names["native-configuration"]), only(names["native-state"])};
  }
  return manifest;
}

std::vector<ModuleManifest> read_module_manifests(const std::string& schemas,
                                                  const std::vector<std::string>& libraries) {
  std::vector<ModuleManifest> manifests;
  std::map<std::string, std::string> servers;  // by path
  for (const std::string& library : libraries) {
    manifests.push_back(read_module_manifest(schemas, library));
    const ModuleManifest& added = manifests.back();
    for (const std::string& path : added.entry_paths) {
      if (const auto [server, is_new] = servers.emplace(path, added.file); !is_new) {
        throw file_error(ErrorKind::kOperationFailed, added.file,
                         "serves " + path + ", which " + server->second + " serves too");
      }
    }
  }
  return manifests;
}

}  // namespace oclacp::host
