#include "frame/handler.h"

#include <cstdio>
#include <iterator>

#include "yfw/log.h"
#include "yfw/map.h"

// The C library declares it only where assertions are on; the frame's check of its context stays in release builds.
// NOLINTNEXTLINE(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
extern "C" void __assert_fail(const char* expression, const char* file, unsigned int line,
                              const char* function) noexcept __attribute__((__noreturn__));

namespace ymap {
namespace {

// Both forms of a message, each stored whole.
struct MessageForm {
  Message message;
  std::uint32_t level;
  const char* debug_log;
  const char* trace;
};

#define YMAP_ERR(MESSAGE, TEXT) \
  { Message::MESSAGE, YFW_LOG_ERROR, "ERR: YFW: ctx=%p," TEXT, "#%u: ERR: %s:%d ctx=%p," TEXT }
#define YMAP_TRC(MESSAGE, TEXT) \
  { Message::MESSAGE, YFW_LOG_TRACE, "TRC: YFW: ctx=%p," TEXT, "#%u: TRC: %s:%d ctx=%p," TEXT }

// Blanks at both ends of a text and its newlines are part of it.
// clang-format off
constexpr MessageForm kForms[] = {
    YMAP_TRC(kStart, "Start"),
    YMAP_TRC(kEnd, "End"),
    YMAP_ERR(kInvalidArguments, "Invalid arguments passed!"),
    YMAP_ERR(kSubtreesMissing, "Failed to get subtrees!"),
    YMAP_ERR(kTagMissing, "Tag name is not available!"),
    YMAP_ERR(kUnsupportedTag, "Unsupported tag is specified in the request."),
    YMAP_TRC(kDeleteWithSubtree, "Delete request with subtree present"),
    YMAP_ERR(kKeysMissing, "No keys specified with a list node."),
    YMAP_ERR(kKeyEmpty, "Empty list key specified."),
    YMAP_ERR(kKeyInvalid, "List key node error."),
    YMAP_ERR(kKeyDeleted, "The key node should not have delete operation."),
    YMAP_ERR(kLeafrefRefused, "leafref value check fail"),
    YMAP_TRC(kProcessingTag, "Processing tag '%s'"),
    YMAP_TRC(kTagIgnored, "Unsupported tag. Ignoring."),
    YMAP_TRC(kXpathErrorNode, "got xpath error node"),
    YMAP_TRC(kNothingToEvaluate, "No valid input to validate when statement "),
    YMAP_ERR(kInterfaceNameMissing, "Data interface name does not exists"),
    YMAP_ERR(kBindFailed, "Unable to bind to Sysdb: path:%s, error:%s"),
    YMAP_ERR(kFindFailed, "Unable to find items in Sysdb: path:%s, error:%s"),
    YMAP_ERR(kIterationFailed, "Unable to iterate the sysdb list: error:%s"),
    YMAP_ERR(kIntervalRefused, "\nValue of interval other than 1s and 30s is not supported in high model"),
    // Failures of string operations and of name look-ups are told at the trace level, which is meant.
    YMAP_TRC(kCopyFailed, " %s yfw_strcpy_s failed with error : %s\n"),
    YMAP_TRC(kIntervalCopyFailed, " %s  yfw_strcpy_s failed with error : %s\n"),
    YMAP_TRC(kBoundedCopyFailed, " %s yfw_strncpy_s failed with error : %s\n"),
    YMAP_TRC(kCompareFailed, " %s yfw_strcmp_s failed with error : %s\n"),
    YMAP_TRC(kBundleNameMissing, " %s Unable to get bundle name from lacp-bundle tree : %s\n"),
    YMAP_TRC(kBundleNameFailed, "%s: Unable to get bundle name. Returning from here. rc %s\n"),
    YMAP_TRC(kModeIsOn, "%s: Configured LACP Mode is ON. Returning from here\n"),
};
// clang-format on

consteval bool forms_follow_messages() {
  if (std::size(kForms) != kAllSites) return false;
  for (std::size_t i = 0; i < kAllSites; ++i) {
    if (kForms[i].message != static_cast<Message>(i)) return false;
  }
  return true;
}
static_assert(forms_follow_messages(), "one form for each message, in the order of the enumeration");

const MessageForm& form_of(Message message) {
  return kForms[static_cast<std::size_t>(message)];
}

}  // namespace

int record_line(const Handler& handler, Message message) {
  return handler.line * 100 + static_cast<int>(message);
}

void assert_context(const Handler& handler, yfw_map_ctx ctx) {
  if (ctx != nullptr) return;
  __assert_fail("((void *)0) != ctx", handler.file, static_cast<unsigned int>(handler.line), handler.prototype);
}

template <typename... Texts>
void record(const Handler& handler, yfw_map_ctx ctx, Message message, Texts... texts) {
  const MessageForm& form = form_of(message);
  if (yfw_debug_should_log(&ctx->debug_log_filter, form.level) != 0) {
    yfw_log_stream* const stream = form.level == YFW_LOG_ERROR ? ctx->error_log : ctx->trace_log;
    dt_log_filter_adv(stream, 0, 0, 0, 0, 0, &handler.words[static_cast<std::size_t>(message)], form.debug_log,
                      static_cast<void*>(ctx), texts...);
  }
  if (ctx->trace_enabled != 0) {
    char text[YFW_TRACE_CAPACITY];
    std::snprintf(text, sizeof text, form.trace, ret_nc_yfw_trace_index_incr(), handler.name,
                  record_line(handler, message), static_cast<void*>(ctx), texts...);
    _lstrace(ctx->trace_buffer, YFW_TRACE_FLAGS, text);
  }
}

template void record(const Handler&, yfw_map_ctx, Message);
template void record(const Handler&, yfw_map_ctx, Message, const char*);
template void record(const Handler&, yfw_map_ctx, Message, const char*, const char*);

bool Activation::has_arguments(const void* in, const void* out) const {
  if (in != nullptr && out != nullptr) return true;
  record(Message::kInvalidArguments);
  yfw_oc_error_path(ctx_);
  return false;
}

void Activation::record_failed_call(Message message, cerrno status) const {
  record(message, handler_.name, cerr_strerror(status));
}

}  // namespace ymap
