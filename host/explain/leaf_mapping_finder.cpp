#include "host/explain/leaf_mapping_finder.h"

#include <algorithm>

#include "host/yang/key_reference.h"
#include "host/yang/schema_nodes.h"

namespace oclacp::host {
namespace {

// The mapping to a leaf; a new one when there is none yet.
LeafMapping& mapping_to(std::vector<LeafMapping>& mappings, const lysc_node* from, const lysc_node* to,
                        bool is_complete) {
  const auto found =
      std::find_if(mappings.begin(), mappings.end(), [&](const LeafMapping& mapping) { return mapping.to == to; });
  return found == mappings.end() ? mappings.emplace_back(LeafMapping{from, to, {}, is_complete}) : *found;
}

}  // namespace

const LeafMappings& LeafMappingFinder::from(const lysc_node* leaf) {
  if (const auto found = outgoing_.find(leaf); found != outgoing_.end()) {
    return found->second;
  }
  LeafMappings outgoing;
  if (leaf->module->ctx == schemas_.request()) {
    outgoing = edits_of(leaf);
  } else if (tables_.find(leaf) != nullptr) {
    outgoing = reports_of(leaf);
  }
  return outgoing_.emplace(leaf, std::move(outgoing)).first->second;
}

// What an edit sets is seen in what it adds for the leaf, whatever the tables say.
LeafMappings LeafMappingFinder::edits_of(const lysc_node* leaf) {
  LeafMappings outgoing;
  const SampleValues samples = sample_values(leaf);
  std::vector<Conversion> refused;
  for (const std::string& value : samples.values) {
    const ProbeResult result = probe_.edit(leaf, value);
    if (result.refusal) {
      refused.push_back({value, std::nullopt, result.refusal});
    }
    for (const ProbeResult::Leaf& set : result.leaves) {
      mapping_to(outgoing.mappings, leaf, set.schema, samples.is_complete)
          .conversions.push_back({value, set.value.value_or(""), std::nullopt});
    }
  }
  if (!refused.empty() && refused.size() == samples.values.size()) {
    outgoing.refusal = refused.front().refusal;
  }
  for (LeafMapping& mapping : outgoing.mappings) {
    mapping.conversions.insert(mapping.conversions.end(), refused.begin(), refused.end());
  }
  return outgoing;
}

// What the entry around a leaf is reported as in any case; for a key, what the entry around its own is.
std::vector<const lysc_node*> LeafMappingFinder::reported_without(const lysc_node* leaf) {
  const lysc_node* list = innermost_list(lysc_is_key(leaf) ? leaf->parent->parent : leaf);
  std::vector<const lysc_node*> reported;
  if (list != nullptr) {
    for (const ProbeResult::Leaf& one : probe_.native(list, "").leaves) {
      reported.push_back(one.schema);
    }
  }
  return reported;
}

// The values that a native leaf's type offers, and what edits write besides.
SampleValues LeafMappingFinder::samples_with_written(const lysc_node* leaf) {
  SampleValues samples = sample_values(leaf);
  for (const LeafMapping& mapping : to(leaf)) {
    for (const Conversion& written : mapping.conversions) {
      if (written.to && std::find(samples.values.begin(), samples.values.end(), *written.to) == samples.values.end()) {
        samples.values.push_back(*written.to);
      }
    }
  }
  return samples;
}

// The first value of which something is made stands for the others.
bool LeafMappingFinder::needs_lacp(const LeafMapping& mapping) {
  const auto made = std::find_if(mapping.conversions.begin(), mapping.conversions.end(),
                                 [](const Conversion& conversion) { return conversion.to.has_value(); });
  return made != mapping.conversions.end() && !probe_.native_alone(mapping.from, made->from).value_of(mapping.to);
}

// What is built from a leaf is what is reported with it and not without it, whatever the tables say.
LeafMappings LeafMappingFinder::reports_of(const lysc_node* leaf) {
  LeafMappings outgoing;
  const std::vector<const lysc_node*> without = reported_without(leaf);
  const SampleValues samples = samples_with_written(leaf);
  std::vector<ProbeResult> results;
  for (const std::string& value : samples.values) {
    results.push_back(probe_.native(leaf, value));
    for (const ProbeResult::Leaf& made : results.back().leaves) {
      if (std::find(without.begin(), without.end(), made.schema) == without.end()) {
        mapping_to(outgoing.mappings, leaf, made.schema, samples.is_complete);
      }
    }
  }
  for (LeafMapping& mapping : outgoing.mappings) {
    for (size_t index = 0; index < results.size(); ++index) {
      mapping.conversions.push_back(
          {samples.values[index], results[index].value_of(mapping.to), results[index].refusal});
    }
    mapping.needs_lacp = needs_lacp(mapping);
  }
  return outgoing;
}

std::vector<LeafMapping> LeafMappingFinder::to(const lysc_node* leaf) {
  std::vector<LeafMapping> mappings;
  const bool is_openconfig = leaf->module->ctx == schemas_.request();
  for (const LeafRow& row : is_openconfig ? tables_.native() : tables_.openconfig()) {
    for (const LeafMapping& mapping : from(row.schema).mappings) {
      if (mapping.to == leaf) {
        mappings.push_back(mapping);
      }
    }
  }
  return mappings;
}

const lysc_node* LeafMappingFinder::key_referring_to(const lysc_node* leaf) const {
  const lysc_node* list = innermost_list(leaf);
  const auto is_referring = [&](const LeafRow& row) {
    return row.schema->parent == list && lysc_is_key(row.schema) && leaf_of_key(row.schema) == leaf;
  };
  const auto found = std::find_if(tables_.openconfig().begin(), tables_.openconfig().end(), is_referring);
  return found == tables_.openconfig().end() ? nullptr : found->schema;
}

}  // namespace oclacp::host
