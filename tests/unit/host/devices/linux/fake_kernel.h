// The other end of a rtnetlink socket in tests.
#pragma once

#include <linux/netlink.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "host/devices/linux/netlink_attributes.h"
#include "tests/support/locations.h"

namespace oclacp::host {

// Netlink messages as the bytes of one datagram.
using Datagram = std::string;

inline std::string recorded(const std::string& file) {
  std::ifstream stream(std::string(location::kSources) + "/tests/data/linux/" + file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

// The messages that stand one after the other in some bytes. libmnl reads numbers where they stand, so that the bytes
// have to be aligned, as those of a std::string on the heap are.
inline std::vector<std::string> messages_of(const std::string& bytes) {
  std::vector<std::string> messages;
  std::string_view left = bytes;
  while (const nlmsghdr* message = take_message(left)) {
    messages.emplace_back(reinterpret_cast<const char*>(message), NLMSG_ALIGN(message->nlmsg_len));
  }
  return messages;
}

inline const nlmsghdr& header_of(const std::string& message) {
  return *reinterpret_cast<const nlmsghdr*>(message.data());
}

// A message with any payload.
inline std::string make_message(std::uint16_t type, const std::string& payload, std::uint16_t flags = 0) {
  nlmsghdr header{};
  header.nlmsg_len = static_cast<std::uint32_t>(NLMSG_HDRLEN + payload.size());
  header.nlmsg_type = type;
  header.nlmsg_flags = flags;
  std::string message(reinterpret_cast<const char*>(&header), sizeof(header));
  message += payload;
  message.resize(NLMSG_ALIGN(message.size()));
  return message;
}

template <typename Value>
std::string bytes_of(const Value& value) {
  return {reinterpret_cast<const char*>(&value), sizeof(value)};
}

inline std::string make_attribute(std::uint16_t type, const std::string& payload) {
  nlattr header{};
  header.nla_len = static_cast<std::uint16_t>(NLA_HDRLEN + payload.size());
  header.nla_type = type;
  std::string attribute = bytes_of(header) + payload;
  attribute.resize(NLA_ALIGN(attribute.size()));
  return attribute;
}

// `error`: an errno value, 0 for an acknowledgement.
inline std::string make_outcome(int error, const std::string& text = "") {
  nlmsgerr outcome{};
  outcome.error = -error;
  return text.empty() ? make_message(NLMSG_ERROR, bytes_of(outcome))
                      : make_message(NLMSG_ERROR,
                                     bytes_of(outcome) + make_attribute(NLMSGERR_ATTR_MSG, text + std::string(1, '\0')),
                                     NLM_F_ACK_TLVS);
}

inline std::string make_done() {
  return make_message(NLMSG_DONE, bytes_of(int{0}));
}

// Answers each request with datagrams, until the other end is closed. Messages in them become answers to the request.
class FakeKernel {
 public:
  using Answer = std::function<std::vector<Datagram>(const nlmsghdr& request)>;

  explicit FakeKernel(Answer answer) : answer_(std::move(answer)) {
    if (socketpair(AF_UNIX, SOCK_SEQPACKET, 0, ends_.data()) == 0) {
      thread_ = std::thread([this] { run(); });
    }
  }
  // The socket of the other end is gone by then.
  ~FakeKernel() {
    thread_.join();
    close(ends_[1]);
  }
  FakeKernel(const FakeKernel&) = delete;
  FakeKernel& operator=(const FakeKernel&) = delete;
  FakeKernel(FakeKernel&&) = delete;
  FakeKernel& operator=(FakeKernel&&) = delete;

  // For a NetlinkSocket, which closes it.
  [[nodiscard]] int socket() const { return ends_[0]; }

 private:
  void run() {
    alignas(nlmsghdr) std::array<char, 65536> request{};
    while (recv(ends_[1], request.data(), request.size(), 0) > 0) {
      const auto& header = *reinterpret_cast<const nlmsghdr*>(request.data());
      for (Datagram& datagram : answer_(header)) {
        number(datagram, header.nlmsg_seq);
        send(ends_[1], datagram.data(), datagram.size(), MSG_NOSIGNAL);
      }
    }
  }

  // Gives all messages of a datagram that are whole the number of the request that they answer.
  static void number(Datagram& datagram, std::uint32_t sequence) {
    std::string_view left = datagram;
    while (const nlmsghdr* message = take_message(left)) {
      const_cast<nlmsghdr*>(message)->nlmsg_seq = sequence;
    }
  }

  Answer answer_;
  std::array<int, 2> ends_{};
  std::thread thread_;
};

}  // namespace oclacp::host
