#include "host/reading.h"

#include "host/refusal.h"

namespace oclacp::host {
namespace {

bool is_container(const yfw_datatree& node) {
  return info_of(&node).schema->nodetype == LYS_CONTAINER;
}

// Where a tree branches first: at its list entries, whether they stand directly below the top node or deeper.
yfw_datatree& first_branching(yfw_datatree* node) {
  while (node->child_count == 1 && is_container(node->children[0])) {
    node = &node->children[0];
  }
  return *node;
}

}  // namespace

unsigned count_keys(const yfw_datatree& node) {
  unsigned count = 0;
  while (count < node.child_count && lysc_is_key(info_of(&node.children[count]).schema)) {
    ++count;
  }
  return count;
}

void visit_alone(yfw_datatree& parent, const std::function<void(yfw_datatree& child)>& visit) {
  const unsigned keys = count_keys(parent);
  const unsigned count = parent.child_count;
  yfw_datatree* const children = parent.children;
  // Children stand side by side, so each is copied behind the keys.
  std::vector<yfw_datatree> alone(children, children + keys);
  alone.emplace_back();
  parent.children = alone.data();
  parent.child_count = keys + 1;
  for (unsigned index = keys; index < count; ++index) {
    alone.back() = children[index];
    visit(alone.back());
  }
  parent.children = children;
  parent.child_count = count;
}

// Nothing when it went well, or no mapping serves the tree.
std::optional<std::string> Reading::walk(const yfw_datatree* top, const lyd_node* data) {
  const yfw_map_walker walker = module_.native_walker(data->schema->module->ns, data->schema->name);
  if (walker == nullptr) {
    return std::nullopt;
  }
  EditScript output(paths_, false);
  if (std::optional<std::string> failure = walk_native(walker, top, operation_, output, sinks_)) {
    return failure;
  }
  try {
    answer_.add(output);
  } catch (const Refusal& refusal) {
    return refusal.what();
  }
  return std::nullopt;
}

void Reading::read(const lyd_node* data, const NativeSelection::Node* selected) {
  NativeTree tree(data, selected);
  if (const std::optional<std::string> failure = walk(tree.top(), data)) {
    throw Refusal(*failure);
  }
}

std::vector<std::string> Reading::read_by_entry(const lyd_node* data, const NativeSelection::Node* selected) {
  NativeTree tree(data, selected);
  std::vector<std::string> failures;
  visit_alone(first_branching(tree.top()), [&](const yfw_datatree& /*child*/) {
    if (std::optional<std::string> failure = walk(tree.top(), data)) {
      failures.push_back(std::move(*failure));
    }
  });
  return failures;
}

void Reading::finish(Answer& answer) {
  answer.dropped_leaves = answer_.dropped_leaves();
  answer.valueless = answer_.valueless();
  answer.data = answer_.take();
}

}  // namespace oclacp::host
