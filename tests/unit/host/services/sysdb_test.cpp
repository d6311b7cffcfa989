// The device directory, the data-store client on top of it, and the probe for the client's library.
#include <unistd.h>

#include <cerrno>

#include "host/base/contract.h"
#include "host/base/status_text.h"
#include "host/devices/folder_device.h"
#include "host/services/current_device.h"
#include "tests/support/native_json.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

constexpr const char* kPlatform = R"({"oclacp-platform:platform": {"router-type": 3, "interface": [
    {"name": "GigabitEthernet0/0/0/1", "type": "physical"}, {"name": "Bundle-Ether1", "type": "bundle"},
    {"name": "Loopback0", "type": "virtual"}]}})";

std::string entry(const std::string& active, const std::string& name, const std::string& content) {
  return R"({"active": ")" + active + R"(", "interface-name": ")" + name + "\"" + content + "}";
}

constexpr const char* kLacp = R"(, "Talvo-Brin-QD-bundlemgr-cfg:lacp": {"mode": "active"})";

class DeviceFolder : public testing::Test {
 protected:
  void SetUp() override { write(kPlatform, "{}"); }

  void write(const std::string& platform, const std::string& running) const {
    folder_.write("platform.json", platform);
    folder_.write("running.json", running);
  }

  [[nodiscard]] std::string opened() const {
    return refusal_of([this] { FolderDevice(schemas().native(), folder_.path()).snapshot(); });
  }

  // What sysdb_find() gives for a pattern over the active interfaces of the folder's device.
  [[nodiscard]] std::vector<std::string> find(const char* pattern) const {
    const auto device = FolderDevice(schemas().native(), folder_.path()).snapshot();
    const CurrentDevice installed(*device);
    sysdb_handle connection = nullptr;
    EXPECT_EQ(_sysdb_bind(&connection, SYSDB_ACTIVE_INTERFACES, SYSDB_BIND_FLAGS), YFW_OK);
    uint32_t count = 0;
    sysdb_list_handle list = nullptr;
    EXPECT_EQ(sysdb_find(connection, pattern, "", &count, &list, SYSDB_FIND_FLAGS, 0), YFW_OK);
    EXPECT_EQ(list == nullptr, count == 0);
    std::vector<std::string> items;
    char* path = nullptr;
    uint32_t ignored = 0;
    while (list != nullptr && sysdb_list_next(list, &path, &ignored, &ignored) == YFW_OK) {
      items.emplace_back(path);
    }
    EXPECT_EQ(items.size(), count);
    EXPECT_EQ(sysdb_list_free(list), YFW_OK);
    EXPECT_EQ(_sysdb_unbind(connection), YFW_OK);
    return items;
  }

  TemporaryFolder folder_;
};

TEST_F(DeviceFolder, ValidFolder_HasPlatformInventoryAndConfiguration) {
  write(kPlatform, support::native_interfaces(entry("act", "Bundle-Ether1", kLacp)));
  const auto device = FolderDevice(schemas().native(), folder_.path()).snapshot();
  EXPECT_EQ(device->router_type(), 3U);
  ASSERT_EQ(device->interfaces().size(), 3U);
  EXPECT_EQ(device->interfaces()[0].name, "GigabitEthernet0/0/0/1");
  EXPECT_EQ(device->interfaces()[0].type, InterfaceType::kPhysical);
  EXPECT_EQ(device->interfaces()[1].type, InterfaceType::kBundle);
  EXPECT_EQ(device->interfaces()[2].type, InterfaceType::kVirtual);
  ASSERT_NE(device->running(), nullptr);
}

TEST_F(DeviceFolder, MissingFolderOrFile_IsRefused) {
  EXPECT_EQ(refusal_of([] { FolderDevice(schemas().native(), "/no/such").snapshot(); }),
            "/no/such: no such device directory");
  std::filesystem::remove(folder_.path() + "/running.json");
  EXPECT_EQ(opened(), folder_.path() + "/running.json: No such file or directory");
  std::filesystem::remove(folder_.path() + "/platform.json");
  EXPECT_EQ(opened(), folder_.path() + "/platform.json: No such file or directory");
}

TEST_F(DeviceFolder, InvalidFile_IsRefused) {
  write("{}", "{}");
  EXPECT_EQ(opened(), folder_.path() + "/platform.json: describes no platform");
  write(R"({"oclacp-platform:platform": {}})", "{}");
  EXPECT_THAT(opened(), testing::AllOf(testing::StartsWith(folder_.path() + "/platform.json: "),
                                       testing::HasSubstr("router-type")));
  write(kPlatform, support::native_interfaces(entry("act", "a", R"(, "colour": 1)")));
  EXPECT_THAT(opened(),
              testing::AllOf(testing::StartsWith(folder_.path() + "/running.json: "), testing::HasSubstr("colour")));
  write(kPlatform, "{");
  EXPECT_THAT(opened(), testing::StartsWith(folder_.path() + "/running.json (line 1): "));
}

TEST_F(DeviceFolder, AttributeInData_IsRefused) {
  const std::string attribute = R"("@": {"ietf-netconf:operation": "delete"})";
  write(kPlatform, support::native_interfaces(entry("act", "a", ", " + attribute)));
  EXPECT_EQ(opened(), folder_.path() +
                          "/running.json: /Talvo-Brin-QD-ifmgr-cfg:interface-configurations/interface-configuration"
                          "[active='act'][interface-name='a']: carries the attribute 'operation', which data has not");
  write(R"({"oclacp-platform:platform": {"router-type": 3, )" + attribute + "}}", "{}");
  EXPECT_EQ(opened(), folder_.path() +
                          "/platform.json: /oclacp-platform:platform: carries the attribute 'operation', "
                          "which data has not");
}

TEST_F(DeviceFolder, DataOfAnotherFile_IsRefused) {
  write(kPlatform, kPlatform);
  EXPECT_EQ(opened(), folder_.path() + "/running.json: /oclacp-platform:platform: is neither configuration nor state");
  write(R"({"oclacp-platform:platform": {"router-type": 3},
            "Talvo-Brin-QD-bundlemgr-cfg:lacp": {"system-priority": 5}})",
        "{}");
  EXPECT_EQ(opened(), folder_.path() +
                          "/platform.json: /Talvo-Brin-QD-bundlemgr-cfg:lacp: is not part of the "
                          "description of a device");
}

TEST_F(DeviceFolder, NameLongerThan63Bytes_IsRefused) {
  const auto repeated = [](const std::string& character, int count) {
    std::string text;
    for (int number = 0; number < count; ++number) {
      text += character;
    }
    return text;
  };
  const std::string fits = repeated("\u00e9", 31) + "x";
  write(kPlatform, support::native_interfaces(entry("act", fits, kLacp)));
  EXPECT_EQ(opened(), "accepted");
  const std::string too_long = repeated("\u00e9", 32);
  write(kPlatform, support::native_interfaces(entry("act", too_long, kLacp)));
  EXPECT_THAT(opened(), testing::AllOf(testing::StartsWith(folder_.path() + "/running.json: "),
                                       testing::EndsWith("/interface-name: an interface name has at most 63 bytes")));
  write(R"({"oclacp-platform:platform": {"router-type": 3, "interface": [{"name": ")" + too_long +
            R"(", "type": "physical"}]}})",
        "{}");
  EXPECT_THAT(opened(), testing::AllOf(testing::StartsWith(folder_.path() + "/platform.json: "),
                                       testing::EndsWith("/name: an interface name has at most 63 bytes")));
}

TEST_F(DeviceFolder, Items_AreNonEmptyContainersOfActiveInterfaces) {
  write(kPlatform, support::native_interfaces(entry("act", "GigabitEthernet0/0/0/1", R"(, "description": "x",
            "Talvo-Brin-QD-bundlemgr-cfg:bundle-member": {"id": {"bundle-id": 1}})") +
                                              "," + entry("act", "Bundle-Ether1", kLacp) + "," +
                                              entry("pre", "Bundle-Ether2", kLacp)));
  EXPECT_THAT(find(".*"), testing::ElementsAre("GigabitEthernet0_0_0_1/bundle-member/",
                                               "GigabitEthernet0_0_0_1/bundle-member/id/", "Bundle-Ether1/lacp/"));
  EXPECT_THAT(find(".*/lacp/"), testing::ElementsAre("Bundle-Ether1/lacp/"));
}

TEST_F(DeviceFolder, Items_LongestNamesComeFirst) {
  write(kPlatform,
        support::native_interfaces(entry("act", "Bundle-Ether1", kLacp) + "," + entry("act", "Bundle-Ether2", kLacp) +
                                   "," + entry("act", "Bundle-Ether10", kLacp)));
  EXPECT_THAT(find(".*/lacp/"),
              testing::ElementsAre("Bundle-Ether10/lacp/", "Bundle-Ether1/lacp/", "Bundle-Ether2/lacp/"));
}

TEST_F(DeviceFolder, NamesThatDifferInSlashes_HaveDifferentElements) {
  write(kPlatform, support::native_interfaces(entry("act", "Port0/1", kLacp) + "," + entry("act", "Port0_1", kLacp)));
  const std::vector<std::string> items = find(".*/lacp/");
  EXPECT_THAT(items, testing::ElementsAre("Port0_1_/lacp/", "Port0_1/lacp/"));
  const auto device = FolderDevice(schemas().native(), folder_.path()).snapshot();
  const CurrentDevice installed(*device);
  const auto display_name = [](const char* element) {
    std::array<char, 64> name{};
    EXPECT_EQ(imc_display_namestring(element, name.data(), name.size(), 0), YFW_OK);
    return std::string(name.data());
  };
  EXPECT_EQ(display_name("Port0_1"), "Port0_1");
  EXPECT_EQ(display_name("Port0_1_"), "Port0/1");
}

TEST_F(DeviceFolder, ItemCutByTheCaller_IsWholeInTheNextList) {
  write(kPlatform,
        support::native_interfaces(entry("act", "Bundle-Ether1", kLacp) + "," + entry("act", "Bundle-Ether2", kLacp)));
  const auto device = FolderDevice(schemas().native(), folder_.path()).snapshot();
  const CurrentDevice installed(*device);
  sysdb_handle connection = nullptr;
  ASSERT_EQ(_sysdb_bind(&connection, SYSDB_ACTIVE_INTERFACES, SYSDB_BIND_FLAGS), YFW_OK);
  for (int turn = 0; turn < 2; ++turn) {
    uint32_t count = 0;
    sysdb_list_handle list = nullptr;
    ASSERT_EQ(sysdb_find(connection, ".*/lacp/", "", &count, &list, SYSDB_FIND_FLAGS, 0), YFW_OK);
    char* first = nullptr;
    char* second = nullptr;
    uint32_t ignored = 0;
    ASSERT_EQ(sysdb_list_next(list, &first, &ignored, &ignored), YFW_OK);
    EXPECT_STREQ(std::strtok(first, "/"), "Bundle-Ether1");
    ASSERT_EQ(sysdb_list_next(list, &second, &ignored, &ignored), YFW_OK);
    EXPECT_STREQ(second, "Bundle-Ether2/lacp/");
    EXPECT_STREQ(first, "Bundle-Ether1");
    EXPECT_EQ(sysdb_list_free(list), YFW_OK);
  }
  EXPECT_EQ(_sysdb_unbind(connection), YFW_OK);
}

TEST_F(DeviceFolder, Pattern_MatchesWholeItems) {
  write(kPlatform, support::native_interfaces(entry("act", "Bundle-Ether1", kLacp)));
  EXPECT_THAT(find("lacp"), testing::IsEmpty());
  EXPECT_THAT(find("x|Bundle-Ether[0-9]+/lacp/"), testing::SizeIs(1));
  EXPECT_THAT(find("x|Bundle"), testing::IsEmpty());
}

TEST_F(DeviceFolder, DeviceWithoutConfiguration_HasNoItems) {
  EXPECT_THAT(find(".*"), testing::IsEmpty());
}

TEST_F(DeviceFolder, LacpConfigured_IsTrueForActiveInterfacesWithSettings) {
  write(kPlatform,
        support::native_interfaces(entry("act", "Bundle-Ether1", kLacp) + "," +
                                   entry("act", "Bundle-Ether2", R"(, "Talvo-Brin-QD-bundlemgr-cfg:lacp": {})") + "," +
                                   entry("pre", "Bundle-Ether3", kLacp)));
  const auto device = FolderDevice(schemas().native(), folder_.path()).snapshot();
  const CurrentDevice installed(*device);
  EXPECT_NE(get_intf_type_if_lacp_configured("Bundle-Ether1"), 0U);
  EXPECT_EQ(get_intf_type_if_lacp_configured("Bundle-Ether2"), 0U);
  EXPECT_EQ(get_intf_type_if_lacp_configured("Bundle-Ether3"), 0U);
}

TEST_F(DeviceFolder, ConfiguredInterface_HasADisplayName) {
  write(kPlatform, support::native_interfaces(entry("act", "HundredGigE0/1/0/0", "")));
  const auto device = FolderDevice(schemas().native(), folder_.path()).snapshot();
  const CurrentDevice installed(*device);
  std::array<char, 64> name{};
  EXPECT_EQ(imc_display_namestring("HundredGigE0_1_0_0", name.data(), name.size(), 0), YFW_OK);
  EXPECT_STREQ(name.data(), "HundredGigE0/1/0/0");
}

TEST(DataStore, BindWithoutADeviceOrToOtherData_IsRefused) {
  sysdb_handle connection = nullptr;
  EXPECT_EQ(_sysdb_bind(&connection, SYSDB_ACTIVE_INTERFACES, SYSDB_BIND_FLAGS), kBadQuery);
  const EmptySnapshot device;
  const CurrentDevice installed(device);
  EXPECT_EQ(_sysdb_bind(&connection, "/oper/", SYSDB_BIND_FLAGS), kBadQuery);
  EXPECT_EQ(connection, nullptr);
}

TEST(DataStore, InvalidQuery_IsRefused) {
  const EmptySnapshot device;
  const CurrentDevice installed(device);
  sysdb_handle connection = nullptr;
  ASSERT_EQ(_sysdb_bind(&connection, SYSDB_ACTIVE_INTERFACES, SYSDB_BIND_FLAGS), YFW_OK);
  uint32_t count = 7;
  sysdb_list_handle list = nullptr;
  EXPECT_EQ(sysdb_find(connection, "(", "", &count, &list, SYSDB_FIND_FLAGS, 0), kBadQuery);
  EXPECT_EQ(sysdb_find(connection, ".*", "x", &count, &list, SYSDB_FIND_FLAGS, 0), kBadQuery);
  EXPECT_EQ(count, 7U);
  EXPECT_EQ(_sysdb_unbind(connection), YFW_OK);
}

TEST(DataStore, LibraryPath_IsReadableWithAndWithoutADevice) {
  EXPECT_EQ(access(SYSDB_LIBRARY_PATH, R_OK), 0);
  const EmptySnapshot device;
  const CurrentDevice installed(device);
  EXPECT_EQ(access(SYSDB_LIBRARY_PATH, R_OK), 0);
}

TEST(DataStore, GlobalConnection_NeedsNoDeviceAndHasNoItems) {
  ASSERT_EQ(yfw_intf_mgbl_connid, nullptr);
  ASSERT_EQ(_sysdb_bind(&yfw_intf_mgbl_connid, SYSDB_INTERFACE_GLOBALS, SYSDB_GLOBALS_BIND_FLAGS), YFW_OK);
  ASSERT_NE(yfw_intf_mgbl_connid, nullptr);
  uint32_t count = 7;
  sysdb_list_handle list = nullptr;
  EXPECT_EQ(sysdb_find(yfw_intf_mgbl_connid, ".*", "", &count, &list, SYSDB_FIND_FLAGS, 0), kBadQuery);
  EXPECT_EQ(_sysdb_unbind(yfw_intf_mgbl_connid), YFW_OK);
  EXPECT_EQ(yfw_intf_mgbl_connid, nullptr) << "the next module would take it for bound";
}

TEST(Platform, RouterType_IsThatOfTheDevice) {
  EXPECT_EQ(platform_get_router_type(), 0U);
  const EmptySnapshot device;
  const CurrentDevice installed(device);
  EXPECT_EQ(platform_get_router_type(), device.router_type());
}

TEST(DataStore, AccessToOtherPaths_GoesToTheSystem) {
  const EmptySnapshot device;
  const CurrentDevice installed(device);
  EXPECT_EQ(access("/", R_OK), 0);
  EXPECT_NE(access("/no/such", F_OK), 0);
  EXPECT_EQ(errno, ENOENT);
}

TEST(DataStore, NestedDevices_InnerIsCurrent) {
  EXPECT_EQ(CurrentDevice::current(), nullptr);
  const EmptySnapshot device;
  const CurrentDevice outer(device);
  {
    const CurrentDevice inner(device);
    EXPECT_EQ(CurrentDevice::current(), &inner);
  }
  EXPECT_EQ(CurrentDevice::current(), &outer);
}

}  // namespace
}  // namespace oclacp::host
