#include "host/devices/linux/link_signal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <optional>
#include <string>

#include "tests/unit/host/devices/linux/fake_kernel.h"

namespace oclacp::host {
namespace {

class LinkSignalTest : public testing::Test {
 protected:
  static constexpr std::chrono::hours kNever{1};

  LinkSignalTest() {
    std::array<int, 2> ends{};
    EXPECT_EQ(socketpair(AF_UNIX, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0, ends.data()), 0);
    kernel_.emplace(ends[0]);
    descriptor_ = ends[1];
    signal_.emplace(ends[1], LookTimes{.after_message = kNever, .steady = kNever});
  }

  void send(const std::string& message) const {
    EXPECT_EQ(::send(kernel_->number(), message.data(), message.size(), 0), static_cast<ssize_t>(message.size()));
  }
  [[nodiscard]] bool is_readable() const { return is_readable_within(std::chrono::milliseconds(0)); }
  [[nodiscard]] bool is_readable_within(std::chrono::milliseconds time) const {
    pollfd awaited = {signal_->descriptor(), POLLIN, 0};
    return poll(&awaited, 1, static_cast<int>(time.count())) == 1;
  }
  // A signal of other times, of the same socket.
  void set_times(const LookTimes& times) { signal_.emplace(dup(descriptor_), times); }

  std::optional<FileDescriptor> kernel_;
  int descriptor_ = -1;  // the signal's
  std::optional<LinkSignal> signal_;
};

TEST_F(LinkSignalTest, NothingCame_IsNoChange) {
  EXPECT_FALSE(is_readable());
  EXPECT_FALSE(signal_->take());
}

TEST_F(LinkSignalTest, MessagesOfAKernel_AreOneChange) {
  for (const std::string& message : messages_of(recorded("pair/links"))) {
    send(message);
  }
  EXPECT_TRUE(is_readable());
  EXPECT_TRUE(signal_->take());
  EXPECT_FALSE(is_readable());
  EXPECT_FALSE(signal_->take());
}

TEST_F(LinkSignalTest, MessageThatIsNone_IsAChangeToo) {
  send("x");
  EXPECT_TRUE(signal_->take());
}

TEST_F(LinkSignalTest, AfterAMessage_AsksForFurtherLooks) {
  set_times({.after_message = std::chrono::milliseconds(5), .count_after_message = 2, .steady = kNever});
  EXPECT_FALSE(is_readable_within(std::chrono::milliseconds(50)));
  send("x");
  EXPECT_TRUE(signal_->take());
  for (int look = 0; look < 2; ++look) {
    EXPECT_TRUE(is_readable_within(std::chrono::seconds(10)));
    EXPECT_TRUE(signal_->take());
  }
  EXPECT_FALSE(is_readable_within(std::chrono::milliseconds(50)));
}

TEST_F(LinkSignalTest, WithoutMessages_AsksForALookFromTimeToTime) {
  set_times({.after_message = kNever, .steady = std::chrono::milliseconds(5)});
  for (int look = 0; look < 3; ++look) {
    EXPECT_TRUE(is_readable_within(std::chrono::seconds(10)));
    EXPECT_TRUE(signal_->take());
  }
}

TEST(LinkSignal, OfThisNamespace_IsHadByAnyone) {
  LinkSignal signal;
  EXPECT_GE(signal.descriptor(), 0);
  EXPECT_NO_THROW(signal.take());
}

}  // namespace
}  // namespace oclacp::host
