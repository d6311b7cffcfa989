// Bounded string operations, named allocations and status texts of the recording platform.
#include <cstdlib>
#include <cstring>
#include <set>
#include <string>

#include "support/invocation.h"
#include "yfw/strings.h"

using support::Invocation;
using support::shown;

char* yfw_strdup(const char* text, const char* allocation_tag) {
  Invocation call("yfw_strdup");
  call.arguments({shown(text)});
  call.require(allocation_tag != nullptr && std::strcmp(allocation_tag, YFW_ALLOCATION_TAG) == 0, "wrong tag");
  call.require(text != nullptr, "nothing to copy");
  char* copy = nullptr;
  const cerrno failure = call.status([&] {
    if (text == nullptr) return support::kStringRefused;
    copy = strdup(text);
    return YFW_OK;
  });
  if (failure != 0) return nullptr;
  call.seen().copies.insert(copy);
  return copy;
}

void named_free(void* memory) {
  Invocation call("named_free");
  const bool known = call.seen().copies.erase(memory) != 0;
  if (known) call.arguments({shown(static_cast<const char*>(memory))});
  call.require(known, "frees what yfw_strdup() did not give");
  call.done();
  if (known) std::free(memory);
}

cerrno yfw_strcpy_s(const char* caller, char* destination, size_t size, const char* source) {
  Invocation call("yfw_strcpy_s");
  call.arguments({shown(caller), "size=" + std::to_string(size), shown(source)});
  call.require(caller != nullptr, "no caller named");
  return call.status([&] {
    if (destination == nullptr || source == nullptr || std::strlen(source) >= size) return support::kStringRefused;
    std::memcpy(destination, source, std::strlen(source) + 1);
    return YFW_OK;
  });
}

cerrno yfw_strncpy_s(const char* caller, char* destination, size_t size, const char* source, size_t count) {
  Invocation call("yfw_strncpy_s");
  call.arguments({shown(caller), "size=" + std::to_string(size), shown(source), "count=" + std::to_string(count)});
  call.require(caller != nullptr, "no caller named");
  // What a failed copy leaves is the caller's problem, so it leaves the worst: as many characters as there is room for,
  // and no terminator.
  if (destination != nullptr && source != nullptr) std::strncpy(destination, source, size);
  return call.status([&] {
    if (destination == nullptr || source == nullptr) return support::kStringRefused;
    const std::size_t length = strnlen(source, count);
    if (length >= size) return support::kStringRefused;
    destination[length] = '\0';
    return YFW_OK;
  });
}

cerrno yfw_strcmp_s(const char* caller, const char* text, size_t max, const char* other, int* difference) {
  Invocation call("yfw_strcmp_s");
  call.arguments({shown(caller), shown(text), shown(other)});
  call.require(caller != nullptr, "no caller named");
  call.require(max == YFW_STRING_NO_LIMIT, "compares with a limit");
  return call.status([&] {
    if (text == nullptr || other == nullptr) return support::kStringRefused;
    *difference = std::strcmp(text, other);
    return YFW_OK;
  });
}

const char* cerr_strerror(cerrno status) {
  // The texts live as long as the process, as the contract wants.
  static std::set<std::string> texts;
  Invocation call("cerr_strerror");
  call.arguments({support::shown_status(status)});
  call.done();
  return texts.insert("status " + support::shown_status(status)).first->c_str();
}
