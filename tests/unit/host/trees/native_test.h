// Native data and what is built from it.
#pragma once

#include <string>

#include "host/yang/native_parser.h"
#include "tests/support/native_json.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {

using support::native_entry;
using support::native_interfaces;

inline TreePtr parse_native(const std::string& text) {
  return parse_native(schemas().native(), text, inspect_native(schemas().native(), text), true);
}

// The top node of interface configuration.
inline const lyd_node* interface_top(const TreePtr& data) {
  const lyd_node* top = data.get();
  while (top != nullptr && std::strcmp(top->schema->name, "interface-configurations") != 0) {
    top = top->next;
  }
  return top;
}

// A walked tree as text: "top(child=value child(...))".
inline std::string shown(const yfw_datatree& node) {
  std::string text = node.tag;
  if (node.value != nullptr) {
    text.append("=").append(node.value);
  }
  for (unsigned index = 0; index < node.child_count; ++index) {
    text += (index == 0 ? "(" : " ") + shown(node.children[index]) + (index + 1 == node.child_count ? ")" : "");
  }
  return text;
}

}  // namespace oclacp::host
