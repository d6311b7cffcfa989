#include "host/devices/linux/netlink_socket.h"

#include <linux/netlink.h>
#include <sys/socket.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>

#include "host/base/error.h"
#include "host/devices/linux/netlink_attributes.h"
#include "host/files/system_call.h"

namespace oclacp::host {
namespace {

// The kernel fills up to half of it with the messages of a dump at a time.
constexpr std::size_t kReceiveBuffer = 65536;

[[noreturn]] void fail(const std::string& what) {
  throw Error(ErrorKind::kOperationFailed, "rtnetlink: " + what);
}

[[noreturn]] void fail(const std::string& what, int error) {
  fail(what + ": " + std::strerror(error));
}

// The payload of NLMSG_ERROR, whose attributes follow after the header of the request (NETLINK_CAP_ACK).
std::optional<KernelRefusal> read_outcome(const nlmsghdr& message) {
  const auto* outcome = static_cast<const nlmsgerr*>(mnl_nlmsg_get_payload(&message));
  if (mnl_nlmsg_get_payload_len(&message) < sizeof(*outcome)) {
    fail("an acknowledgement is cut short");
  }
  if (outcome->error == 0) {
    return std::nullopt;
  }
  KernelRefusal refusal = {-outcome->error, std::strerror(-outcome->error)};
  if ((message.nlmsg_flags & NLM_F_ACK_TLVS) != 0) {
    for_each_attribute(message, sizeof(*outcome), [&](const nlattr& attribute) {
      if (mnl_attr_get_type(&attribute) == NLMSGERR_ATTR_MSG) {
        refusal.text = read_string(attribute);
      }
    });
  }
  return refusal;
}

}  // namespace

NetlinkRequest::NetlinkRequest(std::uint16_t type, std::uint16_t flags, std::size_t capacity) : buffer_(capacity) {
  mnl_nlmsg_put_header(buffer_.data());
  message()->nlmsg_type = type;
  message()->nlmsg_flags = NLM_F_REQUEST | flags;
}

void NetlinkRequest::put(std::uint16_t type, const void* value, std::size_t size) {
  if (!mnl_attr_put_check(message(), buffer_.size(), type, size, value)) {
    throw std::length_error("a netlink request exceeds its capacity");
  }
}

nlattr* NetlinkRequest::begin_nest(std::uint16_t type) {
  nlattr* nest = mnl_attr_nest_start_check(message(), buffer_.size(), type);
  if (nest == nullptr) {
    throw std::length_error("a netlink request exceeds its capacity");
  }
  return nest;
}

NetlinkSocket::NetlinkSocket() : NetlinkSocket(::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC, NETLINK_ROUTE)) {
  const int on = 1;
  // Neither is there on old kernels, and both only make complaints better.
  setsockopt(socket_.number(), SOL_NETLINK, NETLINK_EXT_ACK, &on, sizeof(on));
  setsockopt(socket_.number(), SOL_NETLINK, NETLINK_CAP_ACK, &on, sizeof(on));
  sockaddr_nl kernel{};
  kernel.nl_family = AF_NETLINK;
  // Connected, it takes messages of the kernel only.
  if (connect(socket_.number(), reinterpret_cast<const sockaddr*>(&kernel), sizeof(kernel)) != 0) {
    fail("no connection", errno);
  }
}

NetlinkSocket::NetlinkSocket(int descriptor) : socket_(descriptor), buffer_(kReceiveBuffer) {
  if (!socket_.is_open()) {
    fail("no socket", errno);
  }
  const timeval wait = {kNetlinkWait.count(), 0};
  if (setsockopt(socket_.number(), SOL_SOCKET, SO_RCVTIMEO, &wait, sizeof(wait)) != 0) {
    fail("no time limit", errno);
  }
}

bool NetlinkSocket::dump(NetlinkRequest& request, const Visitor& visit) {
  send(request, NLM_F_DUMP);
  bool is_of_one_moment = true;
  receive_answer([&](const nlmsghdr& message) {
    if ((message.nlmsg_flags & NLM_F_DUMP_INTR) != 0) {
      is_of_one_moment = false;
    }
    if (message.nlmsg_type == NLMSG_ERROR) {
      if (const std::optional<KernelRefusal> refusal = read_outcome(message)) {
        fail("the kernel refuses to list what it has: " + refusal->text);
      }
    } else if (message.nlmsg_type != NLMSG_DONE && message.nlmsg_type >= NLMSG_MIN_TYPE) {
      visit(message);
    }
    return message.nlmsg_type != NLMSG_DONE;
  });
  return is_of_one_moment;
}

std::optional<KernelRefusal> NetlinkSocket::execute(NetlinkRequest& request) {
  send(request, NLM_F_ACK);
  std::optional<KernelRefusal> refusal;
  receive_answer([&](const nlmsghdr& message) {
    if (message.nlmsg_type == NLMSG_ERROR) {
      refusal = read_outcome(message);
    }
    return message.nlmsg_type != NLMSG_ERROR;
  });
  return refusal;
}

void NetlinkSocket::send(NetlinkRequest& request, std::uint16_t flags) {
  nlmsghdr* message = request.message();
  message->nlmsg_flags |= flags;
  message->nlmsg_seq = ++sequence_;
  if (retry_interrupted([&] { return ::send(socket_.number(), message, message->nlmsg_len, MSG_NOSIGNAL); }) < 0) {
    fail("a request cannot be sent", errno);
  }
}

std::string_view NetlinkSocket::receive() {
  const ssize_t size =
      retry_interrupted([&] { return recv(socket_.number(), buffer_.data(), buffer_.size(), MSG_TRUNC); });
  if (size > static_cast<ssize_t>(buffer_.size())) {
    fail("an answer of " + std::to_string(size) + " bytes is too long");
  }
  if (size == 0) {
    fail("the answer ends early");
  }
  if (size < 0) {
    if (errno == EAGAIN || errno == EWOULDBLOCK) {
      fail("no answer within " + std::to_string(kNetlinkWait.count()) + " seconds");
    }
    fail("no answer", errno);
  }
  return {buffer_.data(), static_cast<std::size_t>(size)};
}

void NetlinkSocket::receive_answer(const std::function<bool(const nlmsghdr&)>& visit) {
  while (true) {
    std::string_view answer = receive();
    while (const nlmsghdr* message = take_message(answer)) {
      // What answers an earlier request, of which nobody read to the end, is skipped.
      if (message->nlmsg_seq == sequence_ && !visit(*message)) {
        return;
      }
    }
    if (!answer.empty()) {
      fail("an answer is cut short");
    }
  }
}

void repeat_until_unchanged(const std::function<bool()>& read) {
  constexpr int kMaxReads = 10;
  for (int count = 0; count < kMaxReads; ++count) {
    if (read()) {
      return;
    }
  }
  fail("what is read changed during each of " + std::to_string(kMaxReads) + " reads");
}

}  // namespace oclacp::host
