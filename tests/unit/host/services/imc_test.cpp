// The interface-manager client.
#include <array>

#include "host/base/contract.h"
#include "host/base/interface_names.h"
#include "host/base/status_text.h"
#include "host/services/current_device.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

// A device with some interfaces and no configuration.
class InventoryDevice final : public DeviceSnapshot {
 public:
  [[nodiscard]] uint32_t router_type() const override { return 1; }
  [[nodiscard]] const std::vector<Interface>& interfaces() const override { return interfaces_; }
  [[nodiscard]] const lyd_node* running() const override { return nullptr; }

 private:
  std::vector<Interface> interfaces_ = {{"GigabitEthernet0/0/0/1", InterfaceType::kPhysical},
                                        {"Bundle-Ether1", InterfaceType::kBundle},
                                        {"Loopback0", InterfaceType::kVirtual}};
};

struct Answers {
  cerrno found;
  uint32_t attribute;
  uint64_t flags;
  uint32_t name_kind;
};

// What a module learns of an interface.
Answers ask(const char* name) {
  Answers answers{};
  uint32_t handle = 0;
  const imc_interface_key key = {name};
  const imc_interface_attributes places = {&handle, &answers.attribute};
  answers.found = imc_interface_find(yfw_ocifmgr_im_conn, IMC_KEY_NAME, &key, 0, &places);
  EXPECT_EQ(imc_s_interface_get_flags(yfw_ocifmgr_im_conn, handle, 0, &answers.flags), YFW_OK);
  imc_ifname_parse_result result{};
  EXPECT_EQ(imc_ifname_parse(name, 0, &result), YFW_OK);
  answers.name_kind = result.kind;
  return answers;
}

class InterfaceManager : public testing::Test {
 protected:
  InventoryDevice device_;
  CurrentDevice installed_{device_};
};

TEST_F(InterfaceManager, Bundle_HasTheVirtualAttribute) {
  const Answers bundle = ask("Bundle-Ether1");
  EXPECT_EQ(bundle.found, YFW_OK);
  EXPECT_EQ(bundle.attribute, IMC_ATTRIBUTE_VIRTUAL);
}

TEST_F(InterfaceManager, VirtualInterface_IsKnownByItsFlagsAndName) {
  const Answers loopback = ask("Loopback0");
  EXPECT_EQ(loopback.found, YFW_OK);
  EXPECT_NE(loopback.attribute, IMC_ATTRIBUTE_VIRTUAL);
  EXPECT_EQ(loopback.flags & IMC_FLAG_GATE, 0U);
  EXPECT_NE(loopback.name_kind, static_cast<uint32_t>(IMC_NAME_KIND_PHYSICAL));
}

TEST_F(InterfaceManager, PhysicalInterface_IsNotVirtual) {
  const Answers port = ask("GigabitEthernet0_0_0_1");
  EXPECT_EQ(port.found, YFW_OK);
  EXPECT_NE(port.attribute, IMC_ATTRIBUTE_VIRTUAL);
  EXPECT_NE(port.flags & IMC_FLAG_GATE, 0U);
  EXPECT_NE(port.flags & IMC_FLAGS_REQUIRED, IMC_FLAGS_REQUIRED);
  EXPECT_EQ(port.name_kind, static_cast<uint32_t>(IMC_NAME_KIND_PHYSICAL));
}

TEST_F(InterfaceManager, UnknownInterface_IsKnownByItsName) {
  const Answers bundle = ask("Bundle-Ether9");
  EXPECT_EQ(bundle.found, kNotFound);
  EXPECT_EQ(bundle.flags, 0U);
  EXPECT_NE(bundle.name_kind, static_cast<uint32_t>(IMC_NAME_KIND_PHYSICAL));
  const Answers port = ask("GigabitEthernet0_0_0_9");
  EXPECT_EQ(port.found, kNotFound);
  EXPECT_EQ(port.name_kind, static_cast<uint32_t>(IMC_NAME_KIND_PHYSICAL));
}

TEST_F(InterfaceManager, NameWithSlashes_IsNotFound) {
  EXPECT_EQ(ask("GigabitEthernet0/0/0/1").found, kNotFound);
  EXPECT_EQ(entry_form("GigabitEthernet0/0/0/1"), "GigabitEthernet0_0_0_1");
}

TEST_F(InterfaceManager, LookupByAnotherKey_IsNotFound) {
  uint32_t handle = 7;
  uint32_t attribute = 7;
  const imc_interface_key key = {"Bundle-Ether1"};
  const imc_interface_attributes places = {&handle, &attribute};
  EXPECT_EQ(imc_interface_find(yfw_ocifmgr_im_conn, IMC_KEY_NAME + 1, &key, 0, &places), kNotFound);
  EXPECT_EQ(handle, 7U);
  EXPECT_EQ(attribute, 7U);
}

TEST_F(InterfaceManager, DisplayNameOfAKnownInterface_HasItsSlashes) {
  std::array<char, 64> name{};
  EXPECT_EQ(imc_display_namestring("GigabitEthernet0_0_0_1", name.data(), name.size(), 0), YFW_OK);
  EXPECT_STREQ(name.data(), "GigabitEthernet0/0/0/1");
  EXPECT_EQ(imc_display_namestring("Unknown1_2", name.data(), name.size(), 0), YFW_OK);
  EXPECT_STREQ(name.data(), "Unknown1_2");
}

TEST_F(InterfaceManager, DisplayNameThatDoesNotFit_Fails) {
  std::array<char, 4> name{};
  EXPECT_EQ(imc_display_namestring("abc", name.data(), name.size(), 0), YFW_OK);
  EXPECT_EQ(imc_display_namestring("abcd", name.data(), name.size(), 0), kTextTooLong);
}

TEST(InterfaceManagerWithoutDevice, Lookup_FindsNoInterface) {
  EXPECT_EQ(ask("Bundle-Ether1").found, kNotFound);
  EXPECT_EQ(get_intf_type_if_lacp_configured("Bundle-Ether1"), 0U);
}

TEST(InterfaceManagerWithoutDevice, Connection_IsOpenUntilUnbound) {
  const uint32_t kind = IMC_BIND_KIND;
  imc_handle connection = nullptr;
  ASSERT_EQ(imc_db_bind(&kind, IMC_BIND_MODE, &connection), YFW_OK);
  EXPECT_NE(connection, nullptr);
  EXPECT_EQ(imc_db_unbind(&connection, 0), YFW_OK);
  EXPECT_EQ(connection, nullptr);
}

}  // namespace
}  // namespace oclacp::host
