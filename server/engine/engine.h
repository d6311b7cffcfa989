// The thread that owns the translator, and with it a device and its datastores.
#pragma once

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

#include "server/engine/job_thread.h"

namespace oclacp::server {

struct EngineLimits {
  size_t waiting = 256;  // requests
};

// A JobThread whose state is a `State`. What a job returns is a value that the state keeps nothing of: no libyang tree
// and no snapshot leaves the thread.
template <typename State>
class Engine {
 public:
  using Make = std::function<std::unique_ptr<State>()>;

  // As JobThread.
  Engine(const Make& make, const EngineLimits& limits)
      : thread_([&make]() -> std::unique_ptr<ThreadState> { return make(); }, limits.waiting) {}

  // As JobThread::post(). One of the two functions is called, on the engine's thread, unless the job is cancelled.
  JobThread::Ticket post(std::function<void(State&)> work, std::function<void(const host::Error&)> refuse,
                         std::optional<ThreadState::Steady> deadline = std::nullopt) {
    return thread_.post({[work = std::move(work)](ThreadState& state) { work(static_cast<State&>(state)); },
                         std::move(refuse), deadline});
  }

  // Waits for the result; throws what post() throws and what the job was refused for. Not from a job.
  template <typename Work>
  auto call(Work work, std::optional<ThreadState::Steady> deadline = std::nullopt) {
    using Result = std::invoke_result_t<Work, State&>;
    static_assert(!std::is_pointer_v<Result> && !std::is_reference_v<Result>, "values cross, and nothing else");
    const auto promise = std::make_shared<std::promise<Result>>();
    std::future<Result> result = promise->get_future();
    post(
        [promise, work = std::move(work)](State& state) {
          if constexpr (std::is_void_v<Result>) {
            work(state);
            promise->set_value();
          } else {
            promise->set_value(work(state));
          }
        },
        [promise](const host::Error& error) { promise->set_exception(std::make_exception_ptr(error)); }, deadline);
    return result.get();
  }

  bool cancel(JobThread::Ticket ticket) { return thread_.cancel(ticket); }
  [[nodiscard]] size_t waiting() const { return thread_.waiting(); }
  void stop() { thread_.stop(); }

 private:
  JobThread thread_;
};

}  // namespace oclacp::server
