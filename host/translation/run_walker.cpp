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
  Records(MappingContext& context, const RecordSinks& sinks) : sinks_(sinks), stream_{sinks.debug_log} {
    context.debug_log_filter = sinks.debug_log == nullptr ? kLogNothing : kLogEverything;
    context.error_log = &stream_;
    context.trace_log = &stream_;
    context.trace_buffer = &buffer_;
    context.trace_enabled = sinks.trace == nullptr ? 0 : 1;
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
  MappingContext context(operation, output);
  const Records records(context, sinks);
  const cerrno status = walker(&context, tree.top(), context.output_root());
  if (status != YFW_OK || context.refused()) {
    throw request_error(context, tree, status);
  }
}

std::optional<Error> walk_native(yfw_map_walker walker, const yfw_datatree* top, uint32_t operation, OutputLog& output,
                                 const RecordSinks& sinks) {
  MappingContext context(operation, output);
  const Records records(context, sinks);
  const cerrno status = walker(&context, top, context.output_root());
  if (status == YFW_OK && !context.refused()) {
    return std::nullopt;
  }
  return native_error(context, top, status);
}

}  // namespace oclacp::host
