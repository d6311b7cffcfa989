// What differs between two configurations, node by node.
#pragma once

#include <libyang/libyang.h>

#include <string>
#include <vector>

#include "host/yang/libyang_ptr.h"

namespace oclacp::server {

enum class ChangeKind { kAdded, kChanged, kDeleted };

// One node that differs: a leaf, or a list entry that only one of the two configurations has. An entry stands in front
// of its leaves; its keys are told by its path alone. Containers hold nothing themselves and are not told.
struct Change {
  ChangeKind kind = ChangeKind::kChanged;
  bool is_leaf = true;
  std::string path;    // as libyang writes it: module names where they change, and the keys of entries
  std::string before;  // values of a leaf; empty where it is not there
  std::string after;

  bool operator==(const Change&) const = default;
};

using Changes = std::vector<Change>;

// What changes a configuration into another one, each with its first top node or null. Linear in their nodes. Any
// thread that may use the trees. Defaults are treated as absent.
Changes find_changes(const lyd_node* before, const lyd_node* after);

// What takes changes back.
Changes reversed(const Changes& changes);

// The first of `theirs` that stands in the way of `ours`: both change the same node, or one adds or deletes a list
// entry in which the other changes something. Null when they can be made in either order. Linear in both.
const Change* find_collision(const Changes& ours, const Changes& theirs);

// Which side of a change a configuration shows.
enum class Shown { kBefore, kAfter, kNeither };
Shown shown_side(const lyd_node* configuration, const Change& change);

// The path of the first node in which a configuration departs from what `changes` left: a node that they set or deleted
// is another one by now, or something was put into an entry that they added. Empty for none.
std::string find_departure(const lyd_node* configuration, const Changes& changes);

// A copy of a configuration with changes made, and validated. What a change finds done already is no failure. Throws
// host::Error when the result is not valid. `native`: the context of the configuration.
host::TreePtr with_changes(const ly_ctx* native, const lyd_node* configuration, const Changes& changes);

// A copy of a configuration, or null for null. Throws host::Error when no memory is left.
host::TreePtr copy_of(const lyd_node* configuration);

// "/a/b: changed from 'x' to 'y'", for messages.
std::string describe(const Change& change);

}  // namespace oclacp::server
