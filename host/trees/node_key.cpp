#include "host/trees/node_key.h"

#include <array>
#include <bit>
#include <cstdint>

namespace oclacp::host {
namespace {

template <typename Number>
void append_bytes(std::string& text, Number number) {
  const auto bytes = std::bit_cast<std::array<char, sizeof(Number)>>(number);
  text.append(bytes.data(), bytes.size());
}

}  // namespace

std::string node_key(const void* above, const lysc_node* schema, std::span<const std::string_view> keys) {
  std::string identity;
  append_bytes(identity, reinterpret_cast<std::uintptr_t>(above));
  append_bytes(identity, reinterpret_cast<std::uintptr_t>(schema));
  for (const std::string_view key : keys) {
    append_bytes(identity, key.data() == nullptr ? std::string_view::npos : key.size());
    identity.append(key);
  }
  return identity;
}

}  // namespace oclacp::host
