#include "host/translation/module_quirks.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <unordered_set>

#include "host/base/error.h"
#include "host/base/status_text.h"
#include "host/devices/native_model.h"
#include "host/trees/node.h"
#include "host/trees/operation.h"

namespace oclacp::host {
namespace {

bool is_list_entry(const yfw_datatree* node) {
  return info_of(node).schema->nodetype == LYS_LIST;
}

// The innermost list entry around a node, or the node itself; null when there is none.
const yfw_datatree* entry_around(const yfw_datatree* node) {
  while (node != nullptr && !is_list_entry(node)) {
    node = info_of(node).parent;
  }
  return node;
}

// Whether an addition says which native entry something is in, and nothing else: the list, its keys, and what the
// module makes of the name besides.
bool only_names_entry(const OutputLog::Addition& addition) {
  return addition.target->is_list() || addition.target->is_key() ||
         (addition.source != nullptr && is_key_or_key_target(addition.source));
}

}  // namespace

bool maps_interfaces(const MappingModule& module) {
  const std::vector<SchemaModule>& native = module.manifest().schemas.native;
  return std::any_of(native.begin(), native.end(),
                     [](const SchemaModule& schema) { return schema.name == native_model::kInterfaceModule; });
}

void name_contents_of_bare_entries(RequestTree& read) {
  for (yfw_datatree& node : read.nodes()) {
    if (is_list_entry(&node) && node.child_count == 0) {
      read.add_schema_children(node);
    }
  }
}

void use_entry_form_keys(RequestTree& edit, CurrentDevice& device) {
  for (yfw_datatree& node : edit.nodes()) {
    if (node.value != nullptr && lysc_is_key(info_of(&node).schema) && std::strchr(node.value, '/') != nullptr &&
        is_deleted(info_of(&node).parent) && device.configuration().has_lacp(node.value)) {
      node.value = device.configuration().element_of(node.value);
    }
  }
}

void check_nothing_added_below_deletes(RequestTree& edit) {
  for (const yfw_datatree& node : edit.nodes()) {
    if (node.operation != YFW_OPERATION_CREATE && node.operation != YFW_OPERATION_REPLACE) {
      continue;
    }
    const yfw_datatree* entry = entry_around(info_of(&node).parent);
    if (entry != nullptr && deletes(entry->operation)) {
      throw node_error(ErrorKind::kOperationNotSupported, node_path(&node),
                       std::string("cannot be ") + (node.operation == YFW_OPERATION_CREATE ? "created" : "replaced") +
                           " in a list entry that the request deletes");
    }
  }
}

AbsentNodes::AbsentNodes(RequestTree& edit, CurrentDevice& device) {
  for (yfw_datatree& node : edit.nodes()) {
    const yfw_datatree* entry = deletes(node.operation) ? entry_around(&node) : nullptr;
    const char* name = entry != nullptr ? key_value(entry) : nullptr;
    if (name == nullptr || device.configuration().has_lacp(name)) {
      continue;
    }
    if (node.operation == YFW_OPERATION_REMOVE) {
      removed_.push_back(&node);
    }
    if (entry != &node) {
      continue;
    }
    if (node.operation == YFW_OPERATION_DELETE) {
      deleted_.push_back(&node);
    } else {
      node.child_count = 1;  // the key, which libyang puts first
    }
  }
}

void AbsentNodes::check_deleted() const {
  if (!deleted_.empty()) {
    throw node_error(ErrorKind::kDataMissing, node_path(deleted_.front()), status_text(YFW_NOTHING_TO_DELETE));
  }
}

void AbsentNodes::drop_additions(OutputLog& log) const {
  if (removed_.empty()) {
    return;
  }
  const std::unordered_set<const yfw_datatree*> removed(removed_.begin(), removed_.end());
  std::unordered_set<int> emptied;  // native entries that are left without anything but their keys
  log.drop_if([&](const OutputLog::Addition& addition) {
    const yfw_datatree* node = addition.source;
    while (node != nullptr && removed.count(node) == 0) {
      node = info_of(node).parent;
    }
    if (node != nullptr) {
      emptied.insert(addition.entry);
    }
    return node != nullptr;
  });
  for (const OutputLog::Addition& addition : log.additions()) {
    if (!only_names_entry(addition)) {
      emptied.erase(addition.entry);
    }
  }
  log.drop_if([&](const OutputLog::Addition& addition) {
    return only_names_entry(addition) && emptied.count(addition.entry) != 0;
  });
}

}  // namespace oclacp::host
