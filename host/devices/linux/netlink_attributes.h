// Messages and their attributes. libmnl's own iteration macros do not compile as C++.
#pragma once

#include <libmnl/libmnl.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "host/devices/linux/mac_address.h"

namespace oclacp::host {

// Takes a message from the front of bytes that are aligned as its header has to be; null when no whole one stands
// there. libmnl's check of it (mnl_nlmsg_ok()) takes a length of 2 GiB and more for a negative one.
inline const nlmsghdr* take_message(std::string_view& bytes) {
  const auto* message = reinterpret_cast<const nlmsghdr*>(bytes.data());
  if (bytes.size() < sizeof(*message) || message->nlmsg_len < sizeof(*message) || message->nlmsg_len > bytes.size()) {
    return nullptr;
  }
  bytes.remove_prefix(std::min<std::size_t>(bytes.size(), NLMSG_ALIGN(message->nlmsg_len)));
  return message;
}

// Calls `visit` with each attribute of a message after its header of `header_size` bytes; stops at one that does not
// fit into the message.
template <typename Visit>
void for_each_attribute(const nlmsghdr& message, std::size_t header_size, Visit visit) {
  const auto forward = [](const nlattr* attribute, void* data) {
    (*static_cast<Visit*>(data))(*attribute);
    return MNL_CB_OK;
  };
  mnl_attr_parse(&message, static_cast<unsigned>(header_size), forward, &visit);
}

// The same for the attributes inside of one.
template <typename Visit>
void for_each_attribute(const nlattr& nest, Visit visit) {
  const auto forward = [](const nlattr* attribute, void* data) {
    (*static_cast<Visit*>(data))(*attribute);
    return MNL_CB_OK;
  };
  mnl_attr_parse_nested(&nest, forward, &visit);
}

// The value of an attribute; nothing when it is of another length.
template <typename Number>
std::optional<Number> read_number(const nlattr& attribute) {
  static_assert(std::is_integral_v<Number>);
  Number number{};
  if (mnl_attr_get_payload_len(&attribute) != sizeof(number)) {
    return std::nullopt;
  }
  std::memcpy(&number, mnl_attr_get_payload(&attribute), sizeof(number));
  return number;
}

inline std::optional<MacAddress> read_mac_address(const nlattr& attribute) {
  MacAddress address;
  if (mnl_attr_get_payload_len(&attribute) != address.bytes.size()) {
    return std::nullopt;
  }
  std::memcpy(address.bytes.data(), mnl_attr_get_payload(&attribute), address.bytes.size());
  return address;
}

// Up to the terminator, which may be missing.
inline std::string read_string(const nlattr& attribute) {
  const auto* text = static_cast<const char*>(mnl_attr_get_payload(&attribute));
  return {text, strnlen(text, mnl_attr_get_payload_len(&attribute))};
}

}  // namespace oclacp::host
