#include "host/translation/creation_check.h"

#include <cstring>

#include "host/base/error.h"
#include "host/trees/node.h"
#include "host/trees/operation.h"
#include "host/yang/data_nodes.h"

namespace oclacp::host {
namespace {

// Whether the settings of the whole system are there; libyang adds their container when they are not.
bool has_global_settings(const lyd_node* running) {
  while (running != nullptr && (std::strcmp(running->schema->name, "lacp") != 0 ||
                                std::strcmp(running->schema->module->name, "Talvo-Brin-QD-bundlemgr-cfg") != 0)) {
    running = running->next;
  }
  return running != nullptr && is_explicit(running);
}

// Whether the device has what a list entry, a container or the name of an entry stands for.
bool exists(const yfw_datatree* node, CurrentDevice& device) {
  const yfw_datatree* entry = node;
  while (entry != nullptr && info_of(entry).schema->nodetype != LYS_LIST) {
    entry = info_of(entry).parent;
  }
  if (entry != nullptr) {
    const char* name = key_value(entry);
    return name != nullptr && device.configuration().has_lacp(name);
  }
  const bool is_top = info_of(node).parent == nullptr;
  if (!is_top && std::strcmp(node->tag, "interfaces") == 0) {
    return device.configuration().has_lacp();
  }
  return has_global_settings(device.device().running()) || (is_top && device.configuration().has_lacp());
}

bool is_inner(const yfw_datatree& node) {
  return (info_of(&node).schema->nodetype & LYD_NODE_TERM) == 0;
}

// Whether a leaf below a node is set, other than to name the entry.
bool sets_something(const yfw_datatree& node) {
  for (unsigned index = 0; index < node.child_count; ++index) {
    const yfw_datatree& child = node.children[index];
    if (is_inner(child) ? sets_something(child) : !is_key_or_key_target(&child) && !deletes(child.operation)) {
      return true;
    }
  }
  return false;
}

// Whether a node or something below it is deleted or replaced.
bool takes_something_away(const yfw_datatree& node) {
  if (deletes(node.operation) || node.operation == YFW_OPERATION_REPLACE) {
    return true;
  }
  for (unsigned index = 0; index < node.child_count; ++index) {
    if (takes_something_away(node.children[index])) {
      return true;
    }
  }
  return false;
}

}  // namespace

void check_creations(RequestTree& tree, CurrentDevice& device) {
  for (const yfw_datatree& node : tree.nodes()) {
    const bool is_judged = is_inner(node) || is_key_or_key_target(&node);
    if (node.operation == YFW_OPERATION_CREATE && is_judged && exists(&node, device)) {
      throw node_error(ErrorKind::kDataExists, node_path(&node), "cannot be created, the device has it already");
    }
  }
}

void check_creations_set_something(RequestTree& tree) {
  for (const yfw_datatree& node : tree.nodes()) {
    if (node.operation == YFW_OPERATION_CREATE && is_inner(node) && !sets_something(node)) {
      throw node_error(ErrorKind::kMissingElement, node_path(&node),
                       "cannot be created without a setting in it, the device would not have it");
    }
  }
}

std::vector<std::string> find_entries_without_settings(RequestTree& tree, CurrentDevice& device) {
  std::vector<std::string> sentences;
  for (const yfw_datatree& node : tree.nodes()) {
    if (info_of(&node).schema->nodetype == LYS_LIST && !is_deleted(&node) && !takes_something_away(node) &&
        !sets_something(node) && !exists(&node, device)) {
      sentences.push_back(node_path(&node) + ": names no setting, the device will not have it");
    }
  }
  return sentences;
}

}  // namespace oclacp::host
