#include "host/yang/node_shapes.h"

namespace oclacp::host {
namespace {

uint32_t find_or_create(const lysc_node* schema) {
  const lysc_node* parent = lysc_data_parent(schema);
  uint32_t place = 0;
  const lysc_node* sibling = nullptr;
  while ((sibling = lys_getnext(sibling, parent, schema->module->compiled, 0)) != nullptr && sibling != schema) {
    ++place;
  }
  return place;
}

}  // namespace

const NodeShape& NodeShapes::of(const lysc_node* schema) {
  if (const auto known = by_schema_.find(schema); known != by_schema_.end()) {
    return *known->second;
  }
  const lysc_node* parent = lysc_data_parent(schema);
  const uint32_t above = parent == nullptr ? NodeShape::kTop : of(parent).number;
  const lys_module* module = schema->module;
  const std::string name = schema->name;
  const bool names_module = parent == nullptr || parent->module != module;
  NodeShape& shape = shapes_.emplace_back();
  shape.schema = schema;
  shape.number = static_cast<uint32_t>(shapes_.size() - 1);
  shape.parent = above;
  shape.place = find_or_create(schema);
  shape.is_list = (schema->nodetype & (LYS_LIST | LYS_LEAFLIST)) != 0;
  shape.is_leaf = (schema->nodetype & LYD_NODE_TERM) != 0;
  shape.is_printed_empty = schema->nodetype == LYS_LIST || (schema->flags & LYS_PRESENCE) != 0;
  shape.json_name = "\"" + (names_module ? std::string(module->name) + ":" : "") + name + "\": ";
  shape.xml_start = "<" + name + (names_module ? std::string(" xmlns=\"") + module->ns + "\"" : "");
  shape.xml_end = "</" + name + ">\n";
  by_schema_.emplace(schema, &shape);
  return shape;
}

}  // namespace oclacp::host
