#include "server/engine/engine.h"

#include <sys/eventfd.h>

#include <atomic>
#include <mutex>

#include "tests/unit/host/host_test.h"

namespace oclacp::server {
namespace {

using host::Error;
using host::ErrorKind;
using host::refusal_of;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

// What a test and the state on the engine's thread share.
struct Shared {
  host::FileDescriptor signal{eventfd(0, EFD_NONBLOCK)};
  std::atomic<int> signals = 0;
  std::atomic<int> deadlines = 0;
  std::atomic<bool> is_destroyed = false;
  std::thread::id thread;
  std::atomic<bool> has_deadline = false;
};

class CountingState final : public ThreadState {
 public:
  explicit CountingState(Shared& shared) : shared_(shared) { shared.thread = std::this_thread::get_id(); }
  ~CountingState() override { shared_.is_destroyed = shared_.thread == std::this_thread::get_id(); }
  CountingState(const CountingState&) = delete;
  CountingState& operator=(const CountingState&) = delete;
  CountingState(CountingState&&) = delete;
  CountingState& operator=(CountingState&&) = delete;

  int descriptor() noexcept override { return shared_.signal.number(); }
  void take_signal() noexcept override {
    eventfd_t count = 0;
    eventfd_read(shared_.signal.number(), &count);
    ++shared_.signals;
  }
  std::optional<Steady> deadline() noexcept override {
    return shared_.has_deadline ? std::optional(steady_clock::now()) : std::nullopt;
  }
  void meet_deadline() noexcept override {
    shared_.has_deadline = false;
    ++shared_.deadlines;
  }

 private:
  Shared& shared_;
};

class EngineTest : public testing::Test {
 protected:
  using Tested = Engine<CountingState>;

  // Keeps the engine's thread until go().
  void block() {
    std::promise<void> begun;
    engine_.post(
        [this, &begun](CountingState&) {
          begun.set_value();
          gate_.get_future().wait();
        },
        [](const Error&) {});
    begun.get_future().wait();
  }
  void go() { gate_.set_value(); }

  static constexpr size_t kMostWaiting = 8;
  Shared shared_;
  std::promise<void> gate_;
  Tested engine_{[this] { return std::make_unique<CountingState>(shared_); }, {kMostWaiting}};
};

TEST_F(EngineTest, Jobs_AreDoneInTheirOrderOnOneThread) {
  std::string order;
  for (const char character : std::string("abc")) {
    engine_.post([&order, character](CountingState&) { order += character; }, [](const Error&) {});
  }
  EXPECT_EQ(engine_.call([&](CountingState&) { return order; }), "abc");
  EXPECT_EQ(engine_.call([](CountingState&) { return std::this_thread::get_id(); }), shared_.thread);
  EXPECT_NE(shared_.thread, std::this_thread::get_id());
}

TEST_F(EngineTest, FullQueue_RefusesAtOnce) {
  block();
  std::promise<void> last_done;
  for (size_t count = 1; count < kMostWaiting; ++count) {
    engine_.post([](CountingState&) {}, [](const Error&) {});
  }
  engine_.post([&](CountingState&) { last_done.set_value(); }, [](const Error&) {});
  EXPECT_EQ(engine_.waiting(), kMostWaiting);
  try {
    engine_.post([](CountingState&) {}, [](const Error&) {});
    ADD_FAILURE() << "was taken";
  } catch (const Error& error) {
    EXPECT_EQ(error.kind(), ErrorKind::kResourceDenied);
  }
  go();
  last_done.get_future().wait();
  EXPECT_EQ(engine_.waiting(), 0U);
}

TEST_F(EngineTest, JobBehindItsDeadline_IsRefusedAndNotDone) {
  block();
  std::promise<std::string> refused;
  std::atomic<bool> is_done = false;
  engine_.post([&](CountingState&) { is_done = true; }, [&](const Error& error) { refused.set_value(error.what()); },
               steady_clock::now());
  go();
  EXPECT_EQ(refused.get_future().get(), "the request was not begun within its time");
  EXPECT_FALSE(is_done);
}

TEST_F(EngineTest, CancelledJob_IsNeitherDoneNorRefused) {
  block();
  std::atomic<int> heard = 0;
  const JobThread::Ticket ticket = engine_.post([&](CountingState&) { ++heard; }, [&](const Error&) { ++heard; });
  EXPECT_TRUE(engine_.cancel(ticket));
  EXPECT_FALSE(engine_.cancel(ticket));
  go();
  engine_.call([](CountingState&) {});
  EXPECT_EQ(heard, 0);
}

TEST_F(EngineTest, WhatAJobThrows_IsItsRefusal) {
  EXPECT_EQ(refusal_of([&] {
              engine_.call([](CountingState&) { throw Error(ErrorKind::kDataMissing, "/a: is not there"); });
            }),
            "/a: is not there");
  EXPECT_THAT(refusal_of([&] { engine_.call([](CountingState&) { throw std::out_of_range("x"); }); }),
              testing::HasSubstr("x"));
  EXPECT_EQ(engine_.call([](CountingState&) { return 1; }), 1);
}

TEST_F(EngineTest, SignalAndDeadline_AreMetWhileNobodyAsks) {
  shared_.has_deadline = true;
  eventfd_write(shared_.signal.number(), 1);
  const auto end = steady_clock::now() + std::chrono::seconds(10);
  while ((shared_.signals == 0 || shared_.deadlines == 0) && steady_clock::now() < end) {
    std::this_thread::sleep_for(milliseconds(1));
  }
  EXPECT_EQ(shared_.signals, 1);
  EXPECT_EQ(shared_.deadlines, 1);
}

TEST_F(EngineTest, Stop_EndsTheJobRefusesTheOthersAndDestroysTheStateOnItsThread) {
  block();
  std::promise<std::string> refused;
  engine_.post([](CountingState&) {}, [&](const Error& error) { refused.set_value(error.what()); });
  std::thread stopping([this] { engine_.stop(); });
  std::this_thread::sleep_for(milliseconds(20));
  go();
  stopping.join();
  EXPECT_EQ(refused.get_future().get(), "the server ends");
  EXPECT_TRUE(shared_.is_destroyed);
  EXPECT_EQ(refusal_of([&] { engine_.call([](CountingState&) {}); }), "the server ends");
}

TEST(Engine, StateThatCannotBeMade_IsThrownByTheConstructor) {
  EXPECT_EQ(refusal_of([] {
              const Engine<CountingState> engine(
                  []() -> std::unique_ptr<CountingState> { throw Error(ErrorKind::kOperationFailed, "no device"); },
                  {});
            }),
            "no device");
}

TEST(Engine, ManyThreads_AreServedOrRefused) {
  Shared shared;
  Engine<CountingState> engine([&] { return std::make_unique<CountingState>(shared); }, {4});
  size_t done = 0;  // by the engine's thread alone
  std::atomic<size_t> refused = 0;
  constexpr int kThreads = 8;
  std::vector<std::thread> threads;
  threads.reserve(kThreads);
  for (int index = 0; index < kThreads; ++index) {
    threads.emplace_back([&] {
      for (int count = 0; count < 200; ++count) {
        try {
          engine.call([&](CountingState&) { ++done; });
        } catch (const Error&) {
          ++refused;
        }
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  engine.stop();
  EXPECT_EQ(done + refused, 1600U);
  EXPECT_GT(done, 0U);
}

}  // namespace
}  // namespace oclacp::server
