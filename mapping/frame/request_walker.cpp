#include "frame/request_walker.h"

#include <optional>

#include "frame/request.h"
#include "yfw/map.h"

namespace ymap {
namespace {

constexpr std::uint32_t kLeafFilters = YFW_FILTER_CONTENT_MATCH | YFW_FILTER_SELECTION;

bool replace_is_running(const yfw_request_state& request) {
  return (request.replace_flags & (YFW_REPLACE_FIRST_PASS | YFW_REPLACE_SECOND_PASS)) != 0;
}

// Edits that frameworks have beside YFW_REQUEST_EDIT. Only for list keys do they differ from other codes.
constexpr std::uint32_t kKeyedEdit8 = 8;
constexpr std::uint32_t kKeyedEdit15 = 15;

bool checks_keys(std::uint32_t operation) {
  return operation == YFW_REQUEST_EDIT || operation == kKeyedEdit8 || operation == kKeyedEdit15;
}

// A replace of one node: the first pass deletes with the children hidden, the second merges what is named. Everything
// is restored as it was found, so a replace may stand inside another.
class Replace {
 public:
  Replace(yfw_request_state& request, yfw_datatree& node)
      : request_(request),
        node_(node),
        operation_(node),
        children_(node),
        flags_(request.replace_flags, request.replace_flags | YFW_REPLACE_FIRST_PASS),
        restore_(request.replace_restore, 1) {
    change_operation(node, YFW_OPERATION_REMOVE);
  }

  void begin_second_pass() {
    change_operation(node_, YFW_OPERATION_NONE);
    request_.replace_flags |= YFW_REPLACE_SECOND_PASS;
    request_.replace_flags &= ~std::uint32_t{YFW_REPLACE_FIRST_PASS};
    children_.show();
  }

 private:
  yfw_request_state& request_;
  yfw_datatree& node_;
  OperationScope operation_;
  HiddenChildren children_;
  ScopedValue flags_;
  ScopedValue restore_;
};

// What the walks of a container and of a list entry share.
class Walk {
 public:
  Walk(const Activation& run, const RequestNode& table, yfw_map_ctx ctx, yfw_datatree& node, yfw_datatree* out)
      : run_(run), table_(table), ctx_(ctx), request_(*ctx->request), node_(node), out_(out) {}

  // The walk leaves without an End record: its handler returned "skip" outside of a replace.
  [[nodiscard]] bool left_at_skip() const { return left_at_skip_; }

 protected:
  [[nodiscard]] bool expanding() const { return request_.whole_subtree == 1; }

  [[nodiscard]] bool key_is_pending() const { return request_.key_pending != YFW_KEY_PENDING_NONE; }

  // Makes a node the current position. Under an expansion the position is that of the node that is expanded.
  void enter(std::optional<HierarchyEntry>& entry, yfw_datatree& node, int kind, std::uint32_t node_kind) const {
    if (expanding()) return;
    entry.emplace(ctx_, node, kind, node_kind);
    if (is_read(ctx_)) request_.filter_bits &= YFW_FILTER_ENTRY_MASK;
  }

  // How many children this walk dispatches. While a container is expanded because of its content matches, the node
  // still names children, but they are the container's and not this walk's.
  [[nodiscard]] unsigned int walked_child_count(unsigned int child_count) const {
    return expanding() && (request_.filter_bits & YFW_FILTER_EXPAND) != 0 ? 0 : child_count;
  }

  // A handler's "skip" ends the walk at once, except in a replace, which goes on to the end of its pass.
  void handle_skip() { left_at_skip_ = !replace_is_running(request_); }

  // Runs `walk_once(count)` over the children that the node names: once, or for a replace twice, first without them.
  template <typename WalkOnce>
  cerrno walk_with_replace(unsigned int count, WalkOnce walk_once) {
    if (node_.operation != YFW_OPERATION_REPLACE) return walk_once(count);
    Replace replace(request_, node_);
    if (const cerrno status = walk_once(0); status != YFW_OK) return status;
    replace.begin_second_pass();
    return walk_once(count);
  }

  // Whether the request asks for, or deletes, all of the node.
  [[nodiscard]] bool selects_subtree() const { return is_read(ctx_) || yfw_map_is_request_delete(&node_) != 0; }

  [[nodiscard]] bool is_available(const RequestChild& known) const {
    return known.availability == Availability::kAlways || operation_of(ctx_) == YFW_REQUEST_READ_STATE;
  }

  cerrno dispatch(const yfw_datatree& child) const {
    if (child.tag == nullptr) {
      run_.record(message::kTagMissing);
      return YFW_MALFORMED_TREE;
    }
    for (const RequestChild& known : table_.children) {
      if (yfw_map_do_these_match(child.tag, known.tag) != 0 && is_available(known)) {
        return known.walk(ctx_, &child, out_);
      }
    }
    if (yfw_map_do_these_match(child.ns, table_.ns) == 0) return table_.parse_augments(ctx_, &child, out_);
    if (is_read(ctx_)) return YFW_OK;
    return refuse(message::kUnsupportedTag, child.tag, YFW_UNSUPPORTED_NODE);
  }

  cerrno refuse(MessageWith<0> message, const char* tag, cerrno status) const {
    run_.record(message);
    store_error_tag(ctx_, tag);
    yfw_oc_error_path(ctx_);
    return status;
  }

  // Calls every child walker on the node itself, whatever they return.
  void walk_every_child() const {
    for (const RequestChild& known : table_.expansion) {
      if (is_available(known)) known.walk(ctx_, &node_, out_);
    }
    table_.parse_augments(ctx_, &node_, out_);
  }

  const Activation& run_;
  const RequestNode& table_;
  yfw_map_ctx ctx_;
  yfw_request_state& request_;
  yfw_datatree& node_;
  yfw_datatree* out_;

 private:
  bool left_at_skip_ = false;
};

class ContainerWalk : public Walk {
 public:
  ContainerWalk(const Activation& run, const RequestContainer& row, yfw_map_ctx ctx, yfw_datatree& node,
                yfw_datatree* out)
      : Walk(run, row.node, ctx, node, out), row_(row) {}

  // Refuses a delete that names what it deletes.
  [[nodiscard]] cerrno check(unsigned int child_count) const {
    if (!row_.refuses_delete_with_subtree || child_count == 0 || expanding() || key_is_pending()) return YFW_OK;
    if (yfw_map_is_request_delete(&node_) == 0) return YFW_OK;
    run_.record(message::kDeleteWithSubtree);
    return YFW_INVALID_ARGUMENTS;
  }

  cerrno walk(unsigned int child_count) {
    std::optional<HierarchyEntry> entry;
    enter(entry, node_, YFW_HIERARCHY_CONTAINER, YFW_NODE_CONTAINER);
    return walk_with_replace(walked_child_count(child_count),
                             [this](unsigned int walked) { return walk_once(walked); });
  }

 private:
  cerrno walk_once(unsigned int count) {
    cerrno status = row_.handler(ctx_, &node_, count, out_);
    if (status == YFW_SKIP_SUBTREE) {
      handle_skip();
      return YFW_OK;
    }
    if (status != YFW_OK) return status;
    for (unsigned int i = 0; i < count && status == YFW_OK; ++i) status = dispatch(node_.children[i]);
    expand_on_content_matches();
    if (count == 0 || (request_.filter_bits & YFW_FILTER_EXPAND) != 0) {
      if (selects_subtree()) expand();
    }
    return status;
  }

  // A container that names content matches and no selection is asked for as a whole.
  void expand_on_content_matches() const {
    if ((request_.filter_bits & kLeafFilters) != YFW_FILTER_CONTENT_MATCH) return;
    request_.filter_bits = (request_.filter_bits & ~kLeafFilters) | YFW_FILTER_EXPAND;
  }

  void expand() const {
    {
      const ScopedValue whole(request_.whole_subtree, 1);
      const OperationScope operation(node_);
      if (node_.operation == YFW_OPERATION_DELETE) node_.operation = YFW_OPERATION_REMOVE;
      walk_every_child();
    }
    request_.filter_bits &= YFW_FILTER_ENTRY_MASK;  // clears the leaves' bits with the rest
  }

  const RequestContainer& row_;
};

class ListWalk : public Walk {
 public:
  ListWalk(const Activation& run, const RequestList& row, yfw_map_ctx ctx, yfw_datatree& node, yfw_datatree* out)
      : Walk(run, row.node, ctx, node, out), row_(row) {}

  // Refuses an entry without children where its key would be checked.
  [[nodiscard]] cerrno check(unsigned int child_count) const {
    if (child_count != 0 || expanding() || key_is_pending() || !checks_keys(operation_of(ctx_))) return YFW_OK;
    run_.record(message::kKeysMissing);
    return YFW_MALFORMED_TREE;
  }

  cerrno walk(unsigned int child_count) {
    std::optional<HierarchyEntry> entry;
    enter(entry, node_, YFW_HIERARCHY_LIST, YFW_NODE_LIST_ENTRY);
    if (const cerrno status = yfw_map_update_current_list_node(ctx_, row_.path); status != YFW_OK) return status;
    const unsigned int count = walked_child_count(child_count);
    if (const cerrno status = scan_keys(count); status != YFW_OK) return status;
    return walk_with_replace(count, [this](unsigned int walked) { return walk_once(walked); });
  }

 private:
  // What the entry names of its key.
  struct Keys {
    unsigned int leaves = 0;
    unsigned int valued = 0;
    bool others = false;  // children that are not the key

    [[nodiscard]] bool alone() const { return leaves > 0 && !others; }
  };

  cerrno scan_keys(unsigned int count) {
    for (unsigned int i = 0; i < count; ++i) {
      yfw_datatree& child = node_.children[i];
      if (child.tag == nullptr || yfw_map_do_these_match(child.tag, row_.key) == 0) {
        keys_.others = true;
        continue;
      }
      if (const cerrno status = check_leafref(child); status != YFW_OK) return status;
      child.key_mark = 1;
      child.flags |= YFW_FLAG_LIST_KEY;
      ++keys_.leaves;
      if ((child.flags & YFW_FLAG_VALUE) != 0) ++keys_.valued;
    }
    if (expanding() || key_is_pending() || keys_are_usable()) return YFW_OK;
    return refuse(message::kKeyInvalid, row_.key, YFW_BAD_LIST_KEY);
  }

  cerrno check_leafref(const yfw_datatree& key) const {
    if (!checks_keys(operation_of(ctx_))) return YFW_OK;
    const cerrno status = yfw_map_check_oc_leafref(ctx_, row_.path, "config", key.tag, &node_);
    if (status != YFW_OK) run_.record(message::kLeafrefRefused);
    return status;
  }

  [[nodiscard]] bool keys_are_usable() const {
    if (checks_keys(operation_of(ctx_))) return keys_.valued == 1 && keys_.leaves < 2;
    return keys_.leaves <= 1 && keys_.valued <= 1;
  }

  cerrno walk_once(unsigned int count) {
    const std::uint16_t depth = yfw_map_util_itree_stack_size(ctx_);
    const cerrno handler_status = call_handler(count);
    const bool skips = handler_status == YFW_SKIP_SUBTREE;
    if (skips) handle_skip();
    cerrno status = skips ? YFW_OK : handler_status;
    if (handler_status == YFW_OK) status = dispatch_children(node_, count);
    if (handler_status == YFW_OK && status == YFW_OK) status = walk_further_entries(depth);
    for (std::uint16_t size = yfw_map_util_itree_stack_size(ctx_); size > depth; --size) {
      yfw_map_util_itree_stack_pop(ctx_);
    }
    if (handler_status == YFW_OK && status == YFW_OK && is_expanded(count)) expand();
    return status;
  }

  cerrno call_handler(unsigned int count) const {
    const ScopedValue pending(request_.key_pending, key_pending(count));
    return row_.handler(ctx_, &node_, out_);
  }

  [[nodiscard]] std::uint32_t key_pending(unsigned int count) const {
    if (keys_.alone() && yfw_map_is_request_delete(&node_) != 0) return YFW_KEY_PENDING_KEY_ONLY;
    if (count == 0 && expanding() && yfw_map_is_request_delete(&node_) != 0) return YFW_KEY_PENDING_EXPANDED;
    return request_.key_pending;
  }

  cerrno dispatch_children(const yfw_datatree& entry, unsigned int count) const {
    cerrno status = YFW_OK;
    for (unsigned int i = 0; i < count && status == YFW_OK; ++i) {
      const yfw_datatree& child = entry.children[i];
      const bool is_key = child.tag != nullptr && yfw_map_do_these_match(child.tag, row_.key) != 0;
      status = is_key ? dispatch_key(child) : dispatch(child);
    }
    return status;
  }

  // A key is judged by its own operation: under an entry that is removed every key is being deleted.
  cerrno dispatch_key(const yfw_datatree& key) const {
    if (key.operation == YFW_OPERATION_DELETE || key.operation == YFW_OPERATION_REMOVE) {
      return refuse(message::kKeyDeleted, row_.key, YFW_LIST_KEY_DELETED);
    }
    if (checks_keys(operation_of(ctx_)) && (key.flags & YFW_FLAG_VALUE) == 0) {
      return refuse(message::kKeyEmpty, row_.key, YFW_BAD_LIST_KEY);
    }
    return row_.key_leaf(ctx_, &key, out_);
  }

  // The entries of the iterator that the list-key handler pushed, if it did.
  cerrno walk_further_entries(std::uint16_t depth) const {
    if (yfw_map_util_itree_stack_size(ctx_) <= depth) return YFW_OK;
    yfw_itree_entry iterator{};
    yfw_map_util_itree_stack_peak(ctx_, &iterator);
    if (iterator.callback == nullptr) return YFW_OK;
    cerrno status = YFW_OK;
    for (unsigned int i = 0; i < iterator.child_count && status == YFW_OK; ++i) {
      status = walk_further_entry(iterator.children[i], iterator.callback);
    }
    return status;
  }

  cerrno walk_further_entry(yfw_datatree& further, yfw_itree_callback callback) const {
    const std::optional<unsigned int> count = child_count_of(further);
    if (!count) {
      run_.record(message::kFurtherSubtreesMissing);
      return YFW_MALFORMED_TREE;
    }
    std::optional<HierarchyEntry> entry;
    enter(entry, further, YFW_HIERARCHY_LIST, YFW_NODE_LIST_ENTRY);
    if (const cerrno status = yfw_map_update_current_list_node(ctx_, row_.path); status != YFW_OK) return status;
    const cerrno handler_status = callback(ctx_, &further, out_);
    if (handler_status == YFW_SKIP_SUBTREE) return YFW_OK;
    return handler_status != YFW_OK ? handler_status : dispatch_children(further, *count);
  }

  // An entry that names its key and nothing else is asked for, or deleted, as a whole; so is one that has no children
  // because an outer node is expanded.
  [[nodiscard]] bool is_expanded(unsigned int count) const {
    if (count == 0 && expanding()) return true;
    return keys_.alone() && keys_.valued == keys_.leaves && selects_subtree();
  }

  void expand() const {
    const ScopedValue whole(request_.whole_subtree, 1);
    yfw_map_util_itree_stack_push(ctx_, node_.children, node_.child_count, nullptr);
    {
      const HiddenChildren hidden(node_);
      walk_every_child();
    }
    yfw_map_util_itree_stack_pop(ctx_);
  }

  const RequestList& row_;
  Keys keys_;
};

// The frame around a walk: arguments and children are checked first, and End is recorded unless the walk left at a
// skip.
template <typename NodeWalk, typename Row>
cerrno walk_node(const Handler& handler, const Row& row, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {
  return run_in_frame(handler, ctx, in, out, [&](const Activation& run) -> Outcome {
    const std::optional<unsigned int> child_count = child_count_of(*in);
    if (!child_count) {
      run.record(message::kSubtreesMissing);
      return YFW_MALFORMED_TREE;
    }
    NodeWalk walk(run, row, ctx, mutable_node(in), out);
    if (const cerrno status = walk.check(*child_count); status != YFW_OK) return status;
    const cerrno status = walk.walk(*child_count);
    return walk.left_at_skip() ? Outcome::without_end(status) : status;
  });
}

}  // namespace

cerrno walk_container(const Handler& handler, const RequestContainer& row, yfw_map_ctx ctx, const yfw_datatree* in,
                      yfw_datatree* out) {
  return walk_node<ContainerWalk>(handler, row, ctx, in, out);
}

cerrno walk_list_entry(const Handler& handler, const RequestList& row, yfw_map_ctx ctx, const yfw_datatree* in,
                       yfw_datatree* out) {
  return walk_node<ListWalk>(handler, row, ctx, in, out);
}

cerrno walk_leaf(const Handler& handler, const RequestLeaf& row, yfw_map_ctx ctx, const yfw_datatree* in,
                 yfw_datatree* out) {
  return run_in_frame(handler, ctx, in, out, [&] {
    const cerrno status = row.handler(ctx, in, out);
    yfw_request_state& request = *ctx->request;
    if (request.whole_subtree == 1 || request.key_pending != YFW_KEY_PENDING_NONE) return status;
    yfw_datatree& leaf = mutable_node(in);
    leaf.node_kind = YFW_NODE_LEAF;
    leaf.hierarchy_flags |= YFW_HIERARCHY_ENTERED;
    if (!is_read(ctx)) return status;
    if ((leaf.flags & YFW_FLAG_VALUE) != 0) {
      request.filter_bits |= YFW_FILTER_CONTENT_MATCH | YFW_FILTER_REQUEST_MATCH;
      leaf.node_kind = YFW_NODE_CONTENT_MATCH;
    } else {
      request.filter_bits |= YFW_FILTER_SELECTION;
    }
    return status;
  });
}

}  // namespace ymap
