// The exported tables of leaves against the list of nodes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "oclacp/leaves.h"
#include "unit/oc-lacp/nodes.h"

namespace {

using nodes::Leaf;
using testing::UnorderedElementsAreArray;

std::string text_of(const char* text) {
  return text != nullptr ? text : "";
}

// A leaf in one line.
std::string describe(const Leaf& leaf) {
  std::string line = leaf.path + " of " + leaf.ns + ", work " + std::to_string(leaf.work) + ": " + leaf.walker.name +
                     " " + leaf.handler.name + " " + leaf.converter;
  const bool is_native = leaf.walker.name.empty();
  for (const std::string& target : leaf.targets) {
    line += " -> " + target + " of " + (is_native ? support::kOpenconfigLacp : nodes::namespace_at(target));
  }
  return line;
}

std::string describe(const oclacp_leaf& leaf) {
  std::string line = text_of(leaf.node) + " of " + text_of(leaf.ns) + ", work " + std::to_string(leaf.work) + ": " +
                     text_of(leaf.walker) + " " + text_of(leaf.handler) + " " + text_of(leaf.converter);
  for (unsigned int i = 0; i < leaf.target_count; ++i) {
    line += " -> " + text_of(leaf.targets[i].path) + " of " + text_of(leaf.targets[i].ns);
  }
  return line;
}

void add(const oclacp_leaf_table& table, std::vector<std::string>& lines) {
  for (std::size_t i = 0; i < table.count; ++i) lines.push_back(describe(table.leaves[i]));
}

std::vector<std::string> lines_of(const nodes::Side& side) {
  std::vector<std::string> lines;
  for (const Leaf& leaf : side.leaves) lines.push_back(describe(leaf));
  return lines;
}

TEST(LeafTables, Openconfig_HoldsTheLeavesOfTheModel) {
  std::vector<std::string> exported;
  add(oclacp_openconfig_leaves(), exported);
  EXPECT_THAT(exported, UnorderedElementsAreArray(lines_of(nodes::openconfig())));
}

TEST(LeafTables, NativeSide_HoldsTheLeavesOfTheModels) {
  std::vector<std::string> exported;
  add(oclacp_native_configuration_leaves(), exported);
  add(oclacp_native_operational_leaves(), exported);
  EXPECT_THAT(exported, UnorderedElementsAreArray(lines_of(nodes::native())));
}

TEST(LeafTables, Handlers_AreTheNamedFunctions) {
  for (const nodes::Side* const side : {&nodes::openconfig(), &nodes::native()}) {
    for (const oclacp_leaf_table& table :
         {oclacp_openconfig_leaves(), oclacp_native_configuration_leaves(), oclacp_native_operational_leaves()}) {
      for (std::size_t i = 0; i < table.count; ++i) {
        const Leaf* const leaf = nodes::leaf_at(*side, table.leaves[i].node);
        if (leaf == nullptr || leaf->ns != table.leaves[i].ns) continue;
        EXPECT_EQ(table.leaves[i].run, leaf->handler.function) << leaf->path;
      }
    }
  }
}

// Only walkers of native nodes may be known to their parents alone.
TEST(Nodes, Functions_AreDefinedByTheModule) {
  for (const nodes::Side* const side : {&nodes::openconfig(), &nodes::native()}) {
    for (const auto* const functions : {&side->functions, &side->unchecked_functions}) {
      for (const auto& one : *functions) EXPECT_NE(one.function, nullptr) << one.name;
    }
    for (const auto& one : side->container_functions) EXPECT_NE(one.function, nullptr) << one.name;
    for (const nodes::Inner& inner : side->inner) EXPECT_NE(inner.entry.function, nullptr) << inner.path;
  }
}

}  // namespace
