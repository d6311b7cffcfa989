#include "host/explain/leaf_tables.h"

#include <algorithm>
#include <span>

#include "host/base/error.h"

namespace oclacp::host {
namespace {

const lysc_node* find_node(SchemaIndex& paths, const char* path, const char* ns) {
  const Target* found = paths.find(path, ns);
  return found == nullptr ? nullptr : found->schema;
}

void append(std::vector<LeafRow>& rows, const oclacp_leaf_table& table, SchemaIndex& own, SchemaIndex& other) {
  for (const oclacp_leaf& leaf : std::span(table.leaves, table.count)) {
    LeafRow row{&leaf, find_node(own, leaf.node, leaf.ns), {}};
    if (row.schema == nullptr) {
      continue;
    }
    for (const oclacp_leaf_target& target : std::span(leaf.targets, leaf.target_count)) {
      if (const lysc_node* node = find_node(other, target.path, target.ns); node != nullptr) {
        row.targets.push_back(node);
      }
    }
    rows.push_back(std::move(row));
  }
}

}  // namespace

LeafTables::LeafTables(LoadedMapping& mapping) {
  SchemaIndex& openconfig = mapping.openconfig.index;
  SchemaIndex& native = mapping.native.index;
  bool has_tables = false;
  for (const MappingModule& module : mapping.modules) {
    if (const auto tables = module.leaf_tables()) {
      has_tables = true;
      append(openconfig_, tables->openconfig, openconfig, native);
      append(native_, tables->native_configuration, native, openconfig);
      append(native_, tables->native_operational, native, openconfig);
    }
  }
  if (!has_tables) {
    throw file_error(ErrorKind::kOperationFailed, mapping.modules.front().manifest().file, "names no leaf tables");
  }
}

const LeafRow* LeafTables::find(const lysc_node* leaf) const {
  for (const std::vector<LeafRow>* rows : {&openconfig_, &native_}) {
    const auto found = std::find_if(rows->begin(), rows->end(), [&](const LeafRow& row) { return row.schema == leaf; });
    if (found != rows->end()) {
      return &*found;
    }
  }
  return nullptr;
}

}  // namespace oclacp::host
