#include "host/devices/linux/link_signal.h"

#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <sys/socket.h>

#include <cerrno>
#include <system_error>

#include "host/files/system_call.h"

namespace oclacp::host {

LinkSignal::LinkSignal() : socket_(::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC | SOCK_NONBLOCK, NETLINK_ROUTE)) {
  sockaddr_nl address{};
  address.nl_family = AF_NETLINK;
  address.nl_groups = RTMGRP_LINK;
  if (!socket_.is_open() || bind(socket_.number(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0) {
    throw std::system_error(errno, std::generic_category());
  }
}

bool LinkSignal::take() {
  bool has_come = false;
  while (true) {
    char byte = 0;
    if (retry_interrupted([&] { return recv(descriptor(), &byte, sizeof(byte), MSG_TRUNC); }) < 0 && errno != ENOBUFS) {
      return has_come;
    }
    has_come = true;
  }
}

}  // namespace oclacp::host
