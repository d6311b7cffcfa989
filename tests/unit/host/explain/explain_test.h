// What tests of explanations share.
#pragma once

#include "host/explain/coverage.h"
#include "host/yang/schema_nodes.h"
#include "tests/support/locations.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {

// The module with its tables, over the project's schemas or others.
struct Explained {
  explicit Explained(const Schemas& over = schemas())
      : schemas_used(over),
        openconfig(over.request()),
        native(over.native()),
        module(location::kModule),
        tables(module, openconfig.index, native),
        probe(module, over, openconfig, native),
        mappings(tables, over, probe) {}

  // The one node that a path names.
  [[nodiscard]] const lysc_node* node(const std::string& path) const {
    const std::vector<const lysc_node*> nodes = find_nodes(schemas_used, path);
    EXPECT_EQ(nodes.size(), 1U) << path;
    return nodes.front();
  }

  Coverage coverage() { return find_coverage(tables, schemas_used, probe, mappings); }

  const Schemas& schemas_used;
  TreeContext openconfig;
  SchemaIndex native;
  MappingModule module;
  LeafTables tables;
  Probe probe;
  LeafMappingFinder mappings;
};

inline constexpr const char* kEntry = "/interface-configurations/interface-configuration/";
inline constexpr const char* kOcEntry = "/lacp/interfaces/interface/";
inline constexpr const char* kOcMember = "/lacp/interfaces/interface/members/member/";

}  // namespace oclacp::host
