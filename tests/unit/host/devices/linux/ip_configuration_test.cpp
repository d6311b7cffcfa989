#include "host/devices/linux/ip_configuration.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/if_addr.h>
#include <linux/neighbour.h>
#include <linux/rtnetlink.h>

#include <cerrno>

#include "tests/unit/host/devices/linux/fake_kernel.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr int kBond = 6;

std::string ipv4(int last) {
  return std::string("\x0a\0\0", 3) + static_cast<char>(last);
}

std::string address(int interface, int last, unsigned char flags = IFA_F_PERMANENT) {
  ifaddrmsg header{};
  header.ifa_family = AF_INET;
  header.ifa_flags = flags;
  header.ifa_index = static_cast<unsigned>(interface);
  return make_message(RTM_NEWADDR, bytes_of(header) + make_attribute(IFA_LOCAL, ipv4(last)));
}

std::string route(int interface, int last, const std::string& more = "", unsigned char protocol = RTPROT_STATIC) {
  rtmsg header{};
  header.rtm_family = AF_INET;
  header.rtm_dst_len = 32;
  header.rtm_protocol = protocol;
  header.rtm_flags = RTNH_F_LINKDOWN | RTNH_F_ONLINK;
  return make_message(RTM_NEWROUTE, bytes_of(header) + make_attribute(RTA_DST, ipv4(last)) +
                                        make_attribute(RTA_OIF, bytes_of(interface)) + more);
}

std::string neighbour(int interface, int last, std::uint16_t state) {
  ndmsg header{};
  header.ndm_family = AF_INET;
  header.ndm_ifindex = interface;
  header.ndm_state = state;
  return make_message(RTM_NEWNEIGH, bytes_of(header) + make_attribute(NDA_DST, ipv4(last)));
}

// What a kernel has, and what it is asked to make.
struct Kernel {
  std::vector<Datagram> addresses;
  std::vector<Datagram> routes;
  std::vector<Datagram> neighbours;
  std::vector<int> outcomes;          // of the requests to make something, in their order; 0 after the last
  std::vector<std::string> requests;  // to make something

  std::vector<Datagram> answer(const nlmsghdr& request) {
    std::vector<Datagram> datagrams;
    switch (request.nlmsg_type) {
      case RTM_GETADDR:
        datagrams = addresses;
        break;
      case RTM_GETROUTE:
        // The second dump is that of IPv6.
        datagrams = static_cast<const rtmsg*>(mnl_nlmsg_get_payload(&request))->rtm_family == AF_INET
                        ? routes
                        : std::vector<Datagram>();
        break;
      case RTM_GETNEIGH:
        datagrams = static_cast<const ndmsg*>(mnl_nlmsg_get_payload(&request))->ndm_flags == 0
                        ? neighbours
                        : std::vector<Datagram>();
        break;
      default:
        requests.emplace_back(reinterpret_cast<const char*>(&request), request.nlmsg_len);
        return {make_outcome(requests.size() <= outcomes.size() ? outcomes[requests.size() - 1] : 0)};
    }
    datagrams.push_back(make_done());
    return datagrams;
  }
};

// Reads what is configured on the bond, and puts it back a number of times; what is missing after each time.
std::vector<std::vector<std::string>> read_and_put_back(Kernel& kernel, int times) {
  const FakeKernel connection([&](const nlmsghdr& request) { return kernel.answer(request); });
  NetlinkSocket socket(connection.socket());
  IpConfiguration configuration(socket, {kBond});
  std::vector<std::vector<std::string>> missing;
  for (int time = 0; time < times; ++time) {
    configuration.put_back(socket);
    missing.push_back(configuration.missing());
  }
  return missing;
}

std::vector<int> types_of(const std::vector<std::string>& requests) {
  std::vector<int> types;
  for (const std::string& request : requests) {
    types.push_back(header_of(request).nlmsg_type);
  }
  return types;
}

TEST(IpConfiguration, WhatIsConfiguredOnTheInterface_IsPutBackInOrder) {
  Kernel kernel;
  const std::string gateway = make_attribute(RTA_GATEWAY, ipv4(254));
  kernel.addresses = {address(kBond, 1), address(7, 2)};
  kernel.routes = {route(kBond, 3, gateway), route(kBond, 4), route(7, 5)};
  kernel.neighbours = {neighbour(kBond, 8, NUD_PERMANENT), neighbour(7, 9, NUD_PERMANENT)};
  EXPECT_THAT(read_and_put_back(kernel, 1), ElementsAre(IsEmpty()));
  ASSERT_THAT(types_of(kernel.requests), ElementsAre(RTM_NEWADDR, RTM_NEWROUTE, RTM_NEWROUTE, RTM_NEWNEIGH));
  // A gateway has to be reachable first.
  EXPECT_THAT(kernel.requests[1], HasSubstr(ipv4(4)));
  EXPECT_THAT(kernel.requests[2], HasSubstr(ipv4(3)));
}

TEST(IpConfiguration, WhatTheKernelMakesItself_IsLeftToIt) {
  Kernel kernel;
  kernel.addresses = {address(kBond, 1, IFA_F_TEMPORARY)};
  kernel.routes = {route(kBond, 3, "", RTPROT_KERNEL), route(kBond, 4, "", RTPROT_RA)};
  kernel.neighbours = {neighbour(kBond, 8, NUD_REACHABLE)};
  read_and_put_back(kernel, 1);
  EXPECT_THAT(kernel.requests, IsEmpty());
}

TEST(IpConfiguration, StateOfARoute_IsNotPutBack) {
  Kernel kernel;
  kernel.routes = {route(kBond, 3, make_attribute(RTA_CACHEINFO, "cache..."))};
  read_and_put_back(kernel, 1);
  ASSERT_EQ(kernel.requests.size(), 1U);
  const auto* header = static_cast<const rtmsg*>(mnl_nlmsg_get_payload(&header_of(kernel.requests[0])));
  EXPECT_EQ(header->rtm_flags, static_cast<unsigned>(RTNH_F_ONLINK));
  EXPECT_THAT(kernel.requests[0], testing::Not(HasSubstr("cache...")));
}

TEST(IpConfiguration, RouteOverSeveralPaths_IsConcernedByEachOfThem) {
  rtnexthop path{};
  path.rtnh_len = sizeof(path);
  path.rtnh_ifindex = kBond;
  path.rtnh_flags = RTNH_F_DEAD;
  Kernel kernel;
  kernel.routes = {route(7, 3, make_attribute(RTA_MULTIPATH, bytes_of(path)))};
  read_and_put_back(kernel, 1);
  ASSERT_EQ(kernel.requests.size(), 1U);
  path.rtnh_flags = 0;
  EXPECT_THAT(kernel.requests[0], HasSubstr(bytes_of(path)));
}

TEST(IpConfiguration, WhatIsThereAlready_IsNotMissing) {
  Kernel kernel;
  kernel.addresses = {address(kBond, 1)};
  kernel.outcomes = {EEXIST};
  EXPECT_THAT(read_and_put_back(kernel, 1), ElementsAre(IsEmpty()));
}

TEST(IpConfiguration, WhatIsRefused_IsTriedAgainAlone) {
  Kernel kernel;
  kernel.addresses = {address(kBond, 1)};
  kernel.routes = {route(kBond, 3)};
  kernel.outcomes = {0, EINVAL};
  EXPECT_THAT(read_and_put_back(kernel, 2),
              ElementsAre(ElementsAre("the route 10.0.0.3/32: Invalid argument"), IsEmpty()));
  EXPECT_THAT(types_of(kernel.requests), ElementsAre(RTM_NEWADDR, RTM_NEWROUTE, RTM_NEWROUTE));
}

TEST(IpConfiguration, RouteOverANexthopObject_IsRefused) {
  Kernel kernel;
  kernel.routes = {route(kBond, 3, make_attribute(RTA_NH_ID, bytes_of(5)))};
  EXPECT_EQ(refusal_of([&] { read_and_put_back(kernel, 1); }),
            "the route 10.0.0.3/32 uses a nexthop object, which would be lost with the link");
}

}  // namespace
}  // namespace oclacp::host
