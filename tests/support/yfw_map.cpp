// The mapping framework of the recording platform.
#include <cstring>
#include <string>

#include "support/invocation.h"
#include "yfw/map.h"

using support::Invocation;
using support::shown;

namespace {

void require_context(Invocation& call, yfw_map_ctx ctx) {
  call.require(ctx == call.platform().ctx(), "not the request's context");
}

void require_output(Invocation& call, const yfw_datatree* output) {
  call.require(output == call.platform().output(), "not the request's output");
}

// The value of a leaf of the node on the hierarchy that has a path, or null.
const char* value_on_hierarchy(const support::Platform& platform, std::string_view path, std::string_view leaf) {
  std::string current;
  for (const auto& [node, kind] : platform.seen().hierarchy) {
    current += "/" + shown(node);
    if (current != path || (node->flags & YFW_FLAG_SUBTREE) == 0) continue;
    for (unsigned int i = 0; i < node->child_count; ++i) {
      if (shown(&node->children[i]) == leaf) return node->children[i].value;
    }
  }
  return nullptr;
}

}  // namespace

int yfw_map_do_these_match(const char* one, const char* other) {
  Invocation call("yfw_map_do_these_match");
  call.arguments({shown(one), shown(other)});
  return call.number([&] { return one != nullptr && other != nullptr && std::strcmp(one, other) == 0 ? 1 : 0; });
}

int yfw_map_is_request_delete(const yfw_datatree* node) {
  Invocation call("yfw_map_is_request_delete");
  call.arguments({shown(node)});
  call.require(node != nullptr, "no node");
  return call.number([&] { return support::deletes(node) ? 1 : 0; });
}

int yfw_map_is_request_add(yfw_map_ctx ctx, const yfw_datatree* node) {
  Invocation call("yfw_map_is_request_add");
  call.arguments({shown(node)});
  require_context(call, ctx);
  call.require(node != nullptr, "no node");
  const std::uint32_t operation = call.platform().descriptor().operation;
  const bool edit = operation != YFW_REQUEST_READ_CONFIG && operation != YFW_REQUEST_READ_STATE;
  return call.number([&] { return edit && !support::deletes(node) ? 1 : 0; });
}

void yfw_oc_error_path(yfw_map_ctx ctx) {
  Invocation call("yfw_oc_error_path");
  require_context(call, ctx);
  call.done();
}

void yfw_map_add_to_node_hierarchy(yfw_map_ctx ctx, const yfw_datatree* node, int kind) {
  Invocation call("yfw_map_add_to_node_hierarchy");
  call.arguments({shown(node), kind == YFW_HIERARCHY_LIST ? "list" : "container"});
  require_context(call, ctx);
  call.require(kind == YFW_HIERARCHY_CONTAINER || kind == YFW_HIERARCHY_LIST, "unknown kind");
  call.seen().hierarchy.emplace_back(node, kind);
  call.done();
}

void yfw_map_remove_from_node_hierarchy(yfw_map_ctx ctx, const yfw_datatree* node) {
  Invocation call("yfw_map_remove_from_node_hierarchy");
  call.arguments({shown(node)});
  require_context(call, ctx);
  auto& hierarchy = call.seen().hierarchy;
  const bool current = !hierarchy.empty() && hierarchy.back().first == node;
  call.require(current, "leaves a node that is not the current one");
  if (current) hierarchy.pop_back();
  call.done();
}

cerrno yfw_map_update_current_list_node(yfw_map_ctx ctx, const char* list_path) {
  Invocation call("yfw_map_update_current_list_node");
  call.arguments({shown(list_path)});
  require_context(call, ctx);
  return call.status([] { return YFW_OK; });
}

cerrno yfw_map_check_oc_leafref(yfw_map_ctx ctx, const char* list_path, const char* container, const char* key,
                                const yfw_datatree* entry) {
  Invocation call("yfw_map_check_oc_leafref");
  call.arguments({shown(list_path), shown(container), shown(key), shown(entry)});
  require_context(call, ctx);
  return call.status([] { return YFW_OK; });
}

cerrno yfw_map_get_node_info(yfw_map_ctx ctx, const char* path, const char* leaf, const char** value) {
  Invocation call("yfw_map_get_node_info");
  call.arguments({shown(path), shown(leaf)});
  require_context(call, ctx);
  return call.status([&] {
    const std::string node = std::string(path) + "/" + leaf;
    const auto& answers = call.platform().node_info;
    const auto found = answers.find(node);
    *value = found != answers.end() ? found->second.c_str() : value_on_hierarchy(call.platform(), path, leaf);
    const auto& failures = call.platform().node_info_failures;
    if (const auto failure = failures.find(node); failure != failures.end()) return failure->second;
    return *value != nullptr ? YFW_OK : support::kNodeUnknown;
  });
}

cerrno yfw_map_datatree_add_path_flagged(yfw_map_ctx ctx, yfw_datatree* output, const char* path, const char* ns,
                                         const char* value, const yfw_datatree* source, uintptr_t word, int list_flag,
                                         int last_flag) {
  Invocation call("yfw_map_datatree_add_path_flagged");
  const bool passes_slot =
      word != 0 && word == reinterpret_cast<std::uintptr_t>(&call.platform().state().current_list_node);
  call.arguments({shown(path), support::shown_namespace(ns), "value=" + shown(value), "source=" + shown(source),
                  "word=" + (passes_slot ? "slot" : std::to_string(word)), "list=" + std::to_string(list_flag),
                  "last=" + std::to_string(last_flag)});
  require_context(call, ctx);
  require_output(call, output);
  return call.status([&] {
    call.seen().additions.push_back({.path = path,
                                     .ns = ns,
                                     .value = value == nullptr ? std::nullopt : std::optional<std::string>(value),
                                     .source = source,
                                     .operation = support::effective_operation(source),
                                     .word = word,
                                     .list_flag = list_flag,
                                     .last_flag = last_flag});
    return YFW_OK;
  });
}

cerrno yfw_map_search_or_add_list(yfw_map_ctx ctx, yfw_datatree* output, yfw_datatree** entry, const char* list_path,
                                  const char* key_value, const char* key_name, const char* ns) {
  Invocation call("yfw_map_search_or_add_list");
  call.arguments({shown(list_path), shown(key_value), shown(key_name), support::shown_namespace(ns)});
  require_context(call, ctx);
  require_output(call, output);
  call.require(entry == &call.platform().state().current_list_node, "not the slot of the current list entry");
  return call.status([&] {
    *entry = &call.seen().output_entries.emplace_back();
    call.seen().additions.push_back({.path = list_path,
                                     .key = std::string(key_name) + "=" + key_value,
                                     .ns = ns,
                                     .value = std::nullopt,
                                     .source = nullptr,
                                     .operation = YFW_OPERATION_NONE,
                                     .word = 0,
                                     .list_flag = 0,
                                     .last_flag = 0});
    return YFW_OK;
  });
}

void yfw_add_to_output_list_ctx(yfw_map_ctx ctx, yfw_datatree* output) {
  Invocation call("yfw_add_to_output_list_ctx");
  require_context(call, ctx);
  require_output(call, output);
  if (call.platform().output_list_grows) {
    call.seen().output_list.push_back(output);
    ++call.platform().state().output_list_count;
  }
  call.done();
}

void yfw_remove_from_output_list_ctx(yfw_map_ctx ctx, yfw_datatree* output) {
  Invocation call("yfw_remove_from_output_list_ctx");
  require_context(call, ctx);
  auto& list = call.seen().output_list;
  const bool current = !list.empty() && list.back() == output;
  call.require(current, "removes what is not the last entry");
  if (current) {
    list.pop_back();
    --call.platform().state().output_list_count;
  }
  call.done();
}

void yfw_map_copy_trim_path_list_ctx(yfw_map_ctx ctx, const char* list_path) {
  Invocation call("yfw_map_copy_trim_path_list_ctx");
  call.arguments({shown(list_path)});
  require_context(call, ctx);
  call.done();
}

void yfw_map_util_itree_stack_push(yfw_map_ctx ctx, yfw_datatree* children, unsigned int child_count,
                                   yfw_itree_callback callback) {
  Invocation call("yfw_map_util_itree_stack_push");
  call.arguments({"children=" + std::to_string(child_count)});
  if (callback != nullptr) call.arguments({"callback"});
  require_context(call, ctx);
  call.seen().itree_stack.push_back({children, child_count, callback});
  call.done();
}

void yfw_map_util_itree_stack_pop(yfw_map_ctx ctx) {
  Invocation call("yfw_map_util_itree_stack_pop");
  require_context(call, ctx);
  auto& stack = call.seen().itree_stack;
  call.require(!stack.empty(), "pops an empty stack");
  if (!stack.empty()) stack.pop_back();
  call.done();
}

uint16_t yfw_map_util_itree_stack_size(yfw_map_ctx ctx) {
  Invocation call("yfw_map_util_itree_stack_size");
  require_context(call, ctx);
  return static_cast<uint16_t>(call.number([&] { return static_cast<int>(call.seen().itree_stack.size()); }));
}

void yfw_map_util_itree_stack_peak(yfw_map_ctx ctx, yfw_itree_entry* top) {
  Invocation call("yfw_map_util_itree_stack_peak");
  require_context(call, ctx);
  const auto& stack = call.seen().itree_stack;
  call.require(!stack.empty(), "looks at an empty stack");
  if (!stack.empty()) *top = stack.back();
  call.done();
}
