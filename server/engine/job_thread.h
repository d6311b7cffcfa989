// A thread that does jobs one after the other, for many who wait for none of them.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

#include "host/base/error.h"
#include "host/files/file_descriptor.h"

namespace oclacp::server {

// What the jobs work with. It is made, used and destroyed by the thread alone.
class ThreadState {
 public:
  using Steady = std::chrono::steady_clock::time_point;

  ThreadState() = default;
  virtual ~ThreadState() = default;
  ThreadState(const ThreadState&) = delete;
  ThreadState& operator=(const ThreadState&) = delete;
  ThreadState(ThreadState&&) = delete;
  ThreadState& operator=(ThreadState&&) = delete;

  // What the thread waits for beside jobs. None of these throws.
  // A descriptor that becomes readable (poll(2)), for take_signal(); negative for none.
  virtual int descriptor() noexcept { return -1; }
  virtual void take_signal() noexcept {}
  // When meet_deadline() is to be called.
  virtual std::optional<Steady> deadline() noexcept { return std::nullopt; }
  virtual void meet_deadline() noexcept {}
};

// One job, done or refused exactly once. Both are called on the thread, but for a job that is cancelled, of which
// nothing is heard.
struct Job {
  std::function<void(ThreadState&)> work;
  // Why it was not done: what `work` threw, its time was over before it began, or the thread ends. Does not throw.
  std::function<void(const host::Error&)> refuse;
  std::optional<ThreadState::Steady> deadline = std::nullopt;  // until when it is to begin
};

class JobThread {
 public:
  // Any number that tells a job from the others.
  using Ticket = uint64_t;

  // Makes the state on the new thread and waits for it; throws what `make` throws. `most_waiting`: how many jobs may
  // wait beside the one that is done.
  JobThread(const std::function<std::unique_ptr<ThreadState>()>& make, size_t most_waiting);
  // As stop().
  ~JobThread();
  JobThread(const JobThread&) = delete;
  JobThread& operator=(const JobThread&) = delete;
  JobThread(JobThread&&) = delete;
  JobThread& operator=(JobThread&&) = delete;

  // All may be called on any thread.

  // Never waits. Throws host::Error with kResourceDenied when too many jobs wait, and kOperationFailed after stop();
  // the job is not refused besides.
  Ticket post(Job job);
  // Whether the job will not be done, because it had not begun.
  bool cancel(Ticket ticket);
  [[nodiscard]] size_t waiting() const;

  // Lets the job that is done come to its end, refuses those that wait, and destroys the state. Not from a job.
  void stop();

 private:
  struct Waiting {
    Ticket ticket;
    Job job;
  };

  void run(const std::function<std::unique_ptr<ThreadState>()>& make);
  void serve(ThreadState& state);
  void wait(ThreadState& state) const;
  std::optional<Job> take_job();
  void refuse_all();

  size_t most_waiting_;
  host::FileDescriptor wake_;
  mutable std::mutex mutex_;
  std::condition_variable started_;
  std::deque<Waiting> waiting_;
  Ticket last_ticket_ = 0;
  bool is_ending_ = false;
  bool is_started_ = false;
  std::exception_ptr failure_;  // of `make`
  std::once_flag stopped_;
  std::thread thread_;  // the last, since it uses the others
};

}  // namespace oclacp::server
