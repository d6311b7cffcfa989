#include "host/devices/linux/mac_address.h"

#include <charconv>
#include <system_error>

namespace oclacp::host {

std::string to_text(const MacAddress& address) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text;
  for (const std::uint8_t byte : address.bytes) {
    if (!text.empty()) {
      text += ':';
    }
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
  }
  return text;
}

std::optional<MacAddress> parse_mac_address(std::string_view text) {
  MacAddress address;
  if (text.size() != 3 * address.bytes.size() - 1) {
    return std::nullopt;
  }
  const char* at = text.data();
  for (std::uint8_t& byte : address.bytes) {
    const auto [end, error] = std::from_chars(at, at + 2, byte, 16);
    const bool is_last = end == text.data() + text.size();
    if (error != std::errc() || end != at + 2 || (!is_last && *end != ':')) {
      return std::nullopt;
    }
    at = end + 1;
  }
  return address;
}

}  // namespace oclacp::host
