// A MAC address.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace oclacp::host {

struct MacAddress {
  std::array<std::uint8_t, 6> bytes{};

  [[nodiscard]] bool is_zero() const { return *this == MacAddress(); }
  // Whether it is a group's, broadcast included (IEEE 802).
  [[nodiscard]] bool is_multicast() const { return (bytes[0] & 1) != 0; }

  friend bool operator==(const MacAddress&, const MacAddress&) = default;
};

// Six pairs of lower-case hexadecimal digits with colons between them, as the kernel prints one.
std::string to_text(const MacAddress& address);

// Reads that form, with digits of either case; nothing when the text has another one.
std::optional<MacAddress> parse_mac_address(std::string_view text);

}  // namespace oclacp::host
