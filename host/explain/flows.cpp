#include "host/explain/flows.h"

#include <algorithm>

#include "host/explain/schema_path.h"
#include "host/yang/key_reference.h"

namespace oclacp::host {
namespace {

// The flow to a leaf; a new one when there is none yet.
Flow& flow_to(std::vector<Flow>& flows, const lysc_node* from, const lysc_node* to, bool is_complete) {
  const auto found = std::find_if(flows.begin(), flows.end(), [&](const Flow& flow) { return flow.to == to; });
  return found == flows.end() ? flows.emplace_back(Flow{from, to, {}, is_complete}) : *found;
}

}  // namespace

const Outgoing& Flows::from(const lysc_node* leaf) {
  if (const auto found = outgoing_.find(leaf); found != outgoing_.end()) {
    return found->second;
  }
  Outgoing outgoing;
  if (leaf->module->ctx == schemas_.request()) {
    outgoing = edits_of(leaf);
  } else if (tables_.find(leaf) != nullptr) {
    outgoing = reports_of(leaf);
  }
  return outgoing_.emplace(leaf, std::move(outgoing)).first->second;
}

// What an edit sets is seen in what it adds for the leaf, whatever the tables say.
Outgoing Flows::edits_of(const lysc_node* leaf) {
  Outgoing outgoing;
  const Samples samples = samples_of(leaf);
  std::vector<Conversion> refused;
  for (const std::string& value : samples.values) {
    const ProbeResult result = probe_.edit(leaf, value);
    if (result.refusal) {
      refused.push_back({value, std::nullopt, result.refusal});
    }
    for (const ProbeResult::Leaf& set : result.leaves) {
      flow_to(outgoing.flows, leaf, set.schema, samples.is_complete)
          .conversions.push_back({value, set.value.value_or(""), std::nullopt});
    }
  }
  if (!refused.empty() && refused.size() == samples.values.size()) {
    outgoing.refusal = refused.front().refusal;
  }
  for (Flow& flow : outgoing.flows) {
    flow.conversions.insert(flow.conversions.end(), refused.begin(), refused.end());
  }
  return outgoing;
}

// What the entry around a leaf is reported as in any case; for a key, what the entry around its own is.
std::vector<const lysc_node*> Flows::reported_without(const lysc_node* leaf) {
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
Samples Flows::samples_with_written(const lysc_node* leaf) {
  Samples samples = samples_of(leaf);
  for (const Flow& flow : to(leaf)) {
    for (const Conversion& written : flow.conversions) {
      if (written.to && std::find(samples.values.begin(), samples.values.end(), *written.to) == samples.values.end()) {
        samples.values.push_back(*written.to);
      }
    }
  }
  return samples;
}

// The first value of which something is made stands for the others.
bool Flows::needs_lacp(const Flow& flow) {
  const auto made = std::find_if(flow.conversions.begin(), flow.conversions.end(),
                                 [](const Conversion& conversion) { return conversion.to.has_value(); });
  return made != flow.conversions.end() && !probe_.native_alone(flow.from, made->from).value_of(flow.to);
}

// What is made of a leaf is what is reported with it and not without it, whatever the tables say.
Outgoing Flows::reports_of(const lysc_node* leaf) {
  Outgoing outgoing;
  const std::vector<const lysc_node*> without = reported_without(leaf);
  const Samples samples = samples_with_written(leaf);
  std::vector<ProbeResult> results;
  for (const std::string& value : samples.values) {
    results.push_back(probe_.native(leaf, value));
    for (const ProbeResult::Leaf& made : results.back().leaves) {
      if (std::find(without.begin(), without.end(), made.schema) == without.end()) {
        flow_to(outgoing.flows, leaf, made.schema, samples.is_complete);
      }
    }
  }
  for (Flow& flow : outgoing.flows) {
    for (size_t index = 0; index < results.size(); ++index) {
      flow.conversions.push_back({samples.values[index], results[index].value_of(flow.to), results[index].refusal});
    }
    flow.needs_lacp = needs_lacp(flow);
  }
  return outgoing;
}

std::vector<Flow> Flows::to(const lysc_node* leaf) {
  std::vector<Flow> flows;
  const bool is_openconfig = leaf->module->ctx == schemas_.request();
  for (const LeafRow& row : is_openconfig ? tables_.native() : tables_.openconfig()) {
    for (const Flow& flow : from(row.schema).flows) {
      if (flow.to == leaf) {
        flows.push_back(flow);
      }
    }
  }
  return flows;
}

const lysc_node* Flows::key_referring_to(const lysc_node* leaf) const {
  const lysc_node* list = innermost_list(leaf);
  const auto is_meant = [&](const LeafRow& row) {
    return row.schema->parent == list && lysc_is_key(row.schema) && leaf_of_key(row.schema) == leaf;
  };
  const auto found = std::find_if(tables_.openconfig().begin(), tables_.openconfig().end(), is_meant);
  return found == tables_.openconfig().end() ? nullptr : found->schema;
}

}  // namespace oclacp::host
