#include "host/devices/linux/netlink_socket.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/rtnetlink.h>

#include <cerrno>

#include "tests/unit/host/devices/linux/fake_kernel.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

const std::string kFirst = make_message(RTM_NEWLINK, "first...");
const std::string kSecond = make_message(RTM_NEWLINK, "second..");

struct Dumped {
  std::vector<std::string> payloads;
  bool is_of_one_moment = false;
};

Dumped dump(const std::vector<Datagram>& datagrams) {
  const FakeKernel kernel([&](const nlmsghdr&) { return datagrams; });
  NetlinkSocket socket(kernel.socket());
  NetlinkRequest request(RTM_GETLINK, 0);
  Dumped dumped;
  dumped.is_of_one_moment = socket.dump(request, [&](const nlmsghdr& message) {
    dumped.payloads.emplace_back(static_cast<const char*>(mnl_nlmsg_get_payload(&message)),
                                 mnl_nlmsg_get_payload_len(&message));
  });
  return dumped;
}

std::optional<KernelRefusal> execute(const std::vector<Datagram>& datagrams) {
  const FakeKernel kernel([&](const nlmsghdr&) { return datagrams; });
  NetlinkSocket socket(kernel.socket());
  NetlinkRequest request(RTM_NEWLINK, 0);
  return socket.execute(request);
}

TEST(NetlinkSocket, Dump_VisitsTheMessagesOfAllDatagrams) {
  for (const std::vector<Datagram>& datagrams :
       {std::vector<Datagram>{kFirst + kSecond + make_done()}, {kFirst, kSecond, make_done()}}) {
    const Dumped dumped = dump(datagrams);
    EXPECT_THAT(dumped.payloads, ElementsAre("first...", "second.."));
    EXPECT_TRUE(dumped.is_of_one_moment);
  }
}

TEST(NetlinkSocket, DumpThatChangedMeanwhile_IsReadToItsEnd) {
  const Dumped dumped =
      dump({make_message(RTM_NEWLINK, "first...", NLM_F_DUMP_INTR), kSecond, make_message(NLMSG_DONE, bytes_of(0))});
  EXPECT_THAT(dumped.payloads, ElementsAre("first...", "second.."));
  EXPECT_FALSE(dumped.is_of_one_moment);
}

TEST(NetlinkSocket, ChangeToldWithTheLastMessage_Counts) {
  EXPECT_FALSE(dump({kFirst, make_message(NLMSG_DONE, bytes_of(0), NLM_F_DUMP_INTR)}).is_of_one_moment);
}

TEST(NetlinkSocket, AnswersToAnEarlierRequest_AreSkipped) {
  const FakeKernel kernel([](const nlmsghdr& request) {
    return std::vector<Datagram>{request.nlmsg_seq == 1 ? kFirst + make_done() + kSecond + make_done()
                                                        : kSecond + make_done()};
  });
  NetlinkSocket socket(kernel.socket());
  for (const char* expected : {"first...", "second.."}) {
    NetlinkRequest request(RTM_GETLINK, 0);
    std::vector<std::string> payloads;
    static_cast<void>(socket.dump(request, [&](const nlmsghdr& message) {
      payloads.emplace_back(static_cast<const char*>(mnl_nlmsg_get_payload(&message)), 8);
    }));
    EXPECT_THAT(payloads, ElementsAre(expected));
  }
}

TEST(NetlinkSocket, RefusedDump_IsToldInTheKernelsWords) {
  EXPECT_THAT(refusal_of([] { dump({make_outcome(EOPNOTSUPP)}); }), HasSubstr("Operation not supported"));
  EXPECT_THAT(refusal_of([] { dump({make_outcome(EINVAL, "Unknown filter")}); }), HasSubstr("Unknown filter"));
}

TEST(NetlinkSocket, AnswerCutShort_IsRefused) {
  const std::string whole = kFirst + kSecond + make_done();
  for (size_t size = 1; size < whole.size(); ++size) {
    const std::string error = refusal_of([&] { dump({whole.substr(0, size), ""}); });
    EXPECT_THAT(error, testing::AnyOf(HasSubstr("cut short"), HasSubstr("ends early"))) << size;
  }
}

TEST(NetlinkSocket, MessageLongerThanNumbersWithASign_IsRefused) {
  std::string message = kFirst;
  reinterpret_cast<nlmsghdr*>(message.data())->nlmsg_len = 0xfffffff0;
  EXPECT_THAT(refusal_of([&] { dump({message}); }), HasSubstr("cut short"));
}

TEST(NetlinkSocket, Execute_ReturnsWhyTheKernelRefuses) {
  EXPECT_FALSE(execute({make_outcome(0)}));
  const std::optional<KernelRefusal> refusal = execute({make_outcome(EPERM)});
  ASSERT_TRUE(refusal);
  EXPECT_EQ(refusal->error, EPERM);
  EXPECT_EQ(refusal->text, "Operation not permitted");
  EXPECT_EQ(execute({make_outcome(EPERM, "the bond is up")})->text, "the bond is up");
}

TEST(NetlinkSocket, AcknowledgementCutShort_IsRefused) {
  EXPECT_THAT(refusal_of([] { execute({make_message(NLMSG_ERROR, "")}); }), HasSubstr("cut short"));
}

TEST(NetlinkRequest, BeyondItsCapacity_Throws) {
  NetlinkRequest request(RTM_NEWLINK, 0, 64);
  EXPECT_THROW(request.put_string(1, std::string(64, 'x')), std::length_error);
}

TEST(RepeatUntilUnchanged, EndlessChange_IsRefused) {
  int reads = 0;
  EXPECT_THAT(refusal_of([&] {
                repeat_until_unchanged([&] {
                  ++reads;
                  return false;
                });
              }),
              HasSubstr("changed during each of 10 reads"));
  EXPECT_EQ(reads, 10);
}

}  // namespace
}  // namespace oclacp::host
