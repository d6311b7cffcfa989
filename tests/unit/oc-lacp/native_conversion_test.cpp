// Which interfaces are shown, and which requests keep some leaves from being reported.
#include "native_conversion.h"

#include <vector>

#include "unit/module_test.h"

namespace {

class IsMapped : public support::ModuleTest {};

TEST_F(IsMapped, InterfaceName_IsMappedWithLacpUnlessASubInterface) {
  platform.lacp_interfaces = {"Bundle-Ether1", "Bundle-Ether1.100", "GigabitEthernet0/0/0/0"};
  EXPECT_TRUE(oclacp::is_mapped("Bundle-Ether1"));
  EXPECT_TRUE(oclacp::is_mapped("GigabitEthernet0/0/0/0"));
  EXPECT_FALSE(oclacp::is_mapped("Bundle-Ether2"));
  EXPECT_FALSE(oclacp::is_mapped("Bundle-Ether1.100"));
  EXPECT_FALSE(oclacp::is_mapped(nullptr));
}

TEST_F(IsMapped, InterfaceName_IsLookedUpUnlessASubInterface) {
  EXPECT_FALSE(oclacp::is_mapped("GigabitEthernet0/0/0/0"));
  EXPECT_FALSE(oclacp::is_mapped("Bundle-Ether1.100"));
  EXPECT_EQ(platform.count("get_intf_type_if_lacp_configured"), 1U);
  EXPECT_EQ(platform.count("get_intf_type_if_lacp_configured", "\"GigabitEthernet0/0/0/0\""), 1U);
}

TEST_F(IsMapped, NonZeroAnswer_IsYes) {
  platform.script("get_intf_type_if_lacp_configured", 0, 0x80000000);
  EXPECT_TRUE(oclacp::is_mapped("Bundle-Ether1"));
}

// A byte of the request descriptor and its bits that are tested.
struct Tested {
  std::size_t offset;
  unsigned bits;
};

const std::vector<Tested>& tested_bytes() {
  static const std::vector<Tested> tested = {{0x584, 0x0f}, {0x5b0, 0x03}, {0x5c8, 0x03}, {0x5d0, 0x07},
                                             {0x60c, 0xff}, {0x60d, 0xff}, {0x60e, 0x03}, {0x610, 0x03},
                                             {0x634, 0x0f}, {0x638, 0x07}, {0x8fa, 0x01}};
  return tested;
}

unsigned tested_bits_at(std::size_t offset) {
  for (const Tested& tested : tested_bytes()) {
    if (tested.offset == offset) return tested.bits;
  }
  return 0;
}

constexpr std::size_t kModeOffset = 0x618;

bool suppresses(std::size_t offset, unsigned bit, std::uint32_t mode) {
  yfw_request_descriptor descriptor{};
  descriptor.option_mode = mode;
  reinterpret_cast<std::uint8_t*>(&descriptor)[offset] = static_cast<std::uint8_t>(1U << bit);
  return oclacp::options_suppress(descriptor);
}

TEST(Options, ModeTwo_SuppressesForTheTestedBitsOnly) {
  for (std::size_t offset = 0; offset < sizeof(yfw_request_descriptor); ++offset) {
    if (offset >= kModeOffset && offset < kModeOffset + sizeof(std::uint32_t)) continue;
    for (unsigned bit = 0; bit < 8; ++bit) {
      const bool tested = (tested_bits_at(offset) >> bit & 1U) != 0;
      ASSERT_EQ(suppresses(offset, bit, 2), tested) << "byte 0x" << std::hex << offset << ", bit " << bit;
    }
  }
}

TEST(Options, OtherMode_SuppressesNothing) {
  for (const Tested& tested : tested_bytes()) {
    for (const std::uint32_t mode : {0U, 1U, 3U, 4U, 0x102U, 0x80000002U}) {
      EXPECT_FALSE(suppresses(tested.offset, 0, mode)) << "byte 0x" << std::hex << tested.offset << ", mode " << mode;
    }
  }
}

TEST(Options, ModeTwoWithoutBits_SuppressesNothing) {
  yfw_request_descriptor descriptor{};
  descriptor.option_mode = YFW_OPTION_MODE_SUPPRESS;
  EXPECT_FALSE(oclacp::options_suppress(descriptor));
}

TEST(ListSlot, Always_IsTheAddressOfTheCurrentListNode) {
  support::Platform platform;
  EXPECT_EQ(oclacp::list_slot(platform.ctx()), reinterpret_cast<std::uintptr_t>(&platform.state().current_list_node));
}

}  // namespace
