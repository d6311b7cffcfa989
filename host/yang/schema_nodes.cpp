#include "host/yang/schema_nodes.h"

#include <string_view>

#include "host/base/error.h"
#include "host/yang/path_parser.h"
#include "host/yang/path_text.h"

namespace oclacp::host {
namespace {

const lysc_node* child_of_module(const lysc_node* above, const lys_module* module, const std::string& name) {
  return module->implemented == 0 ? nullptr : lys_find_child(above, module, name.c_str(), name.size(), 0, 0);
}

bool has_leaf(const lysc_node* node, const std::string& name) {
  const lysc_node* child = child_of_module(node, node->module, name);
  return child != nullptr && is_leaf(child);
}

void check_predicates(const lysc_node* node, const PathStep& step) {
  for (const auto& [name, value] : step.predicates) {
    if (name == "." ? !is_leaf(node) : !has_leaf(node, name)) {
      throw node_error(ErrorKind::kUnknownElement, schema_path(node),
                       "the predicate '" + name + "' names no leaf of it");
    }
  }
}

const lysc_node* find_node(const ly_ctx* context, const std::vector<PathStep>& steps) {
  std::vector<const lysc_node*> nodes;
  for (const PathStep& step : steps) {
    const lysc_node* node = find_step(context, nodes.empty() ? nullptr : nodes.back(), step);
    if (node == nullptr) {
      return nullptr;
    }
    nodes.push_back(node);
  }
  for (size_t index = 0; index < steps.size(); ++index) {
    check_predicates(nodes[index], steps[index]);
  }
  return nodes.back();
}

// The node above in data: choices and their cases are skipped.
const lysc_node* data_parent(const lysc_node* node) {
  do {
    node = node->parent;
  } while (node != nullptr && (node->nodetype & (LYS_CHOICE | LYS_CASE)) != 0);
  return node;
}

}  // namespace

const lysc_node* find_step(const ly_ctx* context, const lysc_node* above, const PathStep& step) {
  if (step.module.empty() && above != nullptr) {
    if (const lysc_node* node = child_of_module(above, above->module, step.name); node != nullptr) {
      return node;
    }
  }
  uint32_t index = 0;
  for (const lys_module* module = ly_ctx_get_module_iter(context, &index); module != nullptr;
       module = ly_ctx_get_module_iter(context, &index)) {
    if (!step.module.empty() && step.module != module->name && step.module != module->prefix) {
      continue;
    }
    if (const lysc_node* node = child_of_module(above, module, step.name); node != nullptr) {
      return node;
    }
  }
  return nullptr;
}

std::vector<const lysc_node*> find_nodes(const Schemas& schemas, const std::string& path) {
  const std::vector<PathStep> steps = parse_path_steps(path);
  std::vector<const lysc_node*> nodes;
  for (const ly_ctx* context : {schemas.request(), schemas.native()}) {
    if (const lysc_node* node = find_node(context, steps); node != nullptr) {
      nodes.push_back(node);
    }
  }
  if (nodes.empty()) {
    throw node_error(ErrorKind::kUnknownElement, path, "neither openconfig-lacp nor a native model has such a node");
  }
  return nodes;
}

std::string schema_path(const lysc_node* node) {
  const lysc_node* parent = data_parent(node);
  std::string path = parent == nullptr ? "" : schema_path(parent);
  append_step(path, *node, parent == nullptr ? nullptr : parent->module);
  return path;
}

std::string bare_path(const lysc_node* node) {
  return node == nullptr ? "" : bare_path(data_parent(node)) + "/" + node->name;
}

std::vector<const lysc_node*> data_children(const lysc_node* parent) {
  std::vector<const lysc_node*> children;
  const lysc_node* child = nullptr;
  while ((child = lys_getnext(child, parent, nullptr, 0)) != nullptr) {
    if ((child->nodetype & (LYS_RPC | LYS_ACTION | LYS_NOTIF)) == 0) {
      children.push_back(child);
    }
  }
  return children;
}

std::vector<const lysc_node*> leaves_of(const lysc_node* node) {
  if (is_leaf(node)) {
    return {node};
  }
  std::vector<const lysc_node*> leaves;
  for (const lysc_node* child : data_children(node)) {
    const std::vector<const lysc_node*> below = leaves_of(child);
    leaves.insert(leaves.end(), below.begin(), below.end());
  }
  return leaves;
}

const lysc_node* innermost_list(const lysc_node* node) {
  while (node != nullptr && node->nodetype != LYS_LIST) {
    node = node->parent;
  }
  return node;
}

}  // namespace oclacp::host
