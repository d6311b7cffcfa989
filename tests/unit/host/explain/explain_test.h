// What tests of explanations share.
#pragma once

#include "host/explain/coverage.h"
#include "host/yang/schema_nodes.h"
#include "tests/support/locations.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {

// The module with its tables, over the project's schemas or others.
struct Explained {
  explicit Explained(const std::string& published = "")
      : mapping({location::kSchemas, published}, {location::kModule}),
        tables(mapping),
        probe(mapping),
        mappings(tables, mapping.schemas, probe) {}

  // The one node that a path names.
  [[nodiscard]] const lysc_node* node(const std::string& path) const {
    const std::vector<const lysc_node*> nodes = find_nodes(mapping.schemas, path);
    EXPECT_EQ(nodes.size(), 1U) << path;
    return nodes.front();
  }

  Coverage coverage() {
    return host::find_coverage(*ly_ctx_get_module_implemented(mapping.schemas.request(), "openconfig-lacp"), tables,
                               probe, mappings);
  }

  LoadedMapping mapping;
  LeafTables tables;
  Probe probe;
  LeafMappingFinder mappings;
};

inline constexpr const char* kEntry = "/interface-configurations/interface-configuration/";
inline constexpr const char* kOcEntry = "/lacp/interfaces/interface/";
inline constexpr const char* kOcMember = "/lacp/interfaces/interface/members/member/";

}  // namespace oclacp::host
