// Position in the request.
#include "host/contract.h"
#include "host/framework/request.h"
#include "host/status.h"

using oclacp::host::Request;

void yfw_map_add_to_node_hierarchy(yfw_map_ctx ctx, const yfw_datatree* node, int /*kind*/) {
  Request::of(ctx).enter(node);
}

void yfw_map_remove_from_node_hierarchy(yfw_map_ctx ctx, const yfw_datatree* /*node*/) {
  Request::of(ctx).leave();
}

cerrno yfw_map_update_current_list_node(yfw_map_ctx ctx, const char* list_path) {
  Request::of(ctx).enter_list(list_path);
  return YFW_OK;
}

cerrno yfw_map_get_node_info(yfw_map_ctx ctx, const char* path, const char* leaf, const char** value) {
  *value = Request::of(ctx).find_leaf(path, leaf);
  return *value == nullptr ? oclacp::host::kNotFound : YFW_OK;
}
