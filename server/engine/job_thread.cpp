#include "server/engine/job_thread.h"

#include <poll.h>
#include <sys/eventfd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <exception>
#include <new>
#include <string>
#include <utility>

namespace oclacp::server {
namespace {

using host::Error;
using host::ErrorKind;

// In whole milliseconds, as poll(2) has it, and never too early; negative for no end.
int milliseconds_until(const std::optional<ThreadState::Steady>& deadline) {
  if (!deadline) {
    return -1;
  }
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(*deadline - std::chrono::steady_clock::now()).count();
  return static_cast<int>(std::clamp<decltype(left)>(left, 0, INT_MAX));
}

bool is_over(const std::optional<ThreadState::Steady>& deadline) {
  return deadline && std::chrono::steady_clock::now() >= *deadline;
}

void do_job(const Job& job, ThreadState& state) {
  if (is_over(job.deadline)) {
    job.refuse(Error(ErrorKind::kResourceDenied, "the request was not begun within its time"));
    return;
  }
  try {
    job.work(state);
  } catch (const Error& error) {
    job.refuse(error);
  } catch (const std::bad_alloc&) {
    job.refuse(Error(ErrorKind::kOutOfMemory, "no memory is left for the request"));
  } catch (const std::exception& error) {
    job.refuse(Error(ErrorKind::kInternal, std::string("the request: ") + error.what()));
  }
}

}  // namespace

JobThread::JobThread(const std::function<std::unique_ptr<ThreadState>()>& make, size_t most_waiting)
    : most_waiting_(most_waiting), wake_(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {
  if (!wake_.is_open()) {
    throw host::system_error(errno, "the engine");
  }
  thread_ = std::thread([this, &make] { run(make); });
  std::unique_lock guard(mutex_);
  started_.wait(guard, [this] { return is_started_; });
  if (failure_) {
    guard.unlock();
    thread_.join();
    std::rethrow_exception(failure_);
  }
}

JobThread::~JobThread() {
  stop();
}

JobThread::Ticket JobThread::post(Job job) {
  Ticket ticket = 0;
  {
    const std::lock_guard guard(mutex_);
    if (is_ending_) {
      throw Error(ErrorKind::kOperationFailed, "the server ends");
    }
    if (waiting_.size() >= most_waiting_) {
      throw Error(ErrorKind::kResourceDenied, "too many requests wait, " + std::to_string(waiting_.size()));
    }
    ticket = ++last_ticket_;
    waiting_.push_back({ticket, std::move(job)});
  }
  eventfd_write(wake_.number(), 1);
  return ticket;
}

bool JobThread::cancel(Ticket ticket) {
  const std::lock_guard guard(mutex_);
  return std::erase_if(waiting_, [&](const Waiting& waiting) { return waiting.ticket == ticket; }) != 0;
}

size_t JobThread::waiting() const {
  const std::lock_guard guard(mutex_);
  return waiting_.size();
}

void JobThread::stop() {
  std::call_once(stopped_, [this] {
    {
      const std::lock_guard guard(mutex_);
      is_ending_ = true;
    }
    eventfd_write(wake_.number(), 1);
    thread_.join();
  });
}

void JobThread::run(const std::function<std::unique_ptr<ThreadState>()>& make) {
  std::unique_ptr<ThreadState> state;
  std::exception_ptr failure;
  try {
    state = make();
  } catch (...) {
    failure = std::current_exception();
  }
  {
    const std::lock_guard guard(mutex_);
    failure_ = failure;
    is_started_ = true;
  }
  started_.notify_one();
  if (state != nullptr) {
    serve(*state);
    refuse_all();
  }
}

// A signal or deadline waits for one job at most, however many there are.
void JobThread::serve(ThreadState& state) {
  while (true) {
    wait(state);
    std::array<pollfd, 1> signal = {pollfd{state.descriptor(), POLLIN, 0}};
    if (signal[0].fd >= 0 && poll(signal.data(), signal.size(), 0) > 0) {
      state.take_signal();
    }
    if (is_over(state.deadline())) {
      state.meet_deadline();
    }
    {
      const std::lock_guard guard(mutex_);
      if (is_ending_) {
        return;
      }
    }
    if (const std::optional<Job> job = take_job()) {
      do_job(*job, state);
    }
  }
}

void JobThread::wait(ThreadState& state) const {
  if (waiting() != 0) {
    return;
  }
  std::array<pollfd, 2> awaited = {pollfd{wake_.number(), POLLIN, 0}, pollfd{state.descriptor(), POLLIN, 0}};
  static_cast<void>(poll(awaited.data(), awaited.size(), milliseconds_until(state.deadline())));
  eventfd_t count = 0;
  eventfd_read(wake_.number(), &count);
}

std::optional<Job> JobThread::take_job() {
  const std::lock_guard guard(mutex_);
  if (waiting_.empty()) {
    return std::nullopt;
  }
  Job job = std::move(waiting_.front().job);
  waiting_.pop_front();
  return job;
}

void JobThread::refuse_all() {
  while (const std::optional<Job> job = take_job()) {
    job->refuse(Error(ErrorKind::kOperationFailed, "the server ends"));
  }
}

}  // namespace oclacp::server
