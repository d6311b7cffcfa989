// The debug log and the trace buffer of the recording platform. Records are taken apart, so that a malformed one is
// noticed at once.
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "support/invocation.h"
#include "yfw/log.h"

namespace support {
namespace {

std::string pointer_text(const void* pointer) {
  char text[32];
  const int length = std::snprintf(text, sizeof text, "%p", pointer);
  return {text, static_cast<std::size_t>(length)};
}

// Takes `token` off the front of `text`; false when it does not stand there.
bool take(std::string_view& text, std::string_view token) {
  if (!text.starts_with(token)) return false;
  text.remove_prefix(token.size());
  return true;
}

bool take_level(std::string_view& text, std::string& level) {
  for (const char* name : {"ERR", "TRC"}) {
    if (take(text, name)) {
      level = name;
      return true;
    }
  }
  return false;
}

bool take_number(std::string_view& text, unsigned long& number) {
  const std::string copy(text);
  char* end = nullptr;
  number = std::strtoul(copy.c_str(), &end, 10);
  const auto length = static_cast<std::size_t>(end - copy.c_str());
  text.remove_prefix(length);
  return length != 0;
}

// "ERR: YFW: ctx=0x...,text"
bool parse_debug_line(std::string_view line, const std::string& context, Record& record) {
  const bool right =
      take_level(line, record.level) && take(line, ": YFW: ctx=") && take(line, context) && take(line, ",");
  record.text = line;
  return right;
}

// "#7: ERR: handler:123 ctx=0x...,text"
bool parse_trace_record(std::string_view line, const std::string& context, Record& record) {
  unsigned long sequence = 0;
  unsigned long source_line = 0;
  if (!take(line, "#") || !take_number(line, sequence) || !take(line, ": ") || !take_level(line, record.level) ||
      !take(line, ": ")) {
    return false;
  }
  record.sequence = static_cast<std::uint32_t>(sequence);
  const std::size_t colon = line.find(':');
  if (colon == std::string_view::npos) return false;
  record.handler = line.substr(0, colon);
  line.remove_prefix(colon + 1);
  if (!take_number(line, source_line) || !take(line, " ctx=") || !take(line, context) || !take(line, ",")) return false;
  record.line = static_cast<int>(source_line);
  record.text = line;
  return true;
}

}  // namespace
}  // namespace support

using support::Invocation;
using support::Record;

int yfw_debug_should_log(const uintptr_t* filter, uint32_t level) {
  Invocation call("yfw_debug_should_log");
  call.arguments({std::to_string(level)});
  call.require(filter == &call.platform().ctx()->debug_log_filter, "not the context's filter");
  call.require(level == YFW_LOG_ERROR || level == YFW_LOG_TRACE, "unknown level");
  return call.number([&] { return call.logging() ? 1 : 0; });
}

void dt_log_filter_adv(yfw_log_stream* stream, int zero1, int zero2, int zero3, int zero4, int zero5,
                       uint32_t* call_site_id, const char* format, ...) {
  Invocation call("dt_log_filter_adv");
  const yfw_map_ctx_record& context = *call.platform().ctx();
  va_list arguments;
  va_start(arguments, format);
  char line[1024];
  // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): it is initialised two lines above
  const int length = std::vsnprintf(line, sizeof line, format, arguments);
  va_end(arguments);

  Record record{.sink = Record::Sink::kDebugLog,
                .level = {},
                .text = {},
                .call_site_id = call_site_id,
                .stream = stream,
                .handler = {}};
  const bool well_formed = support::parse_debug_line(line, support::pointer_text(&context), record);
  call.arguments({record.level, support::shown(record.text.c_str())});
  call.require(well_formed && length > 0 && length < int{sizeof line}, "malformed line");
  call.require(stream == (record.level == "ERR" ? context.error_log : context.trace_log), "wrong stream");
  call.require(zero1 == 0 && zero2 == 0 && zero3 == 0 && zero4 == 0 && zero5 == 0, "an argument is not zero");
  call.require(call_site_id != nullptr && *call_site_id == 0xFFFFFFFF, "the call-site id is not all ones");
  record.length = std::string_view(line).size();
  call.seen().records.push_back(std::move(record));
  call.done();
}

uint32_t ret_nc_yfw_trace_index_incr(void) {
  Invocation call("ret_nc_yfw_trace_index_incr");
  call.done();
  return ++call.seen().trace_index;
}

void _lstrace(yfw_trace_buffer* buffer, uint64_t flags, const char* text) {
  Invocation call("_lstrace");
  const yfw_map_ctx_record& context = *call.platform().ctx();
  Record record{.sink = Record::Sink::kTraceBuffer, .level = {}, .text = {}, .handler = {}};
  const bool well_formed = support::parse_trace_record(text, support::pointer_text(&context), record);
  call.arguments({record.level, record.handler, support::shown(record.text.c_str())});
  call.require(well_formed, "malformed record");
  call.require(buffer == context.trace_buffer, "wrong buffer");
  call.require(flags == YFW_TRACE_FLAGS, "wrong flags");
  call.require(record.sequence == call.seen().trace_index, "not the last sequence number");
  record.length = std::string_view(text).size();
  call.require(record.length < YFW_TRACE_CAPACITY, "longer than a record may be");
  call.seen().records.push_back(std::move(record));
  call.done();
}
