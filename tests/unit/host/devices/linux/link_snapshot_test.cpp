#include "host/devices/linux/link_snapshot.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/unit/host/devices/linux/replayed_links.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::vector<std::string> names_of(const LinkSnapshot& snapshot) {
  std::vector<std::string> names;
  for (const Link& link : snapshot.links) {
    names.push_back(link.name);
  }
  return names;
}

// What a read asks the kernel for.
struct Conversation {
  std::vector<int> requests;
  std::string refusal;
  std::vector<std::string> names;
};

// `answer`: takes the request and how many there were before it.
Conversation converse(const std::string& texts,
                      const std::function<std::vector<Datagram>(const nlmsghdr&, size_t)>& answer) {
  Conversation conversation;
  const FakeKernel kernel([&](const nlmsghdr& request) {
    conversation.requests.push_back(request.nlmsg_type);
    return answer(request, conversation.requests.size() - 1);
  });
  NetlinkSocket socket(kernel.socket());
  conversation.refusal = refusal_of([&] { conversation.names = names_of(read_links(socket, texts)); });
  return conversation;
}

TEST(LinkSnapshot, Recorded_HoldsLinksStatisticsAndTexts) {
  const LinkSnapshot snapshot = replayed_links("pair");
  EXPECT_THAT(names_of(snapshot), ElementsAre("lo", "a00", "a01", "bond0", "down0", "backup0", "bond0.5", "dummy0"));
  EXPECT_EQ(snapshot.statistics.size(), 2U);
  EXPECT_EQ(snapshot.texts.size(), 2U);
  EXPECT_EQ(snapshot.texts.at(snapshot.find("bond0")->index).ports.size(), 2U);
  EXPECT_EQ(snapshot.find("bond1"), nullptr);
}

TEST(LinkSnapshot, OneDumpOfLinksAndOneOfStatistics_WhateverTheNumberOfBonds) {
  const Conversation conversation =
      converse(bonding_folder("many"), [](const nlmsghdr& request, size_t) { return replay("many", request); });
  EXPECT_EQ(conversation.refusal, "accepted");
  EXPECT_EQ(conversation.names.size(), 1U + 64 * 3);
  EXPECT_THAT(conversation.requests, ElementsAre(RTM_GETLINK, RTM_GETSTATS));
}

TEST(LinkSnapshot, WithoutBonds_AsksForLinksOnly) {
  const Conversation conversation =
      converse("/nowhere", [](const nlmsghdr& request, size_t) { return replay("none", request); });
  EXPECT_THAT(conversation.names, ElementsAre("lo"));
  EXPECT_THAT(conversation.requests, ElementsAre(RTM_GETLINK));
}

TEST(LinkSnapshot, MessagesInAnotherOrder_AreTheSame) {
  const Conversation conversation = converse(bonding_folder("pair"), [](const nlmsghdr& request, size_t) {
    std::vector<Datagram> datagrams = replay("pair", request);
    std::reverse(datagrams.begin(), datagrams.end() - 1);
    return datagrams;
  });
  EXPECT_EQ(conversation.refusal, "accepted");
  EXPECT_THAT(conversation.names,
              testing::UnorderedElementsAre("lo", "a00", "a01", "bond0", "down0", "backup0", "bond0.5", "dummy0"));
}

TEST(LinkSnapshot, InterruptedDump_IsReadAgain) {
  for (const size_t interrupted : {0U, 1U}) {
    const Conversation conversation = converse(bonding_folder("pair"), [&](const nlmsghdr& request, size_t number) {
      std::vector<Datagram> datagrams = replay("pair", request);
      if (number == interrupted) {
        reinterpret_cast<nlmsghdr*>(datagrams[1].data())->nlmsg_flags |= NLM_F_DUMP_INTR;
      }
      return datagrams;
    });
    EXPECT_EQ(conversation.refusal, "accepted");
    EXPECT_EQ(conversation.names.size(), 8U);
    EXPECT_EQ(conversation.requests.size(), 3U + interrupted);
  }
}

TEST(LinkSnapshot, EveryDumpInterrupted_IsRefused) {
  const Conversation conversation = converse(bonding_folder("pair"), [](const nlmsghdr& request, size_t) {
    std::vector<Datagram> datagrams = replay("pair", request);
    reinterpret_cast<nlmsghdr*>(datagrams[1].data())->nlmsg_flags |= NLM_F_DUMP_INTR;
    return datagrams;
  });
  EXPECT_THAT(conversation.refusal, HasSubstr("changed during each of 10 reads"));
  EXPECT_EQ(conversation.requests.size(), 10U);
}

TEST(LinkSnapshot, AnswerCutShort_IsRefused) {
  const Conversation conversation = converse(bonding_folder("pair"), [](const nlmsghdr& request, size_t) {
    std::vector<Datagram> datagrams = replay("pair", request);
    datagrams[1].resize(datagrams[1].size() - 4);
    return datagrams;
  });
  EXPECT_THAT(conversation.refusal, HasSubstr("cut short"));
}

TEST(LinkSnapshot, BondWithoutItsText_BeginsTheReadAnew) {
  // The second read finds a namespace from which the bonds are gone.
  const TemporaryFolder folder;
  const Conversation conversation = converse(folder.path(), [](const nlmsghdr& request, size_t number) {
    return replay(number < 2 ? "pair" : "none", request);
  });
  EXPECT_EQ(conversation.refusal, "accepted");
  EXPECT_THAT(conversation.names, ElementsAre("lo"));
  EXPECT_EQ(conversation.requests.size(), 3U);
}

TEST(LinkSnapshot, WithoutAnyTexts_HasLinksAndStatistics) {
  const FakeKernel kernel([](const nlmsghdr& request) { return replay("pair", request); });
  NetlinkSocket socket(kernel.socket());
  const LinkSnapshot snapshot = read_links(socket, "/nowhere");
  EXPECT_FALSE(snapshot.has_texts);
  EXPECT_EQ(snapshot.links.size(), 8U);
  EXPECT_EQ(snapshot.statistics.size(), 2U);
}

}  // namespace
}  // namespace oclacp::host
