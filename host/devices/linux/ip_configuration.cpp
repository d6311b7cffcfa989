#include "host/devices/linux/ip_configuration.h"

#include <arpa/inet.h>
#include <linux/if_addr.h>
#include <linux/neighbour.h>
#include <linux/rtnetlink.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "host/base/error.h"
#include "host/devices/linux/netlink_attributes.h"

namespace oclacp::host {
namespace {

// The header that follows the netlink header; null when the message is too short for one.
template <typename Header>
const Header* header_of(const nlmsghdr& message) {
  return mnl_nlmsg_get_payload_len(&message) < sizeof(Header)
             ? nullptr
             : static_cast<const Header*>(mnl_nlmsg_get_payload(&message));
}

// The attributes of a message by type; null for those that it lacks.
template <std::size_t Count>
class Attributes {
 public:
  Attributes(const nlmsghdr& message, std::size_t header_size) {
    for_each_attribute(message, header_size, [&](const nlattr& attribute) {
      if (mnl_attr_get_type(&attribute) < Count) {
        attributes_[mnl_attr_get_type(&attribute)] = &attribute;
      }
    });
  }

  const nlattr* operator[](std::size_t type) const { return attributes_[type]; }

 private:
  std::array<const nlattr*, Count> attributes_{};
};

// "10.0.0.1"; "default" without an attribute.
std::string address_text(int family, const nlattr* attribute) {
  const std::size_t size = family == AF_INET ? sizeof(in_addr) : sizeof(in6_addr);
  std::array<char, INET6_ADDRSTRLEN> text{};
  if (attribute == nullptr || mnl_attr_get_payload_len(attribute) != size) {
    return "default";
  }
  return inet_ntop(family, mnl_attr_get_payload(attribute), text.data(), text.size());
}

// A request that makes what the kernel described with a message. `skipped`: a type of attribute that only describes.
template <typename Header>
NetlinkRequest copy_of(const nlmsghdr& message, std::uint16_t flags, std::uint16_t skipped) {
  NetlinkRequest request(message.nlmsg_type, flags, message.nlmsg_len + NLMSG_HDRLEN);
  request.put_header<Header>() = *header_of<Header>(message);
  for_each_attribute(message, sizeof(Header), [&](const nlattr& attribute) {
    if (mnl_attr_get_type(&attribute) != skipped) {
      request.put(attribute.nla_type, mnl_attr_get_payload(&attribute), mnl_attr_get_payload_len(&attribute));
    }
  });
  return request;
}

// Calls `visit` with each next hop of a route over several paths, in the request or message that holds it.
template <typename Visit>
void for_each_nexthop(const nlattr& multipath, Visit visit) {
  auto* at = static_cast<char*>(mnl_attr_get_payload(&multipath));
  std::size_t left = mnl_attr_get_payload_len(&multipath);
  while (left >= sizeof(rtnexthop)) {
    auto* nexthop = reinterpret_cast<rtnexthop*>(at);
    const std::size_t size = NLMSG_ALIGN(nexthop->rtnh_len);
    if (nexthop->rtnh_len < sizeof(rtnexthop) || nexthop->rtnh_len > left) {
      return;
    }
    visit(*nexthop);
    at += std::min(size, left);
    left -= std::min(size, left);
  }
}

// What the kernel says of a path's state is not part of its configuration.
constexpr unsigned kConfiguredNexthopFlags = RTNH_F_ONLINK | RTNH_F_PERVASIVE;

NetlinkRequest copy_of_route(const nlmsghdr& message) {
  NetlinkRequest request = copy_of<rtmsg>(message, NLM_F_CREATE | NLM_F_APPEND, RTA_CACHEINFO);
  auto* header = static_cast<rtmsg*>(mnl_nlmsg_get_payload(request.message()));
  header->rtm_flags &= kConfiguredNexthopFlags;
  for_each_attribute(*request.message(), sizeof(rtmsg), [](const nlattr& attribute) {
    if (mnl_attr_get_type(&attribute) == RTA_MULTIPATH) {
      for_each_nexthop(attribute, [](rtnexthop& nexthop) { nexthop.rtnh_flags &= kConfiguredNexthopFlags; });
    }
  });
  return request;
}

bool is_configured(const rtmsg& route) {
  return (route.rtm_flags & RTM_F_CLONED) == 0 && route.rtm_protocol != RTPROT_KERNEL &&
         route.rtm_protocol != RTPROT_RA && route.rtm_protocol != RTPROT_REDIRECT;
}

// Dumps with one request for each family, until what comes is of one moment. `forget` drops what was read before.
template <typename Header>
void dump_all(NetlinkSocket& socket, std::uint16_t type, const Header& header, const NetlinkSocket::Visitor& visit,
              const std::function<void()>& forget) {
  repeat_until_unchanged([&] {
    forget();
    NetlinkRequest request(type, 0);
    request.put_header<Header>() = header;
    return socket.dump(request, visit);
  });
}

}  // namespace

IpConfiguration::IpConfiguration(NetlinkSocket& socket, std::unordered_set<int> interfaces)
    : interfaces_(std::move(interfaces)) {
  read_addresses(socket);
  read_routes(socket, AF_INET);
  read_routes(socket, AF_INET6);
  read_neighbours(socket, 0);
  read_neighbours(socket, NTF_PROXY);
}

void IpConfiguration::drop_from(std::size_t count) {
  while (items_.size() > count) {
    items_.pop_back();
  }
}

void IpConfiguration::read_addresses(NetlinkSocket& socket) {
  const std::size_t before = items_.size();
  const auto visit = [&](const nlmsghdr& message) {
    const auto* header = header_of<ifaddrmsg>(message);
    if (message.nlmsg_type != RTM_NEWADDR || header == nullptr ||
        !interfaces_.contains(static_cast<int>(header->ifa_index)) || (header->ifa_flags & IFA_F_TEMPORARY) != 0) {
      return;
    }
    const Attributes<IFA_MAX + 1> attributes(message, sizeof(*header));
    const nlattr* address = attributes[IFA_LOCAL] == nullptr ? attributes[IFA_ADDRESS] : attributes[IFA_LOCAL];
    items_.push_back({copy_of<ifaddrmsg>(message, NLM_F_CREATE | NLM_F_EXCL, IFA_UNSPEC),
                      "the address " + address_text(header->ifa_family, address), ""});
  };
  dump_all(socket, RTM_GETADDR, ifaddrmsg(), visit, [&] { drop_from(before); });
}

void IpConfiguration::read_routes(NetlinkSocket& socket, unsigned char family) {
  std::vector<Item> direct;
  std::vector<Item> over_gateways;
  const auto visit = [&](const nlmsghdr& message) {
    const auto* header = header_of<rtmsg>(message);
    if (message.nlmsg_type != RTM_NEWROUTE || header == nullptr || !is_configured(*header)) {
      return;
    }
    const Attributes<RTA_MAX + 1> attributes(message, sizeof(*header));
    bool is_concerned =
        attributes[RTA_OIF] != nullptr && interfaces_.contains(read_number<int>(*attributes[RTA_OIF]).value_or(0));
    if (attributes[RTA_MULTIPATH] != nullptr) {
      for_each_nexthop(*attributes[RTA_MULTIPATH],
                       [&](const rtnexthop& nexthop) { is_concerned |= interfaces_.contains(nexthop.rtnh_ifindex); });
    }
    if (!is_concerned) {
      return;
    }
    const std::string description = "the route " + address_text(family, attributes[RTA_DST]) +
                                    (attributes[RTA_DST] == nullptr ? "" : "/" + std::to_string(header->rtm_dst_len));
    if (attributes[RTA_NH_ID] != nullptr) {
      throw Error(ErrorKind::kOperationNotSupported,
                  description + " uses a nexthop object, which would be lost with the link");
    }
    const bool is_direct =
        attributes[RTA_GATEWAY] == nullptr && attributes[RTA_VIA] == nullptr && attributes[RTA_MULTIPATH] == nullptr;
    (is_direct ? direct : over_gateways).push_back({copy_of_route(message), description, ""});
  };
  rtmsg header{};
  header.rtm_family = family;
  dump_all(socket, RTM_GETROUTE, header, visit, [&] {
    direct.clear();
    over_gateways.clear();
  });
  // A gateway has to be reachable by the time that a route over it is made.
  for (std::vector<Item>* items : {&direct, &over_gateways}) {
    std::move(items->begin(), items->end(), std::back_inserter(items_));
  }
}

void IpConfiguration::read_neighbours(NetlinkSocket& socket, unsigned char flags) {
  const std::size_t before = items_.size();
  const auto visit = [&](const nlmsghdr& message) {
    const auto* header = header_of<ndmsg>(message);
    if (message.nlmsg_type != RTM_NEWNEIGH || header == nullptr || !interfaces_.contains(header->ndm_ifindex) ||
        (header->ndm_family != AF_INET && header->ndm_family != AF_INET6) ||
        ((header->ndm_state & NUD_PERMANENT) == 0 && (header->ndm_flags & NTF_PROXY) == 0)) {
      return;
    }
    const Attributes<NDA_MAX + 1> attributes(message, sizeof(*header));
    items_.push_back({copy_of<ndmsg>(message, NLM_F_CREATE | NLM_F_EXCL, NDA_CACHEINFO),
                      "the neighbour " + address_text(header->ndm_family, attributes[NDA_DST]), ""});
  };
  ndmsg header{};
  header.ndm_flags = flags;
  dump_all(socket, RTM_GETNEIGH, header, visit, [&] { drop_from(before); });
}

void IpConfiguration::put_back(NetlinkSocket& socket) {
  std::vector<Item> missing;
  for (Item& item : items_) {
    const std::optional<KernelRefusal> refusal = socket.execute(item.request);
    if (refusal && refusal->error != EEXIST) {
      item.reason = refusal->text;
      missing.push_back(std::move(item));
    }
  }
  items_ = std::move(missing);
}

std::vector<std::string> IpConfiguration::missing() const {
  std::vector<std::string> texts;
  for (const Item& item : items_) {
    texts.push_back(item.description + (item.reason.empty() ? "" : ": " + item.reason));
  }
  return texts;
}

}  // namespace oclacp::host
