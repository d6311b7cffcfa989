// The OpenConfig-side handlers that only check, ask or copy. Each function is the body of one kind of exported handler.
#pragma once

#include "frame/handler.h"
#include "frame/texts.h"

namespace ymap {

// A native value made from an OpenConfig one.
struct NativeValue {
  Outcome outcome = YFW_OK;  // unless it is YFW_OK the handler ends with it, and without an addition
  const char* text = nullptr;
};

// Makes the native value of a leaf that is set. `buffer` holds the text that the result points to.
using ToNative = NativeValue(const Activation& run, yfw_map_ctx ctx, const yfw_datatree& leaf, ShortText& buffer);

// A configuration leaf with one native target.
struct ConfigLeaf {
  const char* target;  // absolute native path without keys
  const char* ns;
  int last_flag;                // 1 where a converter computes the value
  ToNative* convert = nullptr;  // null: the value is copied
};

// A leaf of operational state with one native target.
struct StateLeaf {
  const char* target;
  const char* ns;
  int last_flag = 0;
  bool asks_in_edits = false;  // asks whether an edit deletes, and ignores it
};

// A leaf whose handler passes on to a converter that is a function of its own.
struct ConvertedLeaf {
  NodeHandler* converter;
};

// In an edit adds the target with the leaf's value, converted if the row says so, or without value when the leaf
// deletes; in a read adds the target with the leaf's own value and no source node.
cerrno handle_config_leaf(const Handler& handler, const ConfigLeaf& row, yfw_map_ctx ctx, const yfw_datatree* in,
                          yfw_datatree* out);

// In a read adds the target with the leaf's own value; in an edit adds nothing and returns 0.
cerrno handle_state_leaf(const Handler& handler, const StateLeaf& row, yfw_map_ctx ctx, const yfw_datatree* in,
                         yfw_datatree* out);

cerrno handle_converted_leaf(const Handler& handler, const ConvertedLeaf& row, yfw_map_ctx ctx, const yfw_datatree* in,
                             yfw_datatree* out);

// A leaf that the mapping does not serve: marks the error path, stores the tag, returns YFW_UNSUPPORTED_NODE.
cerrno refuse_leaf(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

// A node whose handler has nothing to do: checks the arguments and returns 0.
cerrno no_op(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

// The same without a look at the arguments.
cerrno no_op_unchecked(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

// A node that another module adds by augmentation: refused when the request adds it, ignored otherwise.
cerrno refuse_added_augment(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);

}  // namespace ymap
