#include "host/devices/linux/link_signal.h"

#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <system_error>

#include "host/files/system_call.h"

namespace oclacp::host {
namespace {

void require(bool is_done) {
  if (!is_done) {
    throw std::system_error(errno, std::generic_category());
  }
}

}  // namespace

LinkSignal::LinkSignal() : LinkSignal(socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC | SOCK_NONBLOCK, NETLINK_ROUTE)) {
  sockaddr_nl address{};
  address.nl_family = AF_NETLINK;
  address.nl_groups = RTMGRP_LINK;
  require(bind(socket_.number(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0);
}

LinkSignal::LinkSignal(int descriptor, const LookTimes& times)
    : socket_(descriptor),
      timer_(timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK)),
      both_(epoll_create1(EPOLL_CLOEXEC)),
      times_(times) {
  require(socket_.is_open() && timer_.is_open() && both_.is_open());
  watch(socket_);
  watch(timer_);
  set_timer(times_.steady);
}

void LinkSignal::watch(const FileDescriptor& descriptor) {
  epoll_event event{};
  event.events = EPOLLIN;
  require(epoll_ctl(both_.number(), EPOLL_CTL_ADD, descriptor.number(), &event) == 0);
}

void LinkSignal::set_timer(std::chrono::milliseconds time) {
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time);
  itimerspec setting{};
  setting.it_value.tv_sec = seconds.count();
  setting.it_value.tv_nsec = std::chrono::nanoseconds(time - seconds).count();
  require(timerfd_settime(timer_.number(), 0, &setting, nullptr) == 0);
}

bool LinkSignal::take_messages() {
  bool has_come = false;
  while (true) {
    char byte = 0;
    if (retry_interrupted([&] { return recv(socket_.number(), &byte, sizeof(byte), MSG_TRUNC); }) < 0 &&
        errno != ENOBUFS) {
      return has_come;
    }
    has_come = true;
  }
}

bool LinkSignal::take_time() {
  uint64_t expirations = 0;
  return retry_interrupted([&] { return read(timer_.number(), &expirations, sizeof(expirations)); }) > 0;
}

bool LinkSignal::take() {
  const bool is_time = take_time();
  const bool has_come = take_messages();
  if (has_come) {
    looks_left_ = times_.count_after_message;
  } else if (is_time && looks_left_ > 0) {
    --looks_left_;
  }
  if (has_come || is_time) {
    set_timer(looks_left_ > 0 ? times_.after_message : times_.steady);
  }
  return has_come || is_time;
}

}  // namespace oclacp::host
