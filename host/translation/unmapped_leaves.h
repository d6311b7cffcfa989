// Native configuration that OpenConfig cannot express.
#pragma once

#include <string>
#include <vector>

#include "host/translation/mapping_module.h"
#include "host/trees/native_selection.h"
#include "host/trees/schema_index.h"

namespace oclacp::host {

// Which leaves of the selected list entries of a native top node have no effect when they are walked, although their
// entry maps to one of OpenConfig: the path of each, and its value after " = ". Found by walking each leaf
// alone with its entry's keys. Linear in the leaves. `selected` says which entries; `paths` are those of the OpenConfig
// side.
std::vector<std::string> find_unmapped(const lyd_node* data, const NativeSelection::Node& selected,
                                       yfw_map_walker walker, SchemaIndex& paths);

}  // namespace oclacp::host
