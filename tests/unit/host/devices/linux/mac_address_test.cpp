#include "host/devices/linux/mac_address.h"

#include <gtest/gtest.h>

namespace oclacp::host {
namespace {

TEST(MacAddress, Text_RoundTripsInLowerCase) {
  const std::optional<MacAddress> address = parse_mac_address("02:00:5E:10:2a:fF");
  ASSERT_TRUE(address);
  EXPECT_EQ(to_text(*address), "02:00:5e:10:2a:ff");
}

TEST(MacAddress, TextOfAnotherForm_IsNone) {
  for (const char* text : {"", "02:00:5e:10:2a", "02:00:5e:10:2a:ff:", "02:00:5e:10:2a:f", "02-00-5e-10-2a-ff",
                           "02:00:5e:10:2a:fg", "+2:00:5e:10:2a:ff", "2:000:5e:10:2a:ff", "02:00:5e:10:2a:ff:00"}) {
    EXPECT_FALSE(parse_mac_address(text)) << text;
  }
}

TEST(MacAddress, FirstBit_TellsGroups) {
  EXPECT_TRUE(parse_mac_address("01:80:c2:00:00:02")->is_multicast());
  EXPECT_FALSE(parse_mac_address("02:80:c2:00:00:02")->is_multicast());
  EXPECT_TRUE(MacAddress().is_zero());
  EXPECT_FALSE(parse_mac_address("00:00:00:00:00:01")->is_zero());
}

}  // namespace
}  // namespace oclacp::host
