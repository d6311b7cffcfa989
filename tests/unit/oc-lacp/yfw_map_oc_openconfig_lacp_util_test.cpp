#include <string>

#include "oclacp/interface_helpers.h"
#include "oclacp/native_oper.h"
#include "unit/module_test.h"

namespace {

using support::Interface;
using testing::ElementsAre;
using testing::IsEmpty;

class EntryForm : public support::ModuleTest {
 protected:
  std::string converted(const char* name) {
    convert_oc_ifname_ifentry(buffer, name, platform.ctx());
    return buffer;
  }

  char buffer[OCLACP_IFENTRY_CAPACITY + 1] = {};
};

TEST_F(EntryForm, Slashes_BecomeUnderscores) {
  EXPECT_EQ(converted("GigabitEthernet0/0/0/1"), "GigabitEthernet0_0_0_1");
}

TEST_F(EntryForm, OtherCharacters_AreUnchanged) {
  EXPECT_EQ(converted("Bundle-Ether10.5"), "Bundle-Ether10.5");
  EXPECT_EQ(converted(""), "");
  EXPECT_EQ(converted("a_b\\c d"), "a_b\\c d");
}

TEST_F(EntryForm, NullBufferOrName_IsIgnored) {
  buffer[0] = 'x';
  convert_oc_ifname_ifentry(buffer, nullptr, platform.ctx());
  convert_oc_ifname_ifentry(nullptr, "name", platform.ctx());
  EXPECT_EQ(buffer[0], 'x');
  EXPECT_THAT(platform.calls(), IsEmpty());
}

TEST_F(EntryForm, Name_IsCopiedWithRoomForSixtyThreeCharacters) {
  converted("name");
  EXPECT_EQ(platform.count("yfw_strncpy_s", "\"convert_oc_ifname_ifentry\" size=64 \"name\" count=64"), 1U);
}

TEST_F(EntryForm, LongestName_IsNotCut) {
  const std::string longest(63, 'a');
  EXPECT_EQ(converted(longest.c_str()), longest);
  EXPECT_THAT(platform.trace(), IsEmpty());
}

TEST_F(EntryForm, TooLongName_IsTracedTerminatedAndConverted) {
  buffer[OCLACP_IFENTRY_LENGTH] = 'x';
  buffer[OCLACP_IFENTRY_LENGTH + 1] = 'y';
  std::string name(70, 'a');
  name[5] = '/';
  const std::string entry = converted(name.c_str());
  EXPECT_EQ(entry.size(), std::size_t{OCLACP_IFENTRY_LENGTH});
  EXPECT_EQ(entry.substr(0, 7), "aaaaa_a");
  EXPECT_EQ(buffer[OCLACP_IFENTRY_LENGTH + 1], 'y') << "written behind the buffer";
  EXPECT_THAT(platform.trace(),
              ElementsAre("TRC convert_oc_ifname_ifentry:  convert_oc_ifname_ifentry yfw_strncpy_s failed with error : "
                          "status 0x0b000001\n"));
}

TEST_F(EntryForm, ShortName_SetsTheTerminator) {
  buffer[OCLACP_IFENTRY_LENGTH] = 'x';
  converted("name");
  EXPECT_EQ(buffer[OCLACP_IFENTRY_LENGTH], '\0');
}

TEST_F(EntryForm, NullContext_IsAccepted) {
  convert_oc_ifname_ifentry(buffer, "a/b", nullptr);
  EXPECT_STREQ(buffer, "a_b");
}

TEST_F(EntryForm, FailedCopy_IsTracedInBothSinks) {
  converted(std::string(64, 'a').c_str());
  ASSERT_EQ(platform.seen().records.size(), 2U);
  EXPECT_EQ(platform.seen().records[0].level, "TRC");
  EXPECT_EQ(platform.seen().records[0].text, platform.seen().records[1].text);
}

class VirtualInterface : public support::ModuleTest {
 protected:
  int is_virtual(const char* name = "Bundle-Ether1") {
    return yfw_lacp_util_is_virtual(name, &looked_up, platform.ctx());
  }

  void set(const Interface& interface) { platform.interfaces["Bundle-Ether1"] = interface; }

  static constexpr std::uint32_t kUntouched = 77;
  std::uint32_t looked_up = kUntouched;
};

TEST_F(VirtualInterface, VirtualAttribute_IsVirtual) {
  set({.attribute = 0x409A0600, .flags = 0x01000000});
  EXPECT_EQ(is_virtual(), 1);
  EXPECT_EQ(looked_up, kUntouched);
  EXPECT_EQ(platform.count("imc_s_interface_get_flags"), 0U);
  EXPECT_EQ(platform.count("imc_ifname_parse"), 0U);
}

TEST_F(VirtualInterface, NameWithSlashes_IsLookedUpInEntryForm) {
  platform.add_virtual("GigabitEthernet0_0_0_1");
  EXPECT_EQ(is_virtual("GigabitEthernet0/0/0/1"), 1);
  EXPECT_EQ(platform.count("yfw_strncpy_s", "\"yfw_lacp_util_is_virtual\" size=64 \"GigabitEthernet0_0_0_1\" count=64"),
            1U);
}

TEST_F(VirtualInterface, OtherAttribute_IsDecidedByFlagsAndName) {
  set({.handle = 9, .attribute = 0x409A0601, .flags = 0, .name_kind = 1});
  EXPECT_EQ(is_virtual(), 1);
  EXPECT_EQ(looked_up, 1U);
  EXPECT_EQ(platform.count("imc_s_interface_get_flags", "handle=9"), 1U);
  EXPECT_EQ(platform.count("imc_ifname_parse", "\"Bundle-Ether1\""), 1U);
}

TEST_F(VirtualInterface, PhysicalName_IsNotVirtual) {
  set({.name_kind = 2});
  EXPECT_EQ(is_virtual(), 0);
  EXPECT_EQ(looked_up, 1U);
}

TEST_F(VirtualInterface, Flags_DecideBeforeTheName) {
  struct Case {
    std::uint64_t flags;
    bool leaves_it_to_the_name;
  };
  for (const Case& one : {Case{0, true}, Case{0x00800040, true}, Case{0x01000000, false}, Case{0x01800000, false},
                          Case{0x01000040, false}, Case{0x01800040, true}, Case{0xFFFFFFFF, true},
                          Case{UINT64_C(0x0180004000000000), true}, Case{UINT64_C(0xFFFFFFFF01000000), false}}) {
    SCOPED_TRACE(one.flags);
    set({.flags = one.flags, .name_kind = 1});
    EXPECT_EQ(is_virtual(), one.leaves_it_to_the_name ? 1 : 0);
    set({.flags = one.flags, .name_kind = 2});
    EXPECT_EQ(is_virtual(), 0);
  }
}

TEST_F(VirtualInterface, UnreadableFlags_AreNotVirtual) {
  set({.name_kind = 1});
  platform.script("imc_s_interface_get_flags", 0, 0x51);
  EXPECT_EQ(is_virtual(), 0);
  EXPECT_EQ(looked_up, 1U);
  EXPECT_EQ(platform.count("imc_ifname_parse"), 0U);
}

TEST_F(VirtualInterface, UnknownInterface_IsDecidedUnderHandleZero) {
  platform.interfaces["someone-else"] = {.handle = 0};
  EXPECT_EQ(is_virtual(), 1) << "its flags allow it, and its name is unknown";
  EXPECT_EQ(looked_up, 1U);
  EXPECT_EQ(platform.count("imc_s_interface_get_flags", "handle=0"), 1U);
}

TEST_F(VirtualInterface, FailedLookUp_IgnoresTheAttribute) {
  set({.attribute = IMC_ATTRIBUTE_VIRTUAL});
  platform.script("imc_interface_find", 0, 0x52);
  platform.script("imc_s_interface_get_flags", 0, 0x53);
  EXPECT_EQ(is_virtual(), 0);
}

TEST_F(VirtualInterface, UnparsableName_IsVirtual) {
  set({.name_kind = 2});
  platform.script("imc_ifname_parse", 0, 0x54);
  EXPECT_EQ(is_virtual(), 1);
}

TEST_F(VirtualInterface, FailedCopyOfName_IsTracedAndNotVirtual) {
  set({.attribute = IMC_ATTRIBUTE_VIRTUAL});
  platform.script("yfw_strncpy_s", 2, 0x55);
  EXPECT_EQ(is_virtual(), 0);
  EXPECT_EQ(looked_up, kUntouched);
  EXPECT_EQ(platform.count("imc_interface_find"), 0U);
  EXPECT_THAT(platform.trace(),
              ElementsAre("TRC yfw_lacp_util_is_virtual:  yfw_lacp_util_is_virtual yfw_strncpy_s failed with error : "
                          "status 0x00000055\n"));
}

TEST_F(VirtualInterface, TooLongName_IsNotVirtual) {
  EXPECT_EQ(is_virtual(std::string(300, 'a').c_str()), 0);
  EXPECT_EQ(platform.count("yfw_strncpy_s"), 2U);
  EXPECT_EQ(looked_up, kUntouched);
}

TEST_F(VirtualInterface, UnknownInterface_ReportsNothingToTheFramework) {
  is_virtual();
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
  EXPECT_THAT(platform.trace(), IsEmpty());
}

TEST_F(VirtualInterface, NullContext_IsAccepted) {
  platform.add_virtual("Bundle-Ether1");
  EXPECT_EQ(yfw_lacp_util_is_virtual("Bundle-Ether1", &looked_up, nullptr), 1);
}

using VirtualInterfaceDeathTest = VirtualInterface;

TEST_F(VirtualInterfaceDeathTest, NullContextAndFailedCopy_Abort) {
  platform.script("yfw_strncpy_s", 0, 0x55);
  EXPECT_DEATH(yfw_lacp_util_is_virtual("Bundle-Ether1", &looked_up, nullptr),
               "int yfw_lacp_util_is_virtual\\(const char \\*, uint32_t \\*, yfw_map_ctx\\): "
               "Assertion `\\(\\(void \\*\\)0\\) != ctx' failed");
}

TEST(InterfaceNames, SubInterface_HasADot) {
  EXPECT_EQ(yfw_is_oc_subinterface("Bundle-Ether1.100"), 1);
  EXPECT_EQ(yfw_is_oc_subinterface("Bundle-Ether1"), 0);
  EXPECT_EQ(yfw_is_oc_subinterface("."), 1);
  EXPECT_EQ(yfw_is_oc_subinterface(""), 0);
}

TEST(InterfaceNames, Bundle_ContainsTheWordBundle) {
  EXPECT_EQ(yfw_is_oc_bundleinterface("Bundle-Ether1"), 1);
  EXPECT_EQ(yfw_is_oc_bundleinterface("My-Bundle"), 1);
  EXPECT_EQ(yfw_is_oc_bundleinterface("bundle-ether1"), 0);
  EXPECT_EQ(yfw_is_oc_bundleinterface("GigabitEthernet0/0/0/1"), 0);
}

TEST(PortStateGetters, PortState_IsReadOneBitPerGetter) {
  struct Getter {
    const char* (*text_of)(std::uint8_t);
    unsigned mask;
    const char* clear;
    const char* set;
  };
  const Getter getters[] = {{yfw_get_lacp_state_activity, 0x01, "PASSIVE", "ACTIVE"},
                            {yfw_get_lacp_state_timeout, 0x02, "LONG", "SHORT"},
                            {yfw_get_lacp_state_synchronization, 0x08, "OUT_SYNC", "IN_SYNC"},
                            {yfw_get_lacp_state_aggregatable, 0x04, "false", "true"},
                            {yfw_get_lacp_state_collecting, 0x10, "false", "true"},
                            {yfw_get_lacp_state_distributing, 0x20, "false", "true"}};
  for (const Getter& getter : getters) {
    for (unsigned state = 0; state < 256; ++state) {
      ASSERT_STREQ(getter.text_of(static_cast<std::uint8_t>(state)),
                   (state & getter.mask) != 0 ? getter.set : getter.clear)
          << "mask " << getter.mask << ", state " << state;
    }
  }
}

}  // namespace
