// Rows of nodes that do not compile, one with each name that is defined, and the function that the compiler says it
// cannot call. With no name defined they are right.
#include "frame/native_rows.h"
#include "frame/request_rows.h"

// WRONG(two_rows, two_rows_have_one_path)
// WRONG(no_parent, row_of_the_parent_is_missing)
// WRONG(leaf_as_parent, row_of_the_parent_is_missing)
// WRONG(no_key, row_of_the_key_leaf_is_missing)
// WRONG(no_augmenting_node, row_of_the_augmenting_node_is_missing)
// WRONG(expansion_too_short, expansion_is_not_of_the_children)
// WRONG(expansion_of_another_child, expansion_is_not_of_the_children)

cerrno walk(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
cerrno handle(yfw_map_ctx ctx, const yfw_datatree* in, unsigned int child_count, yfw_datatree* out);

namespace {

constexpr ymap::RequestContainerRow kTop {
  .path = "/top", .handler = handle, .parse_augments = walk,
#if defined(expansion_too_short)
  .expansion = {"entry"},
#elif defined(expansion_of_another_child)
  .expansion = {"entry", "other"},
#else
  .expansion = {"leaf", "entry"},
#endif
};
constexpr ymap::RequestListRow kEntry{.path = "/top/entry", .key = "name", .handler = walk, .parse_augments = walk};

constexpr ymap::RequestEntry kNodes[] = {
    ymap::node_entry(kTop, walk),
    ymap::node_entry(kEntry, walk),
#ifndef no_key
    ymap::request_leaf_entry("/top/entry/name", walk),
#endif
    ymap::request_leaf_entry("/top/leaf", walk),
#if defined(two_rows)
    ymap::request_leaf_entry("/top/leaf", walk),
#elif defined(no_parent)
    ymap::request_leaf_entry("/top/container/leaf", walk),
#elif defined(leaf_as_parent)
    ymap::request_leaf_entry("/top/leaf/leaf", walk),
#endif
};
static_assert(ymap::are_connected(kNodes));

YMAP_DEFINE_REQUEST_CONTAINER(top, kNodes, "ns", = kTop)
YMAP_DEFINE_REQUEST_LIST(entry, kNodes, "ns", = kEntry)

constexpr ymap::NativeModel kModel{
    .ns = "ns", .tree = ymap::NativeTree::kConfiguration, .container_handler = handle, .list_handler = walk};
constexpr ymap::NativeContainerRow kAdded{.path = "/other/added", .parse_augments = walk};
constexpr ymap::NativeEntry kNativeNodes[] = {
#ifdef no_augmenting_node
    ymap::native_leaf_entry("/leaf", walk),
#else
    ymap::node_entry(kAdded, walk),
#endif
};

YMAP_DEFINE_NATIVE_AUGMENT(augment, kNativeNodes, kModel, {.node = "/other/added", .parse_augments = walk})

}  // namespace

// What the functions above are for.
ymap::NodeHandler* const kWalkers[] = {top, entry, augment};
