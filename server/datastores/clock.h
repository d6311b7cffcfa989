// Time, as the datastores ask for it.
#pragma once

#include <chrono>
#include <string>

namespace oclacp::server {

// The two kinds of time, and what tells one run of the machine from the next. Any thread.
class Clock {
 public:
  using Wall = std::chrono::system_clock::time_point;
  using Steady = std::chrono::steady_clock::time_point;

  Clock() = default;
  virtual ~Clock() = default;
  Clock(const Clock&) = delete;
  Clock& operator=(const Clock&) = delete;
  Clock(Clock&&) = delete;
  Clock& operator=(Clock&&) = delete;

  [[nodiscard]] virtual Wall wall() const { return std::chrono::system_clock::now(); }
  [[nodiscard]] virtual Steady steady() const { return std::chrono::steady_clock::now(); }
  // Another one after each start of the machine (random(4), boot_id); empty when the system does not tell.
  [[nodiscard]] virtual std::string boot_id() const;
};

// RFC 3339, in UTC and whole seconds: "2026-01-31T12:00:00Z".
std::string to_text(Clock::Wall time);

}  // namespace oclacp::server
