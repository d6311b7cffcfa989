// Position in the request.
#include "host/base/contract.h"
#include "host/base/status_text.h"
#include "host/services/mapping_context.h"

using oclacp::host::MappingContext;

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
