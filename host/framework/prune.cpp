#include "host/framework/prune.h"

#include <cstring>

#include "host/framework/request_tree.h"

namespace oclacp::host {
namespace {

bool is_match(const yfw_datatree& node) {
  return node.value != nullptr;
}

bool holds(const lyd_node* node, const yfw_datatree& match) {
  for (const lyd_node* child = lyd_child(node); child != nullptr; child = child->next) {
    if (child->schema == info_of(&match).schema) {
      return std::strcmp(lyd_get_value(child), match.value) == 0;
    }
  }
  return false;
}

bool keeps(lyd_node* node, const yfw_datatree& wanted);

// Whether any of the nodes below `wanted` asks for this child, which loses what they do not ask for. The value of a key
// says which entry is meant, and asks for nothing.
bool keeps_child(lyd_node* child, const yfw_datatree& wanted) {
  for (unsigned index = 0; index < wanted.child_count; ++index) {
    const yfw_datatree& below = wanted.children[index];
    const bool is_key_value = lysc_is_key(child->schema) && is_match(below);
    if (info_of(&below).schema == child->schema && !is_key_value && keeps(child, below)) {
      return true;
    }
  }
  return false;
}

// Whether `wanted` asks for this node of the same schema, which loses what it does not ask for.
bool keeps(lyd_node* node, const yfw_datatree& wanted) {
  bool names_content = false;
  for (unsigned index = 0; index < wanted.child_count; ++index) {
    const yfw_datatree& below = wanted.children[index];
    names_content |= !is_match(below);
    if (is_match(below) && !holds(node, below)) {
      return false;
    }
  }
  if (!names_content) {
    return true;
  }
  bool is_asked_for = false;
  lyd_node* next = nullptr;
  for (lyd_node* child = lyd_child(node); child != nullptr; child = next) {
    next = child->next;
    if (keeps_child(child, wanted)) {
      is_asked_for = true;
    } else if (!lysc_is_key(child->schema)) {
      lyd_free_tree(child);
    }
  }
  return is_asked_for;
}

}  // namespace

void prune(TreePtr& answer, const yfw_datatree* request) {
  lyd_node* top = answer.get();
  if (top != nullptr && (top->schema != info_of(request).schema || !keeps(top, *request))) {
    answer.reset();
  }
}

}  // namespace oclacp::host
