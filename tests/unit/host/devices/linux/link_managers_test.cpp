#include "host/devices/linux/link_managers.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

// The manager of bond0, whose index is 6, with one file below /run.
std::string manager(const std::string& file, const std::string& content) {
  const TemporaryFolder run;
  std::filesystem::create_directories(std::filesystem::path(run.path() + "/" + file).parent_path());
  run.write(file, content);
  return find_manager("bond0", 6, run.path()).value_or("none");
}

TEST(LinkManagers, Nothing_IsNone) {
  const TemporaryFolder run;
  EXPECT_FALSE(find_manager("bond0", 6, run.path()));
}

TEST(LinkManagers, NetworkManager_ManagesWhatItSays) {
  EXPECT_EQ(manager("NetworkManager/devices/6", "[device]\nmanaged=true\nconnection-uuid=5\n"), "NetworkManager");
  EXPECT_EQ(manager("NetworkManager/devices/6", "[device]\nmanaged=false\n"), "none");
  EXPECT_EQ(manager("NetworkManager/devices/7", "[device]\nmanaged=true\n"), "none");
}

TEST(LinkManagers, Networkd_ManagesLinksThatHaveAFile) {
  EXPECT_EQ(manager("systemd/netif/links/6", "ADMIN_STATE=configured\nNETWORK_FILE=/etc/systemd/network/b.network\n"),
            "systemd-networkd");
  EXPECT_EQ(manager("systemd/netif/links/6", "ADMIN_STATE=unmanaged\n"), "none");
}

TEST(LinkManagers, Ifupdown_ManagesWhatItBroughtUp) {
  EXPECT_EQ(manager("network/ifstate", "lo=lo\nbond0=bond0\n"), "ifupdown");
  EXPECT_EQ(manager("network/ifstate.bond0", "bond0\n"), "ifupdown");
  EXPECT_EQ(manager("network/ifstate.bond0", ""), "none");
  EXPECT_EQ(manager("network/ifstate", "bond00=bond00\n"), "none");
}

}  // namespace
}  // namespace oclacp::host
