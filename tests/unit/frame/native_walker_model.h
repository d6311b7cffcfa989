// Rows of native walkers over the model of walker_model.h: a container and a list entry with a leaf "first", an inner
// node "second" and an entry "third" that may be skipped, once as configuration and once as operational data.
#pragma once

#include "frame/native_walker.h"
#include "unit/frame/walker_model.h"

namespace model {

inline constexpr ymap::NativeChild kNativeChildren[] = {
    {.tag = "first", .walk = first, .is_leaf = true},
    {.tag = "second", .walk = second},
    {.tag = "third", .walk = third, .may_skip = true},
};
inline constexpr const char* kNativeKeys[] = {"id", "class"};

inline constexpr ymap::NativeNode kConfigNode{
    .ns = kNs, .tree = ymap::NativeTree::kConfiguration, .children = kNativeChildren, .parse_augments = augments};
inline constexpr ymap::NativeNode kOperNode{
    .ns = kNs, .tree = ymap::NativeTree::kOperational, .children = kNativeChildren, .parse_augments = augments};

inline constexpr ymap::NativeContainer kConfigContainer{.node = kConfigNode, .handler = handler};
inline constexpr ymap::NativeContainer kOperContainer{.node = kOperNode, .handler = handler};
inline constexpr ymap::NativeList kConfigList{
    .node = kConfigNode, .path = kListPath, .keys = kNativeKeys, .handler = list_handler};
// An entry whose list slot and interface name are its own.
inline constexpr ymap::NativeList kScratchList{.node = kConfigNode,
                                               .path = kListPath,
                                               .keys = kNativeKeys,
                                               .handler = list_handler,
                                               .restores_list_slot = true,
                                               .clears_interface_name = true};
inline constexpr ymap::NativeList kOperList{
    .node = kOperNode, .path = kListPath, .keys = kNativeKeys, .handler = list_handler};

}  // namespace model
