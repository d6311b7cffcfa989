// One call of a platform operation, from its entry to its answer: for the recording platform's own use.
#pragma once

#include <initializer_list>
#include <string>

#include "support/platform.h"

namespace support {

// Texts of arguments as call logs show them.
std::string shown(const char* text);
std::string shown(const yfw_datatree* node);
std::string shown_namespace(const char* ns);
std::string shown_status(std::uint32_t status);

class Invocation {
 public:
  explicit Invocation(const char* function);
  ~Invocation();
  Invocation(const Invocation&) = delete;
  Invocation& operator=(const Invocation&) = delete;

  Platform& platform() { return platform_; }
  Seen& seen() { return platform_.seen_; }
  [[nodiscard]] bool logging() const { return platform_.logging_; }

  // Adds arguments to the call's text.
  void arguments(std::initializer_list<std::string> texts);

  // Notes a misuse unless `right`.
  void require(bool right, const char* what);

  // The answer of an operation that can fail: scripted, or that of `work`. 0 is not shown.
  template <typename Work>
  cerrno status(Work work) {
    const auto scripted = platform_.scripted(call_, true);
    const cerrno answer = scripted ? *scripted : work();
    if (answer != 0) call_.answer = shown_status(answer);
    return answer;
  }

  // The answer of an operation that tells something: scripted, or that of `work`. Always shown.
  template <typename Work>
  int number(Work work, bool fallible = false) {
    const auto scripted = platform_.scripted(call_, fallible);
    const int answer = scripted ? static_cast<int>(*scripted) : work();
    call_.answer = std::to_string(answer);
    return answer;
  }

  // Runs the actions that wait for an operation that answers nothing.
  void done() { platform_.scripted(call_, false); }

  void answer(std::string text) { call_.answer = std::move(text); }

  [[nodiscard]] const Call& call() const { return call_; }

 private:
  Platform& platform_;
  Call call_;
};

}  // namespace support
