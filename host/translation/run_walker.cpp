#include "host/translation/run_walker.h"

#include <iterator>
#include <utility>

#include "host/base/error.h"
#include "host/services/log_sinks.h"
#include "host/services/mapping_context.h"
#include "host/translation/walk_error.h"

namespace oclacp::host {
namespace {

// The module's records, collected while this lives.
class Records {
 public:
  Records(MappingContext& request, const RecordSinks& sinks) : sinks_(sinks), stream_{sinks.debug_log} {
    request.debug_log_filter = sinks.debug_log == nullptr ? kLogNothing : kLogEverything;
    request.error_log = &stream_;
    request.trace_log = &stream_;
    request.trace_buffer = &buffer_;
    request.trace_enabled = sinks.trace == nullptr ? 0 : 1;
  }
  ~Records() {
    if (sinks_.trace != nullptr) {
      std::move(buffer_.records.begin(), buffer_.records.end(), std::back_inserter(*sinks_.trace));
    }
  }
  Records(const Records&) = delete;
  Records& operator=(const Records&) = delete;
  Records(Records&&) = delete;
  Records& operator=(Records&&) = delete;

 private:
  const RecordSinks& sinks_;
  yfw_log_stream stream_;
  yfw_trace_buffer buffer_;
};

}  // namespace

void walk_request(yfw_map_walker walker, RequestTree& tree, uint32_t operation, OutputLog& output,
                  const RecordSinks& sinks) {
  MappingContext request(operation, output);
  const Records records(request, sinks);
  const cerrno status = walker(&request, tree.top(), request.output_root());
  if (status != YFW_OK || request.refused()) {
    throw Error(describe_failure(request, tree, status));
  }
}

std::optional<std::string> walk_native(yfw_map_walker walker, const yfw_datatree* top, uint32_t operation,
                                       OutputLog& output, const RecordSinks& sinks) {
  MappingContext request(operation, output);
  const Records records(request, sinks);
  const cerrno status = walker(&request, top, request.output_root());
  if (status == YFW_OK && !request.refused()) {
    return std::nullopt;
  }
  return describe_native_failure(request, top, status);
}

}  // namespace oclacp::host
