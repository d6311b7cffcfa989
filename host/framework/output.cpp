// Adding to the output.
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
