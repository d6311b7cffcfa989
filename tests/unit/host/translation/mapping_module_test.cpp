#include "host/translation/mapping_module.h"

#include "host/services/current_device.h"
#include "tests/support/locations.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

class DeviceOfType final : public DeviceSnapshot {
 public:
  explicit DeviceOfType(uint32_t type) : type_(type) {}

  [[nodiscard]] uint32_t router_type() const override { return type_; }
  [[nodiscard]] const std::vector<Interface>& interfaces() const override { return interfaces_; }
  [[nodiscard]] const lyd_node* running() const override { return nullptr; }

 private:
  uint32_t type_;
  std::vector<Interface> interfaces_;
};

ModuleManifest manifest() {
  return read_module_manifest(location::kSchemas, location::kModule);
}

TEST(MappingModule, Loaded_IsInitialisedUntilUnloaded) {
  ASSERT_EQ(yfw_intf_mgbl_connid, nullptr);
  {
    const MappingModule module(manifest());
    EXPECT_NE(yfw_intf_mgbl_connid, nullptr);
  }
  EXPECT_EQ(yfw_intf_mgbl_connid, nullptr);
}

TEST(MappingModule, LoadedTwice_SharesTheConnection) {
  const auto first = std::make_unique<MappingModule>(manifest());
  auto second = std::make_unique<MappingModule>(manifest());
  second.reset();
  const MappingModule third(manifest());
  EXPECT_NE(yfw_intf_mgbl_connid, nullptr);
}

TEST(MappingModule, Loaded_HasAWalkerForEachNativeRoot) {
  const MappingModule module(manifest());
  EXPECT_NE(module.request_walker("http://openconfig.net/yang/lacp", "lacp"), nullptr);
  EXPECT_EQ(module.request_walker("http://openconfig.net/yang/lacp", "interfaces"), nullptr);
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

TEST(MappingModule, RequireOffer_RefusesPlatformTypesThatAreNotServed) {
  const MappingModule module(manifest());
  for (const uint32_t type : {7U, 8U, 18U}) {
    const DeviceOfType device(type);
    const CurrentDevice installed(device);
    EXPECT_EQ(refusal_of([&] { module.require_offer(); }), "accepted") << type;
  }
  const DeviceOfType device(9);
  const CurrentDevice installed(device);
  EXPECT_EQ(refusal_of([&] { module.require_offer(); }),
            "platform type 9: the mapping module does not offer openconfig-lacp on devices of this type");
}

TEST(MappingModule, EmptyDevice_IsServed) {
  const MappingModule module(manifest());
  const EmptySnapshot device;
  const CurrentDevice installed(device);
  EXPECT_EQ(refusal_of([&] { module.require_offer(); }), "accepted");
}

TEST(MappingModule, FunctionThatTheLibraryLacks_IsNamedWithTheManifest) {
  ModuleManifest other = manifest();
  other.registrations.push_back("no_such_function");
  EXPECT_EQ(refusal_of([&] { const MappingModule ignored(other); }),
            other.file + ": names the function no_such_function, which " + other.library + " does not export");
}

}  // namespace
}  // namespace oclacp::host
