// A conversation with the kernel over rtnetlink (RFC 3549; man rtnetlink).
#pragma once

#include <libmnl/libmnl.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/files/file_descriptor.h"

namespace oclacp::host {

// How long an answer is waited for. The kernel gives one at once, unless another process holds its lock.
inline constexpr std::chrono::seconds kNetlinkWait(10);

// A request that is put together piece by piece.
class NetlinkRequest {
 public:
  // `flags`: NLM_F_... beyond NLM_F_REQUEST. `capacity`: the most bytes that it may come to, headers included.
  NetlinkRequest(std::uint16_t type, std::uint16_t flags, std::size_t capacity = 1024);

  // Appends a header of the type's own, zeroed; attributes follow it.
  template <typename Header>
  Header& put_header() {
    return *static_cast<Header*>(mnl_nlmsg_put_extra_header(message(), sizeof(Header)));
  }
  // Throws std::length_error when the capacity is exceeded, as the others.
  void put(std::uint16_t type, const void* value, std::size_t size);
  template <typename Number>
  void put_number(std::uint16_t type, Number value) {
    put(type, &value, sizeof(value));
  }
  void put_string(std::uint16_t type, const std::string& value) { put(type, value.c_str(), value.size() + 1); }
  // What is put until the end of the nest stands inside of it.
  nlattr* begin_nest(std::uint16_t type);
  void end_nest(nlattr* nest) { mnl_attr_nest_end(message(), nest); }

  [[nodiscard]] nlmsghdr* message() { return reinterpret_cast<nlmsghdr*>(buffer_.data()); }

 private:
  std::vector<char> buffer_;
};

// Why the kernel did not do what it was asked to.
struct KernelRefusal {
  int error;         // an errno value
  std::string text;  // the kernel's own words when it has some, otherwise those for the errno value
};

// Used by one thread at a time.
class NetlinkSocket {
 public:
  // Connects to the kernel in the network namespace of the calling thread, in which the socket stays. Throws Error.
  NetlinkSocket();
  // Takes over a connected socket that keeps messages apart, with something at its other end that answers as the
  // kernel.
  explicit NetlinkSocket(int descriptor);

  using Visitor = std::function<void(const nlmsghdr&)>;

  // Sends a request for a dump and calls `visit` with each message of the answer, once it has been checked. Returns
  // whether the answer is of one moment: when what is dumped changes meanwhile, the kernel says that something may be
  // missing or there twice (NLM_F_DUMP_INTR). Throws Error when the answer does not come, or is not an answer.
  [[nodiscard]] bool dump(NetlinkRequest& request, const Visitor& visit);

  // Sends a request and waits until the kernel has carried it out. Nothing when it has; otherwise why it has not.
  // Throws Error when it cannot be known.
  std::optional<KernelRefusal> execute(NetlinkRequest& request);

 private:
  void send(NetlinkRequest& request, std::uint16_t flags);
  std::string_view receive();
  // Calls `visit` with each message that answers the last request until it returns false.
  void receive_answer(const std::function<bool(const nlmsghdr&)>& visit);

  FileDescriptor socket_;
  std::uint32_t sequence_ = 0;
  std::vector<char> buffer_;
};

// Calls `read` until it returns true, which says that what it read is of one moment, as dump() tells. Throws Error when
// it is not, ten times in a row.
void repeat_until_unchanged(const std::function<bool()>& read);

}  // namespace oclacp::host
