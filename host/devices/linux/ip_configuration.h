// What is configured of IP on interfaces, and lost when they go down.
#pragma once

#include <cstddef>
#include <string>
#include <unordered_set>
#include <vector>

#include "host/devices/linux/netlink_socket.h"

namespace oclacp::host {

// The addresses, routes, permanent neighbours and proxies of interfaces as they were read, to be restored. What the
// kernel makes itself, or learns again, is not kept: its own routes, those of router advertisements, temporary
// addresses.
class IpConfiguration {
 public:
  // Reads those of the interfaces with the indexes `interfaces`, in the network namespace of `socket`. Throws Error,
  // also when a route uses a nexthop object (ip nexthop), since such an object is lost with the interface too.
  IpConfiguration(NetlinkSocket& socket, std::unordered_set<int> interfaces);

  // Puts back what is not there; what is there already is left alone. Called again, it tries what did not succeed: an
  // IPv6 address can be a route's source only once it is known to be nobody else's. Throws Error when the kernel does
  // not answer.
  void put_back(NetlinkSocket& socket);

  // What has not been restored so far, and why: "the route 10.0.0.0/8: Network is unreachable".
  [[nodiscard]] std::vector<std::string> missing() const;

 private:
  struct Item {
    NetlinkRequest request;
    std::string description;
    std::string reason;  // why it was refused the last time
  };

  // Drops the items after the first `count`.
  void drop_from(std::size_t count);
  void read_addresses(NetlinkSocket& socket);
  void read_routes(NetlinkSocket& socket, unsigned char family);
  void read_neighbours(NetlinkSocket& socket, unsigned char flags);

  std::unordered_set<int> interfaces_;
  std::vector<Item> items_;  // in the order in which they are restored
};

}  // namespace oclacp::host
