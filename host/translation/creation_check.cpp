#include "host/translation/creation_check.h"

#include <cstring>

#include "host/base/error.h"

namespace oclacp::host {
namespace {

// Whether the settings of the whole system are there; libyang adds their container when they are not.
bool has_global_settings(const lyd_node* running) {
  while (running != nullptr && (std::strcmp(running->schema->name, "lacp") != 0 ||
                                std::strcmp(running->schema->module->name, "Talvo-Brin-QD-bundlemgr-cfg") != 0)) {
    running = running->next;
  }
  return running != nullptr && (running->flags & LYD_DEFAULT) == 0;
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

}  // namespace

void check_creations(RequestTree& tree, CurrentDevice& device) {
  for (const yfw_datatree& node : tree.nodes()) {
    const bool is_judged = (info_of(&node).schema->nodetype & LYD_NODE_TERM) == 0 || is_key_or_key_target(&node);
    if (node.operation == YFW_OPERATION_CREATE && is_judged && exists(&node, device)) {
      throw Error(node_path(&node) + ": cannot be created, the device has it already");
    }
  }
}

}  // namespace oclacp::host
