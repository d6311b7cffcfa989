// Reads of links from recorded answers.
#pragma once

#include <linux/rtnetlink.h>

#include <string>
#include <vector>

#include "host/devices/linux/link_snapshot.h"
#include "tests/support/locations.h"
#include "tests/unit/host/devices/linux/fake_kernel.h"

namespace oclacp::host {

// The datagrams that a recording answers a request with.
inline std::vector<Datagram> replay(const std::string& folder, const nlmsghdr& request) {
  std::vector<Datagram> datagrams =
      messages_of(recorded(folder + (request.nlmsg_type == RTM_GETLINK ? "/links" : "/statistics")));
  return datagrams;
}

inline std::string bonding_folder(const std::string& folder) {
  return std::string(location::kSources) + "/tests/data/linux/" + folder + "/bonding";
}

inline LinkSnapshot replayed_links(const std::string& folder) {
  const FakeKernel kernel([&](const nlmsghdr& request) { return replay(folder, request); });
  NetlinkSocket socket(kernel.socket());
  return read_links(socket, bonding_folder(folder));
}

}  // namespace oclacp::host
