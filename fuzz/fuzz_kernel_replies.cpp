// Any bytes as what a kernel says of its links: the first byte chooses netlink messages, one after the other, or the
// text about a bond.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <vector>

#include "host/devices/linux/bonding_text.h"
#include "host/devices/linux/link_messages.h"
#include "host/devices/linux/netlink_attributes.h"

namespace {

using oclacp::host::BondingText;
using oclacp::host::Link;

void read_messages(std::string_view bytes) {
  // Where a message comes from is aligned as its header wants it.
  std::vector<std::uint64_t> aligned(bytes.size() / sizeof(std::uint64_t) + 1);
  std::memcpy(aligned.data(), bytes.data(), bytes.size());
  std::string_view left(reinterpret_cast<const char*>(aligned.data()), bytes.size());
  while (const nlmsghdr* message = oclacp::host::take_message(left)) {
    const std::optional<Link> link = oclacp::host::parse_link(*message);
    // A link has a name, and it ends where the kernel's text does.
    if (link && (link->name.empty() || link->name.find('\0') != std::string::npos)) std::abort();
    if (link && link->bond && link->kind != "bond") std::abort();
    static_cast<void>(oclacp::host::parse_lacp_statistics(*message));
  }
}

void read_text(std::string_view bytes) {
  const BondingText text = oclacp::host::parse_bonding_text(bytes);
  // What is there stands in the text.
  for (const BondingText::Port& port : text.ports) {
    if (bytes.find(port.name) == std::string_view::npos) std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string_view input(reinterpret_cast<const char*>(data) + 1, size - 1);
  if (data[0] % 2 == 0) {
    read_messages(input);
  } else {
    read_text(input);
  }
  return 0;
}
