// Adding to the output.
#include <string>

#include "host/contract.h"
#include "host/framework/edit_script.h"
#include "host/framework/request.h"

using oclacp::host::EditScript;
using oclacp::host::Request;

cerrno yfw_map_datatree_add_path_flagged(yfw_map_ctx ctx, yfw_datatree* output, const char* path, const char* ns,
                                         const char* value, const yfw_datatree* source, uintptr_t /*word*/,
                                         int list_flag, int /*last_flag*/) {
  auto& script = *static_cast<EditScript*>(output->framework);
  const cerrno status = script.add(path, ns, value, source, list_flag != 0);
  if (status != YFW_OK) {
    Request& request = Request::of(ctx);
    request.refuse(source == nullptr ? request.position() : source, script.complaint());
  }
  return status;
}

cerrno yfw_map_search_or_add_list(yfw_map_ctx ctx, yfw_datatree* output, yfw_datatree** entry, const char* list_path,
                                  const char* key_value, const char* key_name, const char* ns) {
  auto& script = *static_cast<EditScript*>(output->framework);
  const std::string key_path = std::string(list_path) + "/" + key_name;
  cerrno status = script.add(list_path, ns, nullptr, nullptr, true);
  if (status == YFW_OK) {
    status = script.add(key_path, ns, key_value, nullptr, false);
  }
  Request& request = Request::of(ctx);
  if (status != YFW_OK) {
    request.refuse(request.position(), script.complaint());
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
  Request::of(ctx).output().close_lists_below(list_path);
}
