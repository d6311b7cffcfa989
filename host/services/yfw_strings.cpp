// Bounded string operations and named allocations.
#include <cstdlib>
#include <cstring>

#include "host/base/contract.h"
#include "host/base/status_text.h"

using oclacp::host::kTextMissing;
using oclacp::host::kTextTooLong;

char* yfw_strdup(const char* text, const char* /*allocation_tag*/) {
  return text == nullptr ? nullptr : strdup(text);
}

void named_free(void* memory) {
  std::free(memory);
}

cerrno yfw_strcpy_s(const char* caller, char* destination, size_t size, const char* source) {
  return yfw_strncpy_s(caller, destination, size, source, YFW_STRING_NO_LIMIT);
}

cerrno yfw_strncpy_s(const char* /*caller*/, char* destination, size_t size, const char* source, size_t count) {
  if (destination == nullptr || size == 0) {
    return kTextMissing;
  }
  destination[0] = '\0';
  if (source == nullptr) {
    return kTextMissing;
  }
  // Looks at no more of the source than can matter, as it need not be terminated within `count`.
  const size_t length = strnlen(source, count < size ? count : size);
  if (length >= size) {
    return kTextTooLong;
  }
  std::memcpy(destination, source, length);
  destination[length] = '\0';
  return YFW_OK;
}

cerrno yfw_strcmp_s(const char* /*caller*/, const char* text, size_t max, const char* other, int* difference) {
  if (text == nullptr || other == nullptr || difference == nullptr) {
    return kTextMissing;
  }
  *difference = std::strncmp(text, other, max);
  return YFW_OK;
}
