#include "host/module.h"

#include "host/datastore/installed_device.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

class DeviceOfType final : public Device {
 public:
  explicit DeviceOfType(uint32_t type) : type_(type) {}

  [[nodiscard]] uint32_t router_type() const override { return type_; }
  [[nodiscard]] const std::vector<Interface>& interfaces() const override { return interfaces_; }
  [[nodiscard]] const lyd_node* running() const override { return nullptr; }

 private:
  uint32_t type_;
  std::vector<Interface> interfaces_;
};

TEST(Module, IsInitialisedWhileItIsLoaded) {
  ASSERT_EQ(yfw_intf_mgbl_connid, nullptr);
  {
    const Module module(OCLACP_MODULE);
    EXPECT_NE(yfw_intf_mgbl_connid, nullptr);
  }
  EXPECT_EQ(yfw_intf_mgbl_connid, nullptr);
}

TEST(Module, TwoOfThemShareTheConnection) {
  const auto first = std::make_unique<Module>(OCLACP_MODULE);
  auto second = std::make_unique<Module>(OCLACP_MODULE);
  second.reset();
  const Module third(OCLACP_MODULE);
  EXPECT_NE(yfw_intf_mgbl_connid, nullptr);
}

TEST(Module, RegistersAWalkerForEachNativeRoot) {
  const Module module(OCLACP_MODULE);
  EXPECT_NE(module.request_walker(), nullptr);
  const yfw_map_walker interfaces = module.native_walker(kIfmgr, "interface-configurations");
  const yfw_map_walker lacp = module.native_walker(kBundlemgr, "lacp");
  EXPECT_NE(interfaces, nullptr);
  EXPECT_NE(lacp, nullptr);
  EXPECT_NE(interfaces, lacp);
  EXPECT_NE(module.native_walker(kBundlemgrOper, "lacp-bundles"), nullptr);
  EXPECT_NE(module.native_walker(kBundlemgrOper, "lacp-data"), nullptr);
  EXPECT_EQ(module.native_walker(kBundlemgr, "bundle"), nullptr);
  EXPECT_EQ(module.native_walker(kIfmgr, "lacp"), nullptr);
}

TEST(Module, IsAskedWhetherItServesTheDevice) {
  const Module module(OCLACP_MODULE);
  for (const uint32_t type : {7U, 8U, 18U}) {
    const DeviceOfType device(type);
    const InstalledDevice installed(device);
    EXPECT_EQ(refusal_of([&] { module.require_offer(); }), "accepted") << type;
  }
  const DeviceOfType device(9);
  const InstalledDevice installed(device);
  EXPECT_EQ(refusal_of([&] { module.require_offer(); }),
            "platform type 9: the mapping module does not offer openconfig-lacp on devices of this type");
}

TEST(Module, ServesADeviceOfWhichNothingIsKnown) {
  const Module module(OCLACP_MODULE);
  const EmptyDevice device;
  const InstalledDevice installed(device);
  EXPECT_EQ(refusal_of([&] { module.require_offer(); }), "accepted");
}

TEST(Module, IsRefusedWhenItCannotBeLoaded) {
  EXPECT_THAT(refusal_of([] { const Module ignored("/no/such.so"); }),
              testing::StartsWith("the mapping module cannot be loaded: /no/such.so: "));
}

}  // namespace
}  // namespace oclacp::host
