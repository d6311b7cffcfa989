#include "host/devices/linux/link_signal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>

#include <array>
#include <optional>
#include <string>

#include "tests/unit/host/devices/linux/fake_kernel.h"

namespace oclacp::host {
namespace {

class LinkSignalTest : public testing::Test {
 protected:
  LinkSignalTest() {
    std::array<int, 2> ends{};
    EXPECT_EQ(socketpair(AF_UNIX, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0, ends.data()), 0);
    kernel_.emplace(ends[0]);
    signal_.emplace(ends[1]);
  }

  void send(const std::string& message) const {
    EXPECT_EQ(::send(kernel_->number(), message.data(), message.size(), 0), static_cast<ssize_t>(message.size()));
  }
  [[nodiscard]] bool is_readable() const {
    pollfd awaited = {signal_->descriptor(), POLLIN, 0};
    return poll(&awaited, 1, 0) == 1;
  }

  std::optional<FileDescriptor> kernel_;
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

TEST(LinkSignal, OfThisNamespace_IsHadByAnyone) {
  LinkSignal signal;
  EXPECT_GE(signal.descriptor(), 0);
  EXPECT_NO_THROW(signal.take());
}

}  // namespace
}  // namespace oclacp::host
