#include "frame/request.h"

#include "yfw/strings.h"

namespace ymap {

void store_error_tag(yfw_map_ctx ctx, const char* tag) {
  yfw_request_state* const request = ctx->request;
  if (request == nullptr) return;
  if (request->error_tag != nullptr) {
    named_free(request->error_tag);
    request->error_tag = nullptr;
  }
  if (tag != nullptr) request->error_tag = yfw_strdup(tag, YFW_ALLOCATION_TAG);
}

}  // namespace ymap
