// What is written to a device is read from it.
#include "tests/e2e/device_folder.h"
#include "tests/e2e/program.h"

namespace support {
namespace {

class RoundTrip : public DeviceFolderTest {
 protected:
  void SetUp() override {
    write_platform(R"({"oclacp-platform:platform": {"router-type": 7, "period": "canonical"}})");
  }

  void edit(const std::string& request) { expect_success(run({"edit", "-", "-d", folder()}, request)); }

  std::string got(const std::string& path = "/lacp") {
    const Outcome result = run({"get", path, "-d", folder()});
    expect_success(result);
    return squeezed(result.out);
  }
};

// The leaves of an interface's configuration: every combination of their values and of their absence.
std::string settings(int choice) {
  const auto pick = [&choice](const std::string& leaf, const std::vector<std::string>& values) {
    const auto count = static_cast<int>(values.size()) + 1;
    const int picked = choice % count;
    choice /= count;
    return picked == 0 ? "" : ", \"" + leaf + "\": " + values[static_cast<size_t>(picked) - 1];
  };
  std::string leaves = pick("interval", {"\"FAST\"", "\"SLOW\""});
  leaves += pick("lacp-mode", {"\"ACTIVE\"", "\"PASSIVE\""});
  leaves += pick("system-id-mac", {"\"0a:11:22:33:44:5f\""});
  return leaves + pick("system-priority", {"65535"});
}
constexpr int kSettings = 3 * 3 * 2 * 2;

std::string entry(const std::string& name, const std::string& leaves) {
  return R"({"name": ")" + name + R"(", "config": {"name": ")" + name + "\"" + leaves + "}}";
}

std::string request(const std::string& entries) {
  return R"({"openconfig-lacp:lacp": {"interfaces": {"interface": [)" + entries + "]}}}";
}

TEST_F(RoundTrip, SetLeaves_AreReadBack) {
  std::string entries;
  for (int choice = 1; choice < kSettings; ++choice) {
    entries += (choice == 1 ? "" : ",") + entry("Bundle-Ether" + std::to_string(choice), settings(choice));
  }
  edit(request(entries));
  EXPECT_EQ(got(), squeezed(request(entries)));
}

TEST_F(RoundTrip, InterfaceWithoutSettings_HasNoLacp) {
  EXPECT_EQ(run({"edit", "-", "-d", folder()}, request(entry("Bundle-Ether1", ""))).status, 0);
  EXPECT_EQ(got(), "{}");
}

TEST_F(RoundTrip, ReplacedInterface_HasTheNewSettingsOnly) {
  for (const int before : {1, 7, kSettings - 1}) {
    for (int after = 1; after < kSettings; ++after) {
      edit(request(entry("Bundle-Ether1", settings(before))));
      edit(request(R"({"@": {"ietf-netconf:operation": "replace"}, )" +
                   entry("Bundle-Ether1", settings(after)).substr(1)));
      EXPECT_EQ(got(), squeezed(request(entry("Bundle-Ether1", settings(after))))) << before << " to " << after;
    }
  }
}

TEST_F(RoundTrip, DeletedNode_IsNotRead) {
  edit(R"({"openconfig-lacp:lacp": {"config": {"system-priority": 7}, "interfaces": {"interface": [)" +
       entry("Bundle-Ether1", settings(kSettings - 1)) + "," + entry("Bundle-Ether2", settings(kSettings - 1)) +
       "]}}}");
  const std::string first = "/lacp/interfaces/interface[name='Bundle-Ether1']";
  expect_success(run({"delete", first + "/config/interval", "-d", folder()}));
  EXPECT_EQ(got(first + "/config/interval"), "{}");
  EXPECT_THAT(got(first), testing::HasSubstr("lacp-mode"));
  expect_success(run({"delete", first, "-d", folder()}));
  EXPECT_EQ(got(first), "{}");
  EXPECT_THAT(got(), testing::HasSubstr("Bundle-Ether2"));
  expect_success(run({"delete", "/lacp", "-d", folder()}));
  EXPECT_EQ(got(), "{}");
}

// A device with a priority and three interfaces; `lacp` says what each of them has besides its description.
std::string three_interfaces(const std::string& lacp) {
  std::string entries;
  for (const char* name : {"Bundle-Ether1", "Bundle-Ether2", "Bundle-Ether3"}) {
    entries += (entries.empty() ? "" : ",") + std::string(R"({"active": "act", "interface-name": ")") + name +
               R"(", "description": "of )" + name + "\"" + lacp + "}";
  }
  return native_interfaces(entries).substr(1);
}

TEST_F(RoundTrip, DeleteOfLacp_RemovesThePriorityAndLacpOnly) {
  write_file("running.json", R"({"Talvo-Brin-QD-bundlemgr-cfg:lacp": {"system-priority": 7}, )" +
                                 three_interfaces(R"(, "Talvo-Brin-QD-bundlemgr-cfg:lacp": {"mode": "active"})"));
  const Outcome edit = run({"delete", "/lacp", "--dry-run", "-d", folder()});
  expect_success(edit);
  std::string entries;
  for (const char* name : {"Bundle-Ether1", "Bundle-Ether2", "Bundle-Ether3"}) {
    entries += (entries.empty() ? "" : ",") + native_entry(name, R"("@": {"ietf-netconf:operation": "remove"})");
  }
  EXPECT_THAT(squeezed(edit.out),
              testing::HasSubstr(squeezed(R"({"Talvo-Brin-QD-bundlemgr-cfg:lacp": {"system-priority": [null],
                  "@system-priority": {"ietf-netconf:operation": "remove"}}, )" +
                                          native_interfaces(entries).substr(1))));
  expect_success(run({"delete", "/lacp", "-d", folder()}));
  EXPECT_EQ(squeezed(read_file("running.json")), squeezed("{" + three_interfaces("")));
  EXPECT_EQ(got(), "{}");
}

TEST_F(RoundTrip, FastIntervalKeptAsWritten_CannotBeReadBack) {
  write_platform(R"({"oclacp-platform:platform": {"router-type": 7}})");
  const std::string fast = request(entry("Bundle-Ether1", R"(, "interval": "FAST")"));
  EXPECT_EQ(run({"edit", "-", "-d", folder()}, fast).status, 0);
  expect_refusal(run({"get", "-d", folder()}),
                 "[interface-name='Bundle-Ether1']/Talvo-Brin-QD-bundlemgr-cfg:lacp/period: "
                 "'1' has no OpenConfig form");
}

}  // namespace
}  // namespace support
