// Running a mapping on one value, to see what it makes of it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/devices/device.h"
#include "host/translation/loaded_mapping.h"

namespace oclacp::host {

// The result of a run.
struct ProbeResult {
  struct Leaf {
    const lysc_node* schema;
    std::optional<std::string> value;  // nothing: the leaf is named without one
  };

  std::vector<Leaf> leaves;             // of the other side, in the order in which they were added
  std::vector<const lysc_node*> lists;  // whose entries were named
  std::optional<std::string> refusal;   // why the mapping refuses this; then there is nothing else

  // The value of a leaf of `leaves`, of several the last; nothing when it is not among them or has none.
  [[nodiscard]] std::optional<std::string> value_of(const lysc_node* leaf) const;
};

// Runs are about one made-up interface with LACP. Used by one thread at a time.
class Probe {
 public:
  // `mapping` outlives this.
  explicit Probe(LoadedMapping& mapping);

  // What an edit that sets a leaf of openconfig-lacp to `value` writes for this leaf.
  ProbeResult edit(const lysc_node* leaf, const std::string& value);

  // What a read that names a node of openconfig-lacp and nothing in it asks for.
  ProbeResult read(const lysc_node* node);

  // What the module adds for a native leaf of this value in a read of state, alone in its entry; of a list, what it
  // adds for an entry.
  ProbeResult native(const lysc_node* node, const std::string& value);

  // The same with a device that has no configuration but the leaf itself, if it is one of configuration.
  ProbeResult native_alone(const lysc_node* node, const std::string& value);

 private:
  // `about`: only what is added for this leaf counts; null for all.
  ProbeResult run_request(const std::string& path, uint32_t operation, const lysc_node* about);
  ProbeResult run_native(const lyd_node* data, const DeviceSnapshot& device);

  LoadedMapping& mapping_;
  TreePtr configuration_;  // LACP on the sample interface
  EmptySnapshot device_;
};

}  // namespace oclacp::host
