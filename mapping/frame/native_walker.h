// The native-side walkers: from native configuration or operational data to the handlers of its nodes. Unknown nodes
// are skipped; nodes of other namespaces go to the row's augment parser, which may refuse them. Each function is
// the body of one kind of walker; the row says which node it serves.
#pragma once

#include <span>

#include "frame/handler.h"

namespace ymap {

// Where configuration and operational trees differ.
enum class NativeTree : std::uint8_t {
  kConfiguration,  // typed leaves are reported to the request; a list entry must have a key
  kOperational,    // children are walked in reads of operational state only; leaves are put on the hierarchy
};

// A known child and what walks it: a leaf handler, or the walker of a container or list entry.
struct NativeChild {
  const char* tag;
  NodeHandler* walk;
  bool is_leaf = false;
  // A list entry that may be skipped as a whole: its walker's "skip" is 0 here. From any other child "skip" is a status
  // like every other; it ends the walk of each node around it up to the nearest entry of this kind.
  bool may_skip = false;
};

// What every inner node has; see RequestNode.
struct NativeNode {
  const char* ns;
  NativeTree tree;
  std::span<const NativeChild> children;
  NodeHandler* parse_augments;
};

struct NativeContainer {
  NativeNode node;
  ContainerHandler* handler;
};

struct NativeList {
  NativeNode node;
  const char* path;                   // of the list, without keys
  std::span<const char* const> keys;  // the key leaves' tags
  NodeHandler* handler;
  bool restores_list_slot = false;     // the request's current list node is that of this entry alone
  bool clears_interface_name = false;  // and so is its interface name
};

// A node that a module adds to another's by augmentation: the one tag that is expected there, and its walker.
struct NativeAugment {
  const char* ns;
  const char* tag;
  NodeHandler* walk;
  NodeHandler* parse_augments;  // gets nodes of other namespaces
};

// Walks a container: its handler, then its children up to the first that fails. A handler's "skip" ends the walk with
// 0.
cerrno walk_native_container(const Handler& handler, const NativeContainer& row, yfw_map_ctx ctx,
                             const yfw_datatree* in, yfw_datatree* out);

// Walks one list entry: marks its keys, calls the list handler, keeps the entry on the output list while its children
// are walked. A handler's "skip" is returned as it is; see NativeChild::may_skip. What the row says is the entry's
// alone is restored, or cleared, on every way out.
cerrno walk_native_list_entry(const Handler& handler, const NativeList& row, yfw_map_ctx ctx, const yfw_datatree* in,
                              yfw_datatree* out);

// Walks one augmenting node if it is the expected one; skips others of the module's namespace.
cerrno walk_native_augment(const Handler& handler, const NativeAugment& row, yfw_map_ctx ctx, const yfw_datatree* in,
                           yfw_datatree* out);

}  // namespace ymap
