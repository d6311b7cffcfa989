// Debug log and trace buffer.
#include <array>
#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <ostream>

#include "host/base/contract.h"
#include "host/services/log_sinks.h"

int yfw_debug_should_log(const uintptr_t* filter, uint32_t level) {
  return ((*filter >> level) & 1U) != 0 ? 1 : 0;
}

void dt_log_filter_adv(yfw_log_stream* stream, int /*zero1*/, int /*zero2*/, int /*zero3*/, int /*zero4*/,
                       int /*zero5*/, uint32_t* /*site*/, const char* format, ...) {
  std::array<char, 1024> line{};  // longer records are cut
  va_list arguments;
  va_start(arguments, format);
  const int length = std::vsnprintf(line.data(), line.size(), format, arguments);
  va_end(arguments);
  if (length >= 0) {
    *stream->out << line.data() << '\n';
  }
}

uint32_t ret_nc_yfw_trace_index_incr() {
  static std::atomic<uint32_t> index{0};
  return ++index;
}

void _lstrace(yfw_trace_buffer* buffer, uint64_t /*flags*/, const char* text) {
  buffer->records.emplace_back(text);
}
