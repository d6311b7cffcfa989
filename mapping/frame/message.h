// The messages of records. Each is stored whole in both of its forms: for the debug log and for the trace buffer.
#pragma once

#include <cstddef>
#include <cstdint>

#include "yfw/log.h"

namespace ymap {

struct Message {
  std::size_t call_site;  // which of a handler's call-site ids belongs to it
  std::uint32_t level;
  const char* debug_log;
  const char* trace;
  std::size_t arguments;  // how many texts it takes
};

// A handler has a call-site id for each place that could record. The frame's messages come first, a module's follow
// from kFirstModuleCallSite. A message that a handler records in two places has an entry for each; see
// at_another_place().
inline constexpr std::size_t kFirstModuleCallSite = 20;
inline constexpr std::size_t kCallSites = 31;

consteval std::size_t count_arguments(const char* format) {
  std::size_t count = 0;
  for (const char* at = format; *at != '\0'; ++at) {
    if (at[0] == '%' && at[1] == 's') ++count;
  }
  return count;
}

// NOLINTBEGIN(bugprone-macro-parentheses): the texts are joined as literals
#define YMAP_ERROR_MESSAGE(CALL_SITE, TEXT)                                                \
  ymap::Message {                                                                          \
    .call_site = CALL_SITE, .level = YFW_LOG_ERROR, .debug_log = "ERR: YFW: ctx=%p," TEXT, \
    .trace = "#%u: ERR: %s:%d ctx=%p," TEXT, .arguments = ymap::count_arguments(TEXT)      \
  }
#define YMAP_TRACE_MESSAGE(CALL_SITE, TEXT)                                                \
  ymap::Message {                                                                          \
    .call_site = CALL_SITE, .level = YFW_LOG_TRACE, .debug_log = "TRC: YFW: ctx=%p," TEXT, \
    .trace = "#%u: TRC: %s:%d ctx=%p," TEXT, .arguments = ymap::count_arguments(TEXT)      \
  }
// NOLINTEND(bugprone-macro-parentheses)

// A message as another place of the same handler records it: the same text with a call site of its own.
consteval Message at_another_place(Message message, std::size_t call_site) {
  message.call_site = call_site;
  return message;
}

// Named in the compiler's error when a record is given another number of texts than its message takes.
void message_takes_another_number_of_arguments();

// A message that takes `Arguments` texts.
template <std::size_t Arguments>
class MessageWith {
 public:
  // NOLINTNEXTLINE(google-explicit-constructor): stands for the message in every call
  consteval MessageWith(const Message& message) : message_(message) {
    if (message.arguments != Arguments) message_takes_another_number_of_arguments();
  }

  [[nodiscard]] constexpr const Message& get() const { return message_; }

 private:
  const Message& message_;
};

// The messages of the frame. Blanks at both ends of a text and its newlines are part of it.
namespace message {
// clang-format off
// Every handler
inline constexpr Message kStart              = YMAP_TRACE_MESSAGE(0, "Start");
inline constexpr Message kEnd                = YMAP_TRACE_MESSAGE(1, "End");
inline constexpr Message kInvalidArguments   = YMAP_ERROR_MESSAGE(2, "Invalid arguments passed!");
// Walkers
inline constexpr Message kSubtreesMissing    = YMAP_ERROR_MESSAGE(3, "Failed to get subtrees!");
inline constexpr Message kTagMissing         = YMAP_ERROR_MESSAGE(4, "Tag name is not available!");
inline constexpr Message kUnsupportedTag     = YMAP_ERROR_MESSAGE(5, "Unsupported tag is specified in the request.");
inline constexpr Message kDeleteWithSubtree  = YMAP_TRACE_MESSAGE(6, "Delete request with subtree present");
inline constexpr Message kKeysMissing        = YMAP_ERROR_MESSAGE(7, "No keys specified with a list node.");
inline constexpr Message kKeyEmpty           = YMAP_ERROR_MESSAGE(8, "Empty list key specified.");
inline constexpr Message kKeyInvalid         = YMAP_ERROR_MESSAGE(9, "List key node error.");
inline constexpr Message kKeyDeleted         = YMAP_ERROR_MESSAGE(10, "The key node should not have delete operation.");
inline constexpr Message kLeafrefRefused     = YMAP_ERROR_MESSAGE(11, "leafref value check fail");
inline constexpr Message kProcessingTag      = YMAP_TRACE_MESSAGE(12, "Processing tag '%s'");
inline constexpr Message kTagIgnored         = YMAP_TRACE_MESSAGE(13, "Unsupported tag. Ignoring.");
// For a framework that hands over an error node of an XPath evaluation. No handler is given one; the library has the
// text all the same.
inline constexpr Message kXpathErrorNode     = YMAP_TRACE_MESSAGE(14, "got xpath error node");
// When-handlers
inline constexpr Message kNothingToEvaluate  = YMAP_TRACE_MESSAGE(15, "No valid input to validate when statement ");
// Bounded string operations: intentionally at the trace level. Each names the function and the failure.
inline constexpr Message kCopyFailed         = YMAP_TRACE_MESSAGE(16, " %s yfw_strcpy_s failed with error : %s\n");
inline constexpr Message kBoundedCopyFailed  = YMAP_TRACE_MESSAGE(17, " %s yfw_strncpy_s failed with error : %s\n");
inline constexpr Message kCompareFailed      = YMAP_TRACE_MESSAGE(18, " %s yfw_strcmp_s failed with error : %s\n");
// The children of a further entry, in the walker of a list entry
inline constexpr Message kFurtherSubtreesMissing = at_another_place(kSubtreesMissing, 19);
// clang-format on
}  // namespace message

static_assert(message::kFurtherSubtreesMissing.call_site < kFirstModuleCallSite);

}  // namespace ymap
