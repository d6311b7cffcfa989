#include "host/trees/subtree_filter.h"

#include <cstring>
#include <unordered_set>

#include "host/trees/request_tree.h"

namespace oclacp::host {
namespace {

// Whether a node of a request says what the parts around it must hold.
bool is_match(const yfw_datatree& node) {
  return requested_value(&node) != nullptr;
}

// Whether it asks for something. A leaf may do both.
bool is_selection(const yfw_datatree& node) {
  return node.value == nullptr;
}

bool holds(const lyd_node* node, const yfw_datatree& match) {
  for (const lyd_node* child = lyd_child(node); child != nullptr; child = child->next) {
    if (child->schema == info_of(&match).schema) {
      // By what the value means: 04096 is 4096.
      const char* value = requested_value(&match);
      return lyd_value_compare(reinterpret_cast<const lyd_node_term*>(child), value, std::strlen(value)) == LY_SUCCESS;
    }
  }
  return false;
}

// The nodes that a request asks for.
class Selection {
 public:
  // Whether `wanted` asks for this node of the same schema, or for something in it, which is noted.
  bool take(const lyd_node* node, const yfw_datatree& wanted) {
    bool names_content = false;
    for (unsigned index = 0; index < wanted.child_count; ++index) {
      const yfw_datatree& below = wanted.children[index];
      names_content |= is_selection(below);
      if (is_match(below) && !holds(node, below)) {
        return false;
      }
    }
    if (!names_content) {
      whole_.insert(node);
      return true;
    }
    const bool is_asked_for = take_below(node, wanted);
    if (is_asked_for) {
      partly_.insert(node);
    }
    return is_asked_for;
  }

  // Takes away what is not asked for below a node that is; keys stay.
  void cut(lyd_node* node) const {
    if (whole_.count(node) != 0) {
      return;
    }
    lyd_node* next = nullptr;
    for (lyd_node* child = lyd_child(node); child != nullptr; child = next) {
      next = child->next;
      if (whole_.count(child) != 0 || partly_.count(child) != 0) {
        cut(child);
      } else if (!lysc_is_key(child->schema)) {
        lyd_free_tree(child);
      }
    }
  }

 private:
  // The value of a key says which entry is meant, and asks for nothing.
  bool take_below(const lyd_node* node, const yfw_datatree& wanted) {
    bool is_asked_for = false;
    for (const lyd_node* child = lyd_child(node); child != nullptr; child = child->next) {
      for (unsigned index = 0; index < wanted.child_count; ++index) {
        const yfw_datatree& below = wanted.children[index];
        const bool is_key_value = lysc_is_key(child->schema) && !is_selection(below);
        if (info_of(&below).schema == child->schema && !is_key_value) {
          is_asked_for |= take(child, below);
        }
      }
    }
    return is_asked_for;
  }

  std::unordered_set<const lyd_node*> whole_;   // with all that is in them
  std::unordered_set<const lyd_node*> partly_;  // with what is taken of it
};

}  // namespace

void apply_subtree_filter(TreePtr& answer, const yfw_datatree* request) {
  lyd_node* top = answer.get();
  if (top == nullptr) {
    return;
  }
  Selection selection;
  if (top->schema == info_of(request).schema && selection.take(top, *request)) {
    selection.cut(top);
  } else {
    answer.reset();
  }
}

}  // namespace oclacp::host
