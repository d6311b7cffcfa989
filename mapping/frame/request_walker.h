// The OpenConfig-side walkers: from an edit, a delete or a read to the handlers of its nodes. Each function is the body
// of one kind of exported walker; the row says which node it serves.
#pragma once

#include <span>

#include "frame/handler.h"

namespace ymap {

// When a known child is walked.
enum class Availability : std::uint8_t {
  kAlways,
  kStateRead,  // only in a read of operational state; otherwise the tag is treated as unknown
};

// A known child: its tag and its walker or leaf walker.
struct RequestChild {
  const char* tag;
  NodeHandler* walk;
  Availability availability = Availability::kAlways;
};

// What every inner node has: the namespace of its module, its known children in the order in which tags are tested, and
// the parser that gets children of other namespaces. A whole-subtree expansion calls the children in that order too,
// unless the model states another.
struct RequestNode {
  const char* ns;
  std::span<const RequestChild> children;
  NodeHandler* parse_augments;
  std::span<const RequestChild> expansion = children;
};

struct RequestContainer {
  RequestNode node;
  ContainerHandler* handler;
  bool refuses_delete_with_subtree = false;
};

struct RequestList {
  RequestNode node;
  const char* path;  // of the list, without keys
  const char* key;   // the key leaf's tag
  NodeHandler* handler;
  NodeHandler* key_leaf;  // the key's leaf walker
};

struct RequestLeaf {
  NodeHandler* handler;
};

// Walks a container: calls its handler, dispatches its children, expands it when it was named as a whole, and carries
// out a replace in two passes. Answers the first child's or the handler's status that is not 0.
cerrno walk_container(const Handler& handler, const RequestContainer& row, yfw_map_ctx ctx, const yfw_datatree* in,
                      yfw_datatree* out);

// Walks one list entry: checks its keys, calls the list-key handler, dispatches its children, walks the further entries
// that the handler asked for, and expands an entry that names only its key.
cerrno walk_list_entry(const Handler& handler, const RequestList& row, yfw_map_ctx ctx, const yfw_datatree* in,
                       yfw_datatree* out);

// Calls a leaf's handler and, in a read, notes in the filter bits whether the leaf selects or matches content.
cerrno walk_leaf(const Handler& handler, const RequestLeaf& row, yfw_map_ctx ctx, const yfw_datatree* in,
                 yfw_datatree* out);

}  // namespace ymap
