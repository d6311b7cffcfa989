#include "frame/handler.h"

#include <cstdio>

#include "yfw/log.h"
#include "yfw/map.h"

// The C library declares it only where assertions are on; the frame's check of its context stays in release builds.
// NOLINTNEXTLINE(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
extern "C" void __assert_fail(const char* expression, const char* file, unsigned int line,
                              const char* function) noexcept __attribute__((__noreturn__));

namespace ymap {
namespace {

// The library has every text, also the one that none of its handlers records.
[[gnu::used, gnu::retain]] constexpr Message kKeptMessage = message::kXpathErrorNode;

template <typename... Texts>
void write_record(const Handler& handler, yfw_map_ctx ctx, const Message& message, Texts... texts) {
  if (yfw_debug_should_log(&ctx->debug_log_filter, message.level) != 0) {
    yfw_log_stream* const stream = message.level == YFW_LOG_ERROR ? ctx->error_log : ctx->trace_log;
    dt_log_filter_adv(stream, 0, 0, 0, 0, 0, &handler.call_site_ids[message.call_site], message.debug_log,
                      static_cast<void*>(ctx), texts...);
  }
  if (ctx->trace_enabled != 0) {
    const int line = handler.line * 100 + static_cast<int>(message.call_site);
    char text[YFW_TRACE_CAPACITY];
    // A longer text is cut, intentionally.
    static_cast<void>(std::snprintf(text, sizeof text, message.trace, ret_nc_yfw_trace_index_incr(), handler.name, line,
                                    static_cast<void*>(ctx), texts...));
    _lstrace(ctx->trace_buffer, YFW_TRACE_FLAGS, text);
  }
}

}  // namespace

void assert_context(const Handler& handler, yfw_map_ctx ctx) {
  if (ctx != nullptr) return;
  __assert_fail("((void *)0) != ctx", handler.file, static_cast<unsigned int>(handler.line), handler.prototype);
}

void record(const Handler& handler, yfw_map_ctx ctx, MessageWith<0> message) {
  write_record(handler, ctx, message.get());
}

void record(const Handler& handler, yfw_map_ctx ctx, MessageWith<1> message, const char* text) {
  write_record(handler, ctx, message.get(), text);
}

void record(const Handler& handler, yfw_map_ctx ctx, MessageWith<2> message, const char* text, const char* other) {
  write_record(handler, ctx, message.get(), text, other);
}

bool Activation::has_arguments(const yfw_datatree* in, const yfw_datatree* out) const {
  if (in != nullptr && out != nullptr) return true;
  record(message::kInvalidArguments);
  yfw_oc_error_path(ctx_);
  return false;
}

void Activation::record_failed_call(MessageWith<2> message, cerrno status) const {
  record(message, handler_.name, cerr_strerror(status));
}

}  // namespace ymap
