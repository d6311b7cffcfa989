// The operations of yfw/map.h and yfw/datatree.h: questions about nodes of a request, the position in it, additions to
// the output, and the itree stack.
#include <cstring>
#include <string>

#include "host/base/contract.h"
#include "host/base/status_text.h"
#include "host/services/mapping_context.h"
#include "host/trees/node.h"
#include "host/trees/output_log.h"

using oclacp::host::info_of;
using oclacp::host::MappingContext;
using oclacp::host::OutputLog;
using oclacp::host::status_kind;

namespace {

const yfw_datatree* find_child(const yfw_datatree* node, const char* tag) {
  for (unsigned index = 0; index < node->child_count; ++index) {
    if (std::strcmp(node->children[index].tag, tag) == 0) {
      return &node->children[index];
    }
  }
  return nullptr;
}

// The value as the request has it: the key of an entry that is deleted is handed over as an element of the data store.
const char* text_of(const yfw_datatree* leaf) {
  return lyd_get_value(info_of(leaf).data);
}

}  // namespace

int yfw_map_do_these_match(const char* one, const char* other) {
  return one != nullptr && other != nullptr && std::strcmp(one, other) == 0 ? 1 : 0;
}

int yfw_map_is_request_delete(const yfw_datatree* node) {
  return oclacp::host::is_deleted(node) ? 1 : 0;
}

int yfw_map_is_request_add(yfw_map_ctx ctx, const yfw_datatree* node) {
  return MappingContext::of(ctx).is_edit() && !oclacp::host::is_deleted(node) ? 1 : 0;
}

void yfw_oc_error_path(yfw_map_ctx ctx) {
  MappingContext::of(ctx).mark_error();
}

// The leaf that a key refers to stands in the same entry. Natively the name is kept once, so the target exists as soon
// as the entry does, and only a leaf that names something else is wrong.
cerrno yfw_map_check_oc_leafref(yfw_map_ctx ctx, const char* /*list_path*/, const char* container, const char* key,
                                const yfw_datatree* entry) {
  const yfw_datatree* key_leaf = find_child(entry, key);
  const yfw_datatree* around = find_child(entry, container);
  const yfw_datatree* target = around == nullptr ? nullptr : find_child(around, key);
  if (key_leaf == nullptr || target == nullptr || key_leaf->value == nullptr || target->value == nullptr ||
      std::strcmp(text_of(key_leaf), target->value) == 0) {
    return YFW_OK;
  }
  MappingContext::of(ctx).refuse(target, status_kind(oclacp::host::kKeyDisagrees),
                                 std::string("'") + target->value + "' differs from the list key that refers to it");
  return oclacp::host::kKeyDisagrees;
}

void yfw_map_add_to_node_hierarchy(yfw_map_ctx ctx, const yfw_datatree* node, int /*kind*/) {
  MappingContext::of(ctx).enter(node);
}

void yfw_map_remove_from_node_hierarchy(yfw_map_ctx ctx, const yfw_datatree* /*node*/) {
  MappingContext::of(ctx).leave();
}

cerrno yfw_map_update_current_list_node(yfw_map_ctx ctx, const char* list_path) {
  MappingContext::of(ctx).enter_list(list_path);
  return YFW_OK;
}

cerrno yfw_map_get_node_info(yfw_map_ctx ctx, const char* path, const char* leaf, const char** value) {
  *value = MappingContext::of(ctx).find_leaf(path, leaf);
  return *value == nullptr ? oclacp::host::kNotFound : YFW_OK;
}

using oclacp::host::OutputLog;

cerrno yfw_map_datatree_add_path_flagged(yfw_map_ctx ctx, yfw_datatree* output, const char* path, const char* ns,
                                         const char* value, const yfw_datatree* source, uintptr_t /*word*/,
                                         int list_flag, int /*last_flag*/) {
  auto& log = *static_cast<OutputLog*>(output->framework);
  const cerrno status = log.add(path, ns, value, source, list_flag != 0);
  if (status != YFW_OK) {
    MappingContext& context = MappingContext::of(ctx);
    context.refuse(source == nullptr ? context.position() : source, status_kind(status), log.complaint());
  }
  return status;
}

cerrno yfw_map_search_or_add_list(yfw_map_ctx ctx, yfw_datatree* output, yfw_datatree** entry, const char* list_path,
                                  const char* key_value, const char* key_name, const char* ns) {
  auto& log = *static_cast<OutputLog*>(output->framework);
  const std::string key_path = std::string(list_path) + "/" + key_name;
  cerrno status = log.add(list_path, ns, nullptr, nullptr, true);
  if (status == YFW_OK) {
    status = log.add(key_path, ns, key_value, nullptr, false);
  }
  MappingContext& context = MappingContext::of(ctx);
  if (status != YFW_OK) {
    context.refuse(context.position(), status_kind(status), log.complaint());
    return status;
  }
  *entry = context.current_entry();
  return YFW_OK;
}

void yfw_add_to_output_list_ctx(yfw_map_ctx ctx, yfw_datatree* /*output*/) {
  ++ctx->request->output_list_count;
}

void yfw_remove_from_output_list_ctx(yfw_map_ctx ctx, yfw_datatree* /*output*/) {
  --ctx->request->output_list_count;
}

void yfw_map_copy_trim_path_list_ctx(yfw_map_ctx ctx, const char* list_path) {
  MappingContext::of(ctx).output().close_lists_below(list_path);
}

void yfw_map_util_itree_stack_push(yfw_map_ctx ctx, yfw_datatree* children, unsigned int child_count,
                                   yfw_itree_callback callback) {
  MappingContext::of(ctx).itree().push_back({children, child_count, callback});
}

void yfw_map_util_itree_stack_pop(yfw_map_ctx ctx) {
  if (auto& stack = MappingContext::of(ctx).itree(); !stack.empty()) {
    stack.pop_back();
  }
}

uint16_t yfw_map_util_itree_stack_size(yfw_map_ctx ctx) {
  return static_cast<uint16_t>(MappingContext::of(ctx).itree().size());
}

void yfw_map_util_itree_stack_peak(yfw_map_ctx ctx, yfw_itree_entry* top) {
  *top = MappingContext::of(ctx).itree().back();
}
