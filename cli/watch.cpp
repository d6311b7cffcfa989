#include "cli/watch.h"

#include <chrono>
#include <csignal>
#include <ctime>
#include <optional>
#include <string>

#include "cli/command.h"
#include "cli/terminal.h"
#include "host/present/answer_table.h"

namespace oclacp::cli {
namespace {

using Clock = std::chrono::steady_clock;

// An answer and when it was read.
struct Sample {
  host::Answer answer;
  Clock::time_point time;
};

// Blocks the signals that end a watch, so that they are taken between two tables only.
class EndSignals {
 public:
  EndSignals() {
    sigemptyset(&signals_);
    sigaddset(&signals_, SIGINT);
    sigaddset(&signals_, SIGTERM);
    sigprocmask(SIG_BLOCK, &signals_, nullptr);
  }

  // Waits, and returns whether one of them came.
  [[nodiscard]] bool come_within(double seconds) const {
    const auto whole = static_cast<std::time_t>(seconds);
    const timespec time = {whole, static_cast<long>((seconds - static_cast<double>(whole)) * 1e9)};
    return sigtimedwait(&signals_, nullptr, &time) > 0;
  }

 private:
  sigset_t signals_{};
};

void show(const host::Translator& translator, const Sample& now, const Sample* before) {
  constexpr const char* kClear = "\x1b[H\x1b[2J";
  std::optional<host::EarlierAnswer> earlier;
  if (before != nullptr) {
    earlier = {before->answer.data.top(), std::chrono::duration<double>(now.time - before->time).count()};
  }
  const std::string table = host::answer_table(translator.openconfig_context(), now.answer.data.top(), table_layout(),
                                               earlier ? &*earlier : nullptr);
  print(std::string(is_terminal() ? kClear : before == nullptr ? "" : "\n") + table);
  // Behind the table, or a cleared terminal would not show it.
  warn_omitted_leaves(now.answer);
}

// Nothing when it is refused, which is reported.
std::optional<Sample> try_again(const std::function<host::Answer()>& read) {
  try {
    return Sample{read(), Clock::now()};
  } catch (const host::Error& error) {
    tell(error.what());
    return std::nullopt;
  }
}

}  // namespace

void watch(const host::Translator& translator, double seconds, const std::function<host::Answer()>& read) {
  const EndSignals signals;
  Sample shown = {read(), Clock::now()};
  show(translator, shown, nullptr);
  while (!signals.come_within(seconds)) {
    if (std::optional<Sample> now = try_again(read)) {
      show(translator, *now, &shown);
      shown = std::move(*now);
    }
  }
}

}  // namespace oclacp::cli
