#include "host/translation/unmapped_leaves.h"

#include <functional>

#include "host/base/printable_text.h"
#include "host/translation/run_walker.h"
#include "host/trees/native_tree.h"
#include "host/trees/node.h"

namespace oclacp::host {
namespace {

// How many of a node's children, the first ones, are its keys.
unsigned count_keys(const yfw_datatree& node) {
  unsigned count = 0;
  while (count < node.child_count && lysc_is_key(info_of(&node.children[count]).schema)) {
    ++count;
  }
  return count;
}

// Calls `visit` with each child of `parent` in turn being its only one beside its keys, and restores all of them.
void for_each_child_alone(yfw_datatree& parent, const std::function<void(yfw_datatree& child)>& visit) {
  const unsigned keys = count_keys(parent);
  const unsigned count = parent.child_count;
  yfw_datatree* const children = parent.children;
  // Children stand side by side, so each is copied after the keys.
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

// Walks a tree and its parts.
class Search {
 public:
  Search(yfw_map_walker walker, SchemaIndex& paths, const yfw_datatree* top)
      : walker_(walker), paths_(paths), top_(top) {}

  // Looks through one list entry, the only one in the tree at the moment.
  void check_entry(yfw_datatree& entry) {
    const unsigned count = entry.child_count;
    entry.child_count = count_keys(entry);
    of_keys_ = output_of_walk();
    entry.child_count = count;
    if (of_keys_ != 0) {
      check_leaves(entry);
    }
  }

  std::vector<std::string> take() { return std::move(found_); }

 private:
  // Every leaf below a node, each alone in the tree.
  void check_leaves(yfw_datatree& node) {
    if (node.child_count != 0) {
      for_each_child_alone(node, [this](yfw_datatree& child) { check_leaves(child); });
    } else if ((info_of(&node).schema->nodetype & LYD_NODE_TERM) != 0 && output_of_walk() <= of_keys_) {
      found_.push_back(printable(node_path(&node) + (node.value == nullptr ? "" : " = " + std::string(node.value))));
    }
  }

  // How much the module adds for the tree as it is; nothing when it refuses it.
  size_t output_of_walk() {
    OutputLog output(paths_, false);
    return walk_native(walker_, top_, YFW_REQUEST_READ_CONFIG, output, {}) ? 0 : output.additions().size();
  }

  yfw_map_walker walker_;
  SchemaIndex& paths_;
  const yfw_datatree* top_;
  size_t of_keys_ = 0;  // the result of the entry's keys
  std::vector<std::string> found_;
};

}  // namespace

std::vector<std::string> find_unmapped(const lyd_node* data, const NativeSelection::Node& selected,
                                       yfw_map_walker walker, SchemaIndex& paths) {
  // Of each entry that is selected in part, all.
  NativeSelection::Node whole_entries = selected;
  std::vector<NativeSelection::Node> entries;
  entries.reserve(selected.children.size());
  whole_entries.children.clear();
  for (const NativeSelection::Node* child : selected.children) {
    if (child->schema->nodetype == LYS_LIST) {
      entries.push_back(*child);
      entries.back().is_whole = true;
      whole_entries.children.push_back(&entries.back());
    }
  }
  NativeTree tree(data, &whole_entries);
  Search search(walker, paths, tree.top());
  for_each_child_alone(*tree.top(), [&](yfw_datatree& entry) { search.check_entry(entry); });
  return search.take();
}

}  // namespace oclacp::host
