#include "host/trees/request_tree.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "host/base/error.h"
#include "host/base/interface_names.h"
#include "host/base/printable_text.h"
#include "host/trees/opaque_nodes.h"
#include "host/trees/operation.h"
#include "host/yang/schemas.h"

namespace oclacp::host {
namespace {

// The operation of a name that RFC 6241 gives it.
std::optional<uint32_t> parse_operation(std::string_view text) {
  static constexpr std::pair<std::string_view, uint32_t> kOperations[] = {
      {"none", YFW_OPERATION_NONE},     {"merge", YFW_OPERATION_NONE},    {"replace", YFW_OPERATION_REPLACE},
      {"create", YFW_OPERATION_CREATE}, {"delete", YFW_OPERATION_DELETE}, {"remove", YFW_OPERATION_REMOVE}};
  for (const auto& [name, operation] : kOperations) {
    if (name == text) {
      return operation;
    }
  }
  return std::nullopt;
}

// Finds nodes that a request has twice among the children of one node, in a time linear in the children.
class Siblings {
 public:
  // Whether there was one like it. A second key leaf is for the module to refuse.
  bool is_again(const yfw_datatree* node) {
    const lysc_node* schema = info_of(node).schema;
    if (lysc_is_key(schema)) {
      return false;
    }
    if (schema->nodetype == LYS_LIST) {
      const char* key = key_value(node);
      return key != nullptr && !entries_[schema].insert(key).second;
    }
    // At most as many as the schema has nodes here.
    const bool was_seen = std::find(seen_.begin(), seen_.end(), schema) != seen_.end();
    seen_.push_back(schema);
    return was_seen;
  }

 private:
  std::vector<const lysc_node*> seen_;
  std::unordered_map<const lysc_node*, std::unordered_set<std::string_view>> entries_;  // by list, their keys
};

}  // namespace

RequestTree::RequestTree(const ly_ctx* context, TreePtr data)
    : context_(context), operation_module_(operation_module(context)), data_(std::move(data)) {
  size_t count = 0;
  const lyd_node* node = nullptr;
  LYD_TREE_DFS_BEGIN(data_.get(), node) {
    // A list entry may get a child more than it has.
    count += node->schema != nullptr && node->schema->nodetype != LYS_LIST ? 1 : 2;
    LYD_TREE_DFS_END(data_.get(), node);
  }
  nodes_.reserve(count);
  infos_.reserve(count);

  append(nullptr, data_.get(), data_->schema);
  for (size_t index = 0; index < nodes_.size(); ++index) {
    append_children(index);
  }
}

void RequestTree::append(yfw_datatree* parent, const lyd_node* data, const lysc_node* schema) {
  nodes_.push_back({});
  infos_.push_back({parent, data, schema});
  fill(nodes_.size() - 1);
}

void RequestTree::append_children(size_t index) {
  const size_t first = nodes_.size();
  Siblings siblings;
  for (const lyd_node* child = lyd_child(infos_[index].data); child != nullptr; child = child->next) {
    append(&nodes_[index], child, child->schema);
    if (siblings.is_again(&nodes_.back())) {
      throw node_error(ErrorKind::kBadElement, node_path(&nodes_.back()), "named twice");
    }
  }
  if (nodes_[index].operation == YFW_OPERATION_REPLACE && infos_[index].schema->nodetype == LYS_LIST) {
    move_replace_to_config(index, first);
  }
  if (nodes_.size() > first) {
    nodes_[index].children = &nodes_[first];
    nodes_[index].child_count = static_cast<unsigned>(nodes_.size() - first);
    nodes_[index].flags |= YFW_FLAG_SUBTREE;
  }
}

void RequestTree::add_schema_children(yfw_datatree& entry) {
  const lysc_node* list = info_of(&entry).schema;
  AddedNodes& added = added_.emplace_back();
  for (const lysc_node* child = nullptr; (child = lys_getnext(child, list, nullptr, 0)) != nullptr;) {
    if (!lysc_is_key(child)) {
      added.infos.push_back({&entry, nullptr, child});
    }
  }
  added.nodes.resize(added.infos.size());
  for (size_t index = 0; index < added.nodes.size(); ++index) {
    const lysc_node* schema = added.infos[index].schema;
    added.nodes[index].framework = &added.infos[index];
    added.nodes[index].tag = schema->name;
    added.nodes[index].ns = schema->module->ns;
  }
  entry.children = added.nodes.data();
  entry.child_count = static_cast<unsigned>(added.nodes.size());
  entry.flags |= YFW_FLAG_SUBTREE;
}

void RequestTree::select(yfw_datatree& leaf) {
  leaf.value = nullptr;
  leaf.flags &= ~static_cast<uint32_t>(YFW_FLAG_VALUE);
}

void RequestTree::move_replace_to_config(size_t index, size_t first_child) {
  const lysc_node* list = infos_[index].schema;
  const lysc_node* config = lys_find_child(list, list->module, "config", 0, LYS_CONTAINER, 0);
  if (config == nullptr) {
    return;
  }
  size_t child = first_child;
  while (child < nodes_.size() && infos_[child].schema != config) {
    ++child;
  }
  if (child == nodes_.size()) {
    append(&nodes_[index], nullptr, config);
  }
  nodes_[index].operation = YFW_OPERATION_NONE;
  // One that is deleted leaves nothing either.
  if (nodes_[child].operation == YFW_OPERATION_NONE || nodes_[child].operation == YFW_OPERATION_CREATE) {
    nodes_[child].operation = YFW_OPERATION_REPLACE;
  }
}

void RequestTree::fill(size_t index) {
  NodeInfo& info = infos_[index];
  yfw_datatree& node = nodes_[index];
  const lyd_node_opaq* opaque = as_opaque(info.data);
  if (opaque != nullptr) {
    info.schema = find_opaque_schema(context_, *opaque, info.parent);
  }
  node.framework = &info;
  node.tag = info.schema->name;
  node.ns = info.schema->module->ns;
  node.operation = operation_of(node, info);
  if ((info.schema->nodetype & LYD_NODE_TERM) != 0) {
    if (deletes(node.operation) && is_key_or_key_target(&node) && !lysc_is_key(info.schema)) {
      refuse_delete_of_name(&node);
    }
    fill_leaf(node, info);
  } else if (opaque != nullptr && opaque->value[0] != '\0') {
    throw node_error(ErrorKind::kBadElement, node_path(&node), "takes no value");
  }
}

void RequestTree::fill_leaf(yfw_datatree& node, const NodeInfo& info) {
  const lyd_node_opaq* opaque = as_opaque(info.data);
  if (opaque != nullptr && opaque->child != nullptr) {
    throw node_error(ErrorKind::kBadElement, node_path(&node), "a leaf has nothing below it");
  }
  const char* value = opaque == nullptr ? lyd_get_value(info.data) : opaque_value(context_, *opaque, &node);
  // An empty text is treated as none: XML cannot tell the two apart.
  if (value == nullptr || value[0] == '\0') {
    return;
  }
  // Every list of the served model is keyed by an interface.
  if (lysc_is_key(info.schema) && std::strlen(value) > kMaxInterfaceName) {
    const NodeInfo& entry = info_of(info.parent);
    throw node_error(ErrorKind::kInvalidValue,
                     node_path(entry.parent) + "/" + entry.schema->name + "/" + info.schema->name, kNameTooLong);
  }
  node.value = value;
  node.flags |= YFW_FLAG_VALUE;
}

uint32_t RequestTree::operation_of(const yfw_datatree& node, const NodeInfo& info) {
  const char* found = nullptr;
  const auto take = [&](const char* operation) {
    if (found != nullptr) {
      throw node_error(ErrorKind::kBadAttribute, node_path(&node), "its operation is named twice");
    }
    found = operation;
  };
  if (const lyd_node_opaq* opaque = as_opaque(info.data); opaque != nullptr) {
    for (const lyd_attr* attribute = opaque->attr; attribute != nullptr; attribute = attribute->next) {
      const char* owner = attribute->format == LY_VALUE_XML ? operation_module_->ns : operation_module_->name;
      if (attribute->name.module_name == nullptr || std::strcmp(attribute->name.module_name, owner) != 0 ||
          std::strcmp(attribute->name.name, "operation") != 0) {
        throw node_error(ErrorKind::kUnknownAttribute, node_path(&node),
                         "attribute '" + shortened(attribute->name.name) + "' is not understood");
      }
      take(attribute->value);
    }
  } else if (info.data != nullptr) {
    for (const lyd_meta* meta = info.data->meta; meta != nullptr; meta = meta->next) {
      if (meta->annotation->module != operation_module_) {
        throw node_error(ErrorKind::kUnknownAttribute, node_path(&node),
                         std::string("attribute '") + meta->name + "' is not understood");
      }
      take(lyd_get_meta_value(meta));
    }
  }
  if (found == nullptr) {
    return YFW_OPERATION_NONE;
  }
  ++operations_;
  const std::optional<uint32_t> operation = parse_operation(found);
  if (!operation) {
    throw node_error(ErrorKind::kBadAttribute, node_path(&node),
                     "operation '" + shortened(found) + "' is not understood");
  }
  return *operation;
}

}  // namespace oclacp::host
