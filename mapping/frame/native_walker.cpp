#include "frame/native_walker.h"

#include <algorithm>
#include <optional>

#include "frame/request.h"
#include "yfw/map.h"

namespace ymap {
namespace {

// Records what is wrong with the tree.
cerrno malformed(const Activation& run, MessageWith<0> message) {
  run.record(message);
  return YFW_MALFORMED_TREE;
}

cerrno call_leaf(const NativeNode& node, const NativeChild& known, yfw_map_ctx ctx, const yfw_datatree& leaf,
                 yfw_datatree* out) {
  if (node.tree == NativeTree::kOperational) {
    const HierarchyEntry entry(ctx, mutable_node(&leaf), YFW_HIERARCHY_CONTAINER, YFW_NODE_LEAF);
    return known.walk(ctx, &leaf, out);
  }
  if ((leaf.flags & YFW_FLAG_TYPED_VALUE) != 0 && leaf.value_type == YFW_VALUE_TYPE_REPORTED) {
    ctx->request->request_flags |= YFW_REQUEST_TYPED_LEAF;
  }
  return known.walk(ctx, &leaf, out);
}

const NativeChild* known_child(const NativeNode& node, yfw_map_ctx ctx, const char* tag) {
  if (node.tree == NativeTree::kOperational && operation_of(ctx) != YFW_REQUEST_READ_STATE) return nullptr;
  const auto known = std::ranges::find_if(
      node.children, [tag](const NativeChild& child) { return yfw_map_do_these_match(tag, child.tag) != 0; });
  return known != node.children.end() ? &*known : nullptr;
}

cerrno dispatch(const Activation& run, const NativeNode& node, yfw_map_ctx ctx, const yfw_datatree& child,
                yfw_datatree* out) {
  if (child.tag == nullptr) return malformed(run, message::kTagMissing);
  run.record(message::kProcessingTag, child.tag);
  if (const NativeChild* const known = known_child(node, ctx, child.tag); known != nullptr) {
    if (known->is_leaf) return call_leaf(node, *known, ctx, child, out);
    const cerrno status = known->walk(ctx, &child, out);
    return known->may_skip && status == YFW_SKIP_SUBTREE ? YFW_OK : status;
  }
  if (yfw_map_do_these_match(child.ns, node.ns) == 0) return node.parse_augments(ctx, &child, out);
  run.record(message::kTagIgnored);
  return YFW_OK;
}

cerrno dispatch_children(const Activation& run, const NativeNode& node, yfw_map_ctx ctx, const yfw_datatree& in,
                         unsigned int count, yfw_datatree* out) {
  cerrno status = YFW_OK;
  for (unsigned int i = 0; i < count && status == YFW_OK; ++i) {
    status = dispatch(run, node, ctx, in.children[i], out);
  }
  return status;
}

// Marks the entry's keys; returns whether it has one.
bool mark_keys(const NativeList& row, const yfw_datatree& entry, unsigned int count) {
  bool found = false;
  for (unsigned int i = 0; i < count; ++i) {
    yfw_datatree& child = entry.children[i];
    if (child.tag == nullptr) continue;
    const auto is_tag = [&child](const char* key) { return yfw_map_do_these_match(child.tag, key) != 0; };
    if (!std::ranges::any_of(row.keys, is_tag)) continue;
    child.key_mark = 1;
    child.flags |= YFW_FLAG_LIST_KEY;
    found = true;
  }
  return found;
}

// What the handlers of an entry leave in the request for those of its children; it ends with the entry's walk.
class EntryState {
 public:
  EntryState(const NativeList& row, yfw_request_state& request)
      : row_(row), request_(request), found_(request.current_list_node) {}
  ~EntryState() {
    if (row_.restores_list_slot) request_.current_list_node = found_;
    if (row_.clears_interface_name) std::ranges::fill(request_.interface_name, '\0');
  }
  EntryState(const EntryState&) = delete;
  EntryState& operator=(const EntryState&) = delete;

 private:
  const NativeList& row_;
  yfw_request_state& request_;
  yfw_datatree* found_;
};

// The entry's walk inside the hierarchy. The output list holds the entry while its children are walked, and also after
// a list handler that failed.
class ListEntryWalk {
 public:
  ListEntryWalk(const Activation& run, const NativeList& row, yfw_map_ctx ctx, yfw_datatree& node, yfw_datatree* out)
      : run_(run), row_(row), ctx_(ctx), node_(node), out_(out) {}

  Outcome walk(unsigned int count) {
    std::optional<HierarchyEntry> entry(std::in_place, ctx_, node_, YFW_HIERARCHY_LIST, YFW_NODE_LIST_ENTRY);
    cerrno status = yfw_map_update_current_list_node(ctx_, row_.path);
    if (!check_keys(status, count)) return YFW_MALFORMED_TREE;
    if (status == YFW_OK) {
      status = row_.handler(ctx_, &node_, out_);
      if (status == YFW_SKIP_SUBTREE) return Outcome::without_end(status);
    }
    const std::uint32_t before = ctx_->request->output_list_count;
    yfw_add_to_output_list_ctx(ctx_, out_);
    const bool grew = ctx_->request->output_list_count > before;
    if (status == YFW_OK) status = dispatch_children(run_, row_.node, ctx_, node_, count, out_);
    entry.reset();
    if (grew) yfw_remove_from_output_list_ctx(ctx_, out_);
    return status;
  }

 private:
  // Marks the entry's keys; returns whether it may be walked. A configuration entry is marked, and needs a key, also
  // when the current list node could not be set; one of operational data then stays as it is.
  bool check_keys(cerrno current_list_status, unsigned int count) const {
    const bool is_configuration = row_.node.tree == NativeTree::kConfiguration;
    if (!is_configuration && current_list_status != YFW_OK) return true;
    if (mark_keys(row_, node_, count) || !is_configuration) return true;
    run_.record(message::kKeysMissing);
    return false;
  }

  const Activation& run_;
  const NativeList& row_;
  yfw_map_ctx ctx_;
  yfw_datatree& node_;
  yfw_datatree* out_;
};

}  // namespace

cerrno walk_native_container(const Handler& handler, const NativeContainer& row, yfw_map_ctx ctx,
                             const yfw_datatree* in, yfw_datatree* out) {
  return run_in_frame(handler, ctx, in, out, [&](const Activation& run) -> Outcome {
    const std::optional<unsigned int> count = child_count_of(*in);
    if (!count) return malformed(run, message::kSubtreesMissing);
    const HierarchyEntry entry(ctx, mutable_node(in), YFW_HIERARCHY_CONTAINER, YFW_NODE_CONTAINER);
    const cerrno status = row.handler(ctx, in, *count, out);
    if (status == YFW_SKIP_SUBTREE) return Outcome::without_end(YFW_OK);
    return status == YFW_OK ? dispatch_children(run, row.node, ctx, *in, *count, out) : status;
  });
}

cerrno walk_native_list_entry(const Handler& handler, const NativeList& row, yfw_map_ctx ctx, const yfw_datatree* in,
                              yfw_datatree* out) {
  return run_in_frame(handler, ctx, in, out, [&](const Activation& run) -> Outcome {
    const EntryState state(row, *ctx->request);
    const std::optional<unsigned int> count = child_count_of(*in);
    if (!count) return malformed(run, message::kSubtreesMissing);
    // In operational data an entry without children is reported and walked all the same.
    if (*count == 0 && row.node.tree == NativeTree::kOperational) run.record(message::kKeysMissing);
    return ListEntryWalk(run, row, ctx, mutable_node(in), out).walk(*count);
  });
}

cerrno walk_native_augment(const Handler& handler, const NativeAugment& row, yfw_map_ctx ctx, const yfw_datatree* in,
                           yfw_datatree* out) {
  return run_in_frame(handler, ctx, in, out, [&](const Activation& run) -> cerrno {
    if (!child_count_of(*in)) return malformed(run, message::kSubtreesMissing);
    if (in->tag == nullptr) return malformed(run, message::kTagMissing);
    if (yfw_map_do_these_match(in->tag, row.tag) != 0) return row.walk(ctx, in, out);
    if (yfw_map_do_these_match(in->ns, row.ns) == 0) return row.parse_augments(ctx, in, out);
    run.record(message::kTagIgnored);
    return YFW_OK;
  });
}

}  // namespace ymap
