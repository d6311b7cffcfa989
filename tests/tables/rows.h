// The rows of the leaf tables, as the module has them.
#pragma once

#include <vector>

#include "frame/handler.h"

namespace tables {

struct LeafRow {
  const char* node;
  const char* handler_name;
  ymap::NodeHandler* handler;
  std::vector<const char*> targets;  // none: nothing in the other model
  bool is_key = false;               // serves more than its target
};

// Of openconfig-lacp, the native LACP configuration, and the native operational data.
std::vector<LeafRow> openconfig_rows();
std::vector<LeafRow> native_configuration_rows();
std::vector<LeafRow> native_operational_rows();

}  // namespace tables
