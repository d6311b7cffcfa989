#include "host/trees/opaque_nodes.h"

#include <cstring>
#include <string>

#include "host/base/error.h"
#include "host/base/printable_text.h"
#include "host/trees/node.h"
#include "host/yang/libyang_error.h"

namespace oclacp::host {
namespace {

// Opaque nodes of JSON inherit their module; those of XML always name it.
const lys_module* module_of(const ly_ctx* context, const lyd_node_opaq& node, const lys_module* inherited) {
  if (node.format == LY_VALUE_XML) {
    return node.name.module_ns == nullptr ? nullptr : ly_ctx_get_module_implemented_ns(context, node.name.module_ns);
  }
  return node.name.module_name == nullptr ? inherited : ly_ctx_get_module_implemented(context, node.name.module_name);
}

}  // namespace

const lysc_node* find_opaque_schema(const ly_ctx* context, const lyd_node_opaq& node, const yfw_datatree* parent) {
  const lysc_node* above = parent == nullptr ? nullptr : info_of(parent).schema;
  const lys_module* module = module_of(context, node, above == nullptr ? nullptr : above->module);
  const std::string where = (parent == nullptr ? "" : node_path(parent)) + "/";
  if (module == nullptr) {
    const std::string name = shortened(node.name.name);
    if (node.name.module_name == nullptr) {
      throw node_error(ErrorKind::kUnknownNamespace, where + name, "is of no module; the top node names its own");
    }
    const std::string unknown = shortened(node.name.module_name);
    throw node_error(ErrorKind::kUnknownNamespace, where + (node.format == LY_VALUE_JSON ? unknown + ":" : "") + name,
                     "unknown module '" + unknown + "'");
  }
  const lysc_node* schema = lys_find_child(above, module, node.name.name, 0, 0, 0);
  if (schema == nullptr) {
    const bool foreign = above == nullptr || above->module != module;
    throw node_error(ErrorKind::kUnknownElement,
                     where + (foreign ? std::string(module->name) + ":" : "") + shortened(node.name.name),
                     "no such node");
  }
  return schema;
}

const char* opaque_value(const ly_ctx* context, const lyd_node_opaq& leaf, const yfw_datatree* node) {
  if (leaf.value[0] == '\0' && (leaf.hints & LYD_VALHINT_EMPTY) != 0) {
    return nullptr;
  }
  // A reference's value is fine as long as its target may be.
  const LY_ERR status =
      lyd_value_validate(context, info_of(node).schema, leaf.value, std::strlen(leaf.value), nullptr, nullptr, nullptr);
  if (status != LY_SUCCESS && status != LY_EINCOMPLETE) {
    throw node_error(ErrorKind::kInvalidValue, node_path(node), last_libyang_error(context).reason);
  }
  return leaf.value;
}

}  // namespace oclacp::host
