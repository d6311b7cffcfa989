// What the nodes of a fuzzed tree are called and hold: one model for each entry walker.
#pragma once

#include <span>
#include <vector>

namespace fuzz {

// An inner node. What has no row of its own is a leaf.
struct ModelNode {
  const char* tag;
  const char* ns;                     // its own, and that of the leaves in it
  std::vector<const char*> children;  // tags that belong there
};

struct Model {
  const char* root;
  const char* ns;                // of the root
  std::vector<ModelNode> nodes;  // found by their tag, wherever they stand
  std::span<const char* const> values;

  // The row of a tag, or null.
  [[nodiscard]] const ModelNode* find(const char* tag) const;
};

// openconfig-lacp; the places of `config` and of `state` are taken together.
const Model& openconfig_model();

const Model& interface_configuration_model();
const Model& global_configuration_model();
const Model& bundles_model();
const Model& device_identity_model();

}  // namespace fuzz
