#include "host/trees/edit_printer.h"

#include <algorithm>
#include <vector>

#include "host/base/error.h"
#include "host/trees/edit_nodes.h"
#include "host/yang/text_sink.h"

namespace oclacp::host {
namespace {

constexpr std::string_view kXmlOperation = " xmlns:nc=\"urn:ietf:params:xml:ns:netconf:base:1.0\"";

const char* operation_name(uint32_t operation) {
  static constexpr const char* kNames[] = {"", "replace", "create", "delete", "remove"};
  return kNames[operation];
}

// A node that is written.
struct Item {
  const EditNode* node;
  const NodeShape* shape;

  // A leaf that is named and not set.
  [[nodiscard]] bool is_bare() const { return shape->is_leaf && !node->is_set; }
  [[nodiscard]] bool has_operation() const { return node->operation != YFW_OPERATION_NONE; }
};

template <typename Visit>
bool any_child(const EditNode& node, const Visit& visit) {
  const auto is_found = [&](const EditNode* child) { return child != nullptr && visit(*child); };
  return std::any_of(node.children.begin(), node.children.end(), is_found) ||
         std::any_of(node.entries.begin(), node.entries.end(), is_found);
}

// What both formats have in common.
class EditWriter {
 public:
  EditWriter(TreeContext& context, TextSink& sink) : context_(context), sink_(sink) {}

 protected:
  // The children of a node that are written, in their order.
  std::vector<Item> items_below(const EditNode& node) {
    std::vector<Item> items;
    items.reserve(node.children.size() + node.entries.size());
    any_child(node, [&](const EditNode& child) {
      if (is_written(child)) {
        items.push_back({&child, &context_.shapes.of(child.schema)});
      }
      return false;
    });
    const auto module_rank = [&](const Item& item) {
      return std::find_if(items.begin(), items.end(),
                          [&](const Item& other) { return other.shape->schema->module == item.shape->schema->module; });
    };
    std::vector<Item> sorted = items;
    std::stable_sort(sorted.begin(), sorted.end(), [&](const Item& one, const Item& other) {
      if (one.is_bare() != other.is_bare()) {
        return other.is_bare();
      }
      // Top nodes have an order within their module alone.
      if (one.shape->parent == NodeShape::kTop && one.shape->schema->module != other.shape->schema->module) {
        return module_rank(one) < module_rank(other);
      }
      return !one.is_bare() && one.shape->place < other.shape->place;
    });
    return sorted;
  }

  // Containers that stand for nothing by themselves are written with something in them alone.
  bool is_written(const EditNode& node) {
    const NodeShape& shape = context_.shapes.of(node.schema);
    return shape.is_leaf || shape.is_printed_empty || node.operation != YFW_OPERATION_NONE ||
           any_child(node, [this](const EditNode& child) { return is_written(child); });
  }

  CheckedValue check(const EditNode& node, const lysc_node* leaf, std::string_view text) {
    const CheckedValue* value = context_.values.check(leaf, text);
    if (value == nullptr) {
      refuse_native(ErrorKind::kInvalidValue, node, context_.values.reason());
    }
    return *value;
  }

  TreeContext& context_;
  TextSink& sink_;
};

class JsonEdit : EditWriter {
 public:
  using EditWriter::EditWriter;

  void write_document(const EditNode& root) {
    if (!any_child(root, [](const EditNode&) { return true; })) {
      sink_.put("{}\n");
      return;
    }
    sink_.put("{");
    level_ = 1;
    is_first_ = true;
    write_members(root);
    sink_.put(is_first_ ? "\n\n}\n" : "\n}\n");
  }

 private:
  // The line of a member begins.
  void begin_member() {
    sink_.put(is_first_ ? "\n" : ",\n");
    is_first_ = false;
    sink_.indent(level_);
  }

  void write_members(const EditNode& node) {
    const std::vector<Item> items = items_below(node);
    for (size_t index = 0; index < items.size();) {
      const Item& item = items[index];
      begin_member();
      sink_.put(item.shape->json_name);
      if (item.shape->is_leaf) {
        write_leaf(item);
        ++index;
      } else if (!item.shape->is_list) {
        write_object(item);
        ++index;
      } else {
        index = write_array(items, index);
      }
    }
  }

  void write_leaf(const Item& item) {
    write_value(item.is_bare() ? CheckedValue{ValueForm::kEmpty, {}, {}, {}}
                               : check(*item.node, item.shape->schema, item.node->value));
    if (item.has_operation()) {
      begin_member();
      sink_.put("\"@");
      sink_.put(std::string_view(item.shape->json_name).substr(1));
      write_operation(*item.node);
    }
  }

  void write_value(const CheckedValue& value) {
    if (value.form == ValueForm::kBare) {
      sink_.put(value.text);
    } else if (value.form == ValueForm::kEmpty) {
      sink_.put("[null]");
    } else {
      sink_.put('"');
      sink_.put_json(value.text);
      sink_.put('"');
    }
  }

  // The entries of one list; returns where the next member is.
  size_t write_array(const std::vector<Item>& items, size_t index) {
    const NodeShape* list = items[index].shape;
    sink_.put("[");
    ++level_;
    for (is_first_ = true; index < items.size() && items[index].shape == list; ++index) {
      begin_member();
      write_object(items[index]);
    }
    end_block(']');
    return index;
  }

  void write_object(const Item& item) {
    sink_.put("{");
    ++level_;
    is_first_ = true;
    if (item.has_operation()) {
      begin_member();
      sink_.put("\"@\": ");
      write_operation(*item.node);
    }
    const lysc_node* key = lysc_node_child(item.shape->schema);
    for (const std::string_view value : item.node->keys) {
      begin_member();
      sink_.put(context_.shapes.of(key).json_name);
      write_value(check(*item.node, key, value));
      key = key->next;
    }
    write_members(*item.node);
    end_block('}');
  }

  void write_operation(const EditNode& node) {
    sink_.put("{\n");
    sink_.indent(level_ + 1);
    sink_.put("\"ietf-netconf:operation\": \"");
    sink_.put(operation_name(node.operation));
    sink_.put("\"\n");
    sink_.indent(level_);
    sink_.put('}');
  }

  void end_block(char bracket) {
    --level_;
    if (!is_first_) {
      sink_.put('\n');
      sink_.indent(level_);
    }
    sink_.put(bracket);
    is_first_ = false;
  }

  unsigned level_ = 0;
  bool is_first_ = true;  // nothing stands in the innermost object or array yet
};

class XmlEdit : EditWriter {
 public:
  using EditWriter::EditWriter;

  // `names_operations`: an element around these has declared the prefix of the operation attribute.
  void write_below(const EditNode& node, unsigned level, bool names_operations) {
    for (const Item& item : items_below(node)) {
      write(item, level, names_operations);
    }
  }

 private:
  void write(const Item& item, unsigned level, bool names_operations) {
    sink_.indent(level);
    sink_.put(item.shape->xml_start);
    if (item.has_operation()) {
      sink_.put(names_operations ? "" : kXmlOperation);
      sink_.put(" nc:operation=\"");
      sink_.put(operation_name(item.node->operation));
      sink_.put('"');
    }
    if (item.is_bare()) {
      sink_.put("/>\n");
    } else if (item.shape->is_leaf) {
      write_value(check(*item.node, item.shape->schema, item.node->value), *item.shape);
    } else {
      write_content(item, level, names_operations || item.has_operation());
    }
  }

  void write_content(const Item& item, unsigned level, bool names_operations) {
    if (item.node->keys.empty() &&
        !any_child(*item.node, [this](const EditNode& child) { return is_written(child); })) {
      sink_.put("/>\n");
      return;
    }
    sink_.put(">\n");
    const lysc_node* key = lysc_node_child(item.shape->schema);
    for (const std::string_view value : item.node->keys) {
      const NodeShape& shape = context_.shapes.of(key);
      sink_.indent(level + 1);
      sink_.put(shape.xml_start);
      write_value(check(*item.node, key, value), shape);
      key = key->next;
    }
    write_below(*item.node, level + 1, names_operations);
    sink_.indent(level);
    sink_.put(item.shape->xml_end);
  }

  void write_value(const CheckedValue& value, const NodeShape& shape) {
    sink_.put(value.xml_names);
    const std::string_view text = value.form == ValueForm::kQualified ? value.xml_text : value.text;
    if (text.empty()) {
      sink_.put("/>\n");
      return;
    }
    sink_.put('>');
    sink_.put_xml(text);
    sink_.put(shape.xml_end);
  }
};

}  // namespace

std::string print_edit(TreeContext& context, const EditTree& edit, LYD_FORMAT format) {
  std::string text;
  StringSink sink(text);
  if (format == LYD_XML) {
    XmlEdit(context, sink).write_below(edit.root(), 0, false);
  } else {
    JsonEdit(context, sink).write_document(edit.root());
  }
  sink.flush();
  return text;
}

}  // namespace oclacp::host
