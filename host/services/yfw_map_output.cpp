// Adding to the output.
#include <string>

#include "host/base/contract.h"
#include "host/services/mapping_context.h"
#include "host/trees/output_log.h"

using oclacp::host::MappingContext;
using oclacp::host::OutputLog;

cerrno yfw_map_datatree_add_path_flagged(yfw_map_ctx ctx, yfw_datatree* output, const char* path, const char* ns,
                                         const char* value, const yfw_datatree* source, uintptr_t /*word*/,
                                         int list_flag, int /*last_flag*/) {
  auto& log = *static_cast<OutputLog*>(output->framework);
  const cerrno status = log.add(path, ns, value, source, list_flag != 0);
  if (status != YFW_OK) {
    MappingContext& request = MappingContext::of(ctx);
    request.refuse(source == nullptr ? request.position() : source, log.complaint());
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
  MappingContext& request = MappingContext::of(ctx);
  if (status != YFW_OK) {
    request.refuse(request.position(), log.complaint());
    return status;
  }
  *entry = request.current_entry();
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
