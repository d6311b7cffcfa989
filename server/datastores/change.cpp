#include "server/datastores/change.h"

#include <cstdlib>
#include <cstring>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "host/base/error.h"
#include "host/yang/data_nodes.h"
#include "host/yang/libyang_error.h"

namespace oclacp::server {
namespace {

using host::data_path;
using host::is_explicit;

bool is_leaf(const lyd_node* node) {
  return (node->schema->nodetype & LYD_NODE_TERM) != 0;
}

bool is_plain_container(const lyd_node* node) {
  return node->schema->nodetype == LYS_CONTAINER && (node->schema->flags & LYS_PRESENCE) == 0;
}

// The same node among the siblings of another configuration; null when none counts.
const lyd_node* counterpart(const lyd_node* node, const lyd_node* siblings) {
  lyd_node* found = nullptr;
  return siblings != nullptr && lyd_find_sibling_first(siblings, node, &found) == LY_SUCCESS && is_explicit(found)
             ? found
             : nullptr;
}

class Comparison {
 public:
  void compare(const lyd_node* before, const lyd_node* after) {
    const lyd_node* node = nullptr;
    LY_LIST_FOR(before, node) {
      if (is_explicit(node)) {
        compare_node(node, counterpart(node, after));
      }
    }
    LY_LIST_FOR(after, node) {
      if (is_explicit(node) && counterpart(node, before) == nullptr) {
        tell_whole(ChangeKind::kAdded, node);
      }
    }
  }

  Changes take() { return std::move(changes_); }

 private:
  void compare_node(const lyd_node* before, const lyd_node* after) {
    if (after == nullptr) {
      tell_whole(ChangeKind::kDeleted, before);
    } else if (!is_leaf(before)) {
      compare(lyd_child(before), lyd_child(after));
    } else if (std::strcmp(lyd_get_value(before), lyd_get_value(after)) != 0) {
      changes_.push_back({ChangeKind::kChanged, true, data_path(before), lyd_get_value(before), lyd_get_value(after)});
    }
  }

  // A node that only one side has, with all below it.
  void tell_whole(ChangeKind kind, const lyd_node* node) {
    if (is_leaf(node)) {
      const std::string value = lyd_get_value(node);
      const bool is_added = kind == ChangeKind::kAdded;
      changes_.push_back({kind, true, data_path(node), is_added ? "" : value, is_added ? value : ""});
      return;
    }
    if (!is_plain_container(node)) {
      changes_.push_back({kind, false, data_path(node), "", ""});
    }
    const lyd_node* child = nullptr;
    LY_LIST_FOR(lyd_child_no_keys(node), child) {
      if (is_explicit(child)) {
        tell_whole(kind, child);
      }
    }
  }

  Changes changes_;
};

// Calls `visit` with each node above the one that a path leads to, and with that one, until it returns true.
template <typename Visit>
bool visit_prefixes(std::string_view path, const Visit& visit) {
  char quote = 0;
  for (size_t index = 1; index <= path.size(); ++index) {
    if (index == path.size()) {
      return visit(path);
    }
    const char character = path[index];
    if (quote != 0) {
      quote = character == quote ? '\0' : quote;
    } else if (character == '\'' || character == '"') {
      quote = character;
    } else if (character == '/' && visit(path.substr(0, index))) {
      return true;
    }
  }
  return false;
}

// Changes by their paths, for finding those that meet a node.
class ChangesByPath {
 public:
  explicit ChangesByPath(const Changes& changes) {
    for (const Change& change : changes) {
      changes_.emplace(change.path, &change);
    }
  }

  // That of the node, or of an entry that the node is in; null for neither.
  [[nodiscard]] const Change* find(const std::string& path) const {
    const Change* met = nullptr;
    visit_prefixes(path, [&](std::string_view prefix) {
      const auto found = changes_.find(prefix);
      if (found != changes_.end() && (prefix.size() == path.size() || !found->second->is_leaf)) {
        met = found->second;
      }
      return met != nullptr;
    });
    return met;
  }

 private:
  std::unordered_map<std::string_view, const Change*> changes_;
};

const lyd_node* find_node(const lyd_node* configuration, const std::string& path) {
  lyd_node* found = nullptr;
  if (configuration == nullptr || lyd_find_path(configuration, path.c_str(), 0, &found) != LY_SUCCESS ||
      !is_explicit(found)) {
    return nullptr;
  }
  return found;
}

// A leaf or entry below `node` that was not added; empty for none.
std::string find_foreign(const lyd_node* node, const std::unordered_set<std::string_view>& added) {
  const lyd_node* child = nullptr;
  LY_LIST_FOR(lyd_child_no_keys(node), child) {
    if (!is_explicit(child)) {
      continue;
    }
    if (!is_plain_container(child)) {
      if (std::string path = data_path(child); !added.contains(path)) {
        return path;
      }
    }
    if (std::string path = find_foreign(child, added); !path.empty()) {
      return path;
    }
  }
  return "";
}

class ChangedCopy {
 public:
  ChangedCopy(const ly_ctx* native, const lyd_node* configuration) : native_(native), tree_(copy_of(configuration)) {}

  void make(const Change& change) {
    if (change.kind == ChangeKind::kDeleted) {
      remove(change.path);
      return;
    }
    lyd_node* made = nullptr;
    const char* value = change.is_leaf ? change.after.c_str() : nullptr;
    const LY_ERR status = lyd_new_path(tree_.get(), native_, change.path.c_str(), value, LYD_NEW_PATH_UPDATE, &made);
    if (status != LY_SUCCESS && status != LY_EEXIST && status != LY_ENOT) {
      throw host::libyang_error(native_, change.path);
    }
    adopt(made);
  }

  host::TreePtr take_valid() {
    lyd_node* tree = tree_.release();
    const LY_ERR status = lyd_validate_all(&tree, native_, LYD_VALIDATE_NO_STATE, nullptr);
    tree_.reset(tree);
    if (status != LY_SUCCESS) {
      throw host::libyang_error(native_, "the configuration", "native ");
    }
    return std::move(tree_);
  }

 private:
  // A new node may be the first one, or stand in front of what was the first.
  void adopt(lyd_node* made) {
    lyd_node* any = tree_ == nullptr ? made : tree_.get();
    if (any == nullptr) {
      return;
    }
    while (any->parent != nullptr) {
      any = lyd_parent(any);
    }
    static_cast<void>(tree_.release());
    tree_.reset(lyd_first_sibling(any));
  }

  void remove(const std::string& path) {
    lyd_node* node = nullptr;
    if (tree_ == nullptr || lyd_find_path(tree_.get(), path.c_str(), 0, &node) != LY_SUCCESS) {
      return;
    }
    // Containers that are left with nothing in them go too.
    while (node->parent != nullptr && is_plain_container(lyd_parent(node)) && lyd_child(lyd_parent(node)) == node &&
           node->next == nullptr) {
      node = lyd_parent(node);
    }
    if (node == tree_.get()) {
      static_cast<void>(tree_.release());
      tree_.reset(node->next);
    }
    lyd_free_tree(node);
  }

  const ly_ctx* native_;
  host::TreePtr tree_;
};

}  // namespace

Changes find_changes(const lyd_node* before, const lyd_node* after) {
  Comparison comparison;
  comparison.compare(before, after);
  return comparison.take();
}

Changes reversed(const Changes& changes) {
  Changes back = changes;
  for (Change& change : back) {
    std::swap(change.before, change.after);
    if (change.kind != ChangeKind::kChanged) {
      change.kind = change.kind == ChangeKind::kAdded ? ChangeKind::kDeleted : ChangeKind::kAdded;
    }
  }
  return back;
}

const Change* find_collision(const Changes& ours, const Changes& theirs) {
  const ChangesByPath our_paths(ours);
  for (const Change& change : theirs) {
    if (our_paths.find(change.path) != nullptr) {
      return &change;
    }
  }
  const ChangesByPath their_paths(theirs);
  for (const Change& change : ours) {
    if (const Change* met = their_paths.find(change.path); met != nullptr) {
      return met;
    }
  }
  return nullptr;
}

Shown shown_side(const lyd_node* configuration, const Change& change) {
  const lyd_node* node = find_node(configuration, change.path);
  const auto shows = [&](bool is_there, const std::string& value) {
    return (node != nullptr) == is_there && (!is_there || !change.is_leaf || value == lyd_get_value(node));
  };
  if (shows(change.kind != ChangeKind::kDeleted, change.after)) {
    return Shown::kAfter;
  }
  return shows(change.kind != ChangeKind::kAdded, change.before) ? Shown::kBefore : Shown::kNeither;
}

std::string find_departure(const lyd_node* configuration, const Changes& changes) {
  std::unordered_set<std::string_view> added;
  for (const Change& change : changes) {
    if (shown_side(configuration, change) != Shown::kAfter) {
      return change.path;
    }
    if (change.kind == ChangeKind::kAdded) {
      added.insert(change.path);
    }
  }
  for (const Change& change : changes) {
    if (change.kind == ChangeKind::kAdded && !change.is_leaf) {
      if (std::string path = find_foreign(find_node(configuration, change.path), added); !path.empty()) {
        return path;
      }
    }
  }
  return "";
}

host::TreePtr with_changes(const ly_ctx* native, const lyd_node* configuration, const Changes& changes) {
  ChangedCopy copy(native, configuration);
  for (const Change& change : changes) {
    copy.make(change);
  }
  return copy.take_valid();
}

host::TreePtr copy_of(const lyd_node* configuration) {
  lyd_node* copy = nullptr;
  if (configuration != nullptr &&
      lyd_dup_siblings(configuration, nullptr, LYD_DUP_RECURSIVE | LYD_DUP_WITH_FLAGS, &copy) != LY_SUCCESS) {
    throw host::Error(host::ErrorKind::kOutOfMemory, "no memory is left for a copy of the configuration");
  }
  return host::TreePtr(copy);
}

std::string describe(const Change& change) {
  const std::string before = change.is_leaf ? " '" + change.before + "'" : "";
  switch (change.kind) {
    case ChangeKind::kAdded:
      return change.path + ": added" + (change.is_leaf ? " '" + change.after + "'" : "");
    case ChangeKind::kDeleted:
      return change.path + ": deleted" + before;
    case ChangeKind::kChanged:
      break;
  }
  return change.path + ": changed from" + before + " to '" + change.after + "'";
}

}  // namespace oclacp::server
