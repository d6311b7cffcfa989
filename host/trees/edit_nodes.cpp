#include "host/trees/edit_nodes.h"

#include <vector>

#include "host/base/error.h"
#include "host/trees/node.h"
#include "host/trees/request_tree.h"
#include "host/yang/data_nodes.h"
#include "host/yang/libyang_error.h"
#include "host/yang/path_text.h"

namespace oclacp::host {
namespace {

std::string native_path(const EditNode& node) {
  std::vector<const EditNode*> chain;
  for (const EditNode* above = &node; above->schema != nullptr; above = above->parent) {
    chain.push_back(above);
  }
  std::string path;
  const lys_module* module = nullptr;
  for (auto step = chain.rbegin(); step != chain.rend(); ++step) {
    append_step(path, *(*step)->schema, module);
    module = (*step)->schema->module;
    const lysc_node* key = lysc_node_child((*step)->schema);
    for (const std::string_view value : (*step)->keys) {
      append_predicate(path, key->name, value);
      key = key->next;
    }
  }
  return path;
}

}  // namespace

LY_ERR make_native_node(const EditNode& node, const char* value, lyd_node* parent, lyd_node*& made) {
  const lysc_node* schema = node.schema;
  if (schema->nodetype == LYS_LIST) {
    return make_list_entry(parent, schema, node.keys, made);
  }
  if ((schema->nodetype & LYD_NODE_TERM) != 0) {
    return lyd_new_term(parent, schema->module, schema->name, value == nullptr ? "" : value, 0, &made);
  }
  return lyd_new_inner(parent, schema->module, schema->name, 0, &made);
}

void refuse_native(ErrorKind kind, const EditNode& node, const std::string& reason) {
  const std::string source = node.source == nullptr ? "" : node_path(node.source) + ": ";
  const std::string path = native_path(node);
  throw Error(kind, source + "native " + path + ": " + reason, {.path = path, .file = {}});
}

void refuse_native(const ly_ctx* context, const EditNode& node) {
  const LibyangError error = last_libyang_error(context);
  refuse_native(error.kind, node, error.reason);
}

}  // namespace oclacp::host
