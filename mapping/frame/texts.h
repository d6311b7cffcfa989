// Comparing and copying the texts that a conversion knows, with the platform's bounded operations.
#pragma once

#include "frame/handler.h"
#include "yfw/strings.h"

namespace ymap {

// Holds the longest text that a conversion writes, with its terminator.
struct ShortText {
  char text[10] = {};
};

// Compares two texts of any length; a failure is recorded as `failure`.
inline cerrno compare(const Activation& run, const char* value, const char* known, bool& equal,
                      MessageWith<2> failure = message::kCompareFailed) {
  int difference = 0;
  const cerrno status = yfw_strcmp_s(run.name(), value, YFW_STRING_NO_LIMIT, known, &difference);
  if (status != YFW_OK) run.record_failed_call(failure, status);
  equal = status == YFW_OK && difference == 0;
  return status;
}

// The same where a failed comparison is treated as a difference and not recorded.
inline bool is_equal(const Activation& run, const char* value, const char* known) {
  int difference = 0;
  return yfw_strcmp_s(run.name(), value, YFW_STRING_NO_LIMIT, known, &difference) == YFW_OK && difference == 0;
}

// Copies a known text; a failure is recorded as `failure`.
inline cerrno copy(const Activation& run, ShortText& buffer, const char* known, MessageWith<2> failure) {
  const cerrno status = yfw_strcpy_s(run.name(), buffer.text, sizeof buffer.text, known);
  if (status != YFW_OK) run.record_failed_call(failure, status);
  return status;
}

}  // namespace ymap
