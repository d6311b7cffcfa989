// Reading a device's configuration as OpenConfig.
#include "tests/e2e/device_folder.h"
#include "tests/e2e/program.h"

namespace support {
namespace {

const std::string kBundle1 = "/lacp/interfaces/interface[name='Bundle-Ether1']";
const std::string kNativeBundle1 =
    "/Talvo-Brin-QD-ifmgr-cfg:interface-configurations/interface-configuration[active='act']"
    "[interface-name='Bundle-Ether1']/";

Outcome get(const std::vector<std::string>& further_arguments = {}) {
  std::vector<std::string> arguments = {"get", "--config", "-d", example("device")};
  arguments.insert(arguments.end(), further_arguments.begin(), further_arguments.end());
  return run(arguments);
}

// The result of a get that goes well, without blanks.
std::string got(const std::vector<std::string>& further_arguments) {
  const Outcome result = get(further_arguments);
  expect_success(result);
  return squeezed(result.out);
}

std::string interfaces(const std::string& entries) {
  return R"({"openconfig-lacp:lacp":{"interfaces":{"interface":[)" + entries + "]}}}";
}

TEST(Get, WithoutAPath_ShowsAllConfiguration) {
  EXPECT_EQ(
      got({}),
      R"({"openconfig-lacp:lacp":{"config":{"system-priority":4096},"interfaces":{"interface":[)"
      R"({"name":"Bundle-Ether1","config":{"name":"Bundle-Ether1","interval":"FAST","lacp-mode":"ACTIVE",)"
      R"("system-id-mac":"00:11:22:33:44:55","system-priority":100}},)"
      R"({"name":"Bundle-Ether2","config":{"name":"Bundle-Ether2","interval":"SLOW","lacp-mode":"PASSIVE"}}]}}})");
}

TEST(Get, Path_ReadsItsSubtree) {
  EXPECT_EQ(got({"/lacp/config"}), R"({"openconfig-lacp:lacp":{"config":{"system-priority":4096}}})");
  EXPECT_EQ(got({"/lacp/interfaces/interface[name='Bundle-Ether2']"}),
            interfaces(R"({"name":"Bundle-Ether2","config":{"name":"Bundle-Ether2","interval":"SLOW",)"
                       R"("lacp-mode":"PASSIVE"}})"));
  EXPECT_EQ(got({kBundle1 + "/config/system-priority"}),
            interfaces(R"({"name":"Bundle-Ether1","config":{"system-priority":100}})"));
  EXPECT_EQ(got({"/openconfig-lacp:lacp/interfaces/interface/config/interval"}),
            interfaces(R"({"name":"Bundle-Ether1","config":{"interval":"FAST"}},)"
                       R"({"name":"Bundle-Ether2","config":{"interval":"SLOW"}})"));
}

TEST(Get, PathWithAValue_ReadsTheInterfacesThatHoldIt) {
  EXPECT_EQ(got({"/lacp/interfaces/interface/config/lacp-mode[.='PASSIVE']"}),
            interfaces(R"({"name":"Bundle-Ether2","config":{"name":"Bundle-Ether2","interval":"SLOW",)"
                       R"("lacp-mode":"PASSIVE"}})"));
}

TEST(Get, AbsentNode_IsAnEmptyDocument) {
  EXPECT_EQ(got({"/lacp/interfaces/interface[name='Bundle-Ether9']"}), "{}");
  EXPECT_EQ(got({"/lacp/interfaces/interface[name='GigabitEthernet0/0/0/0']"}), "{}");
  EXPECT_EQ(got({"/lacp/interfaces/interface[name='Bundle-Ether2']/config/system-id-mac"}), "{}");
  EXPECT_EQ(got({"/lacp/state"}), "{}");
}

TEST(Get, FormatXml_PrintsXml) {
  EXPECT_EQ(
      got({"--format", "xml", "/lacp/config"}),
      R"(<lacpxmlns="http://openconfig.net/yang/lacp"><config><system-priority>4096</system-priority></config></lacp>)");
}

TEST(Get, FormatTable_PrintsATable) {
  const Outcome result = get({"--format", "table"});
  expect_success(result);
  EXPECT_EQ(result.out,
            "system-priority: 4096\n"
            "interface      interval  lacp-mode  system-id-mac      system-priority\n"
            "Bundle-Ether1  FAST      ACTIVE     00:11:22:33:44:55  100\n"
            "Bundle-Ether2  SLOW      PASSIVE    -                  -\n");
}

TEST(Get, Trace_DoesNotChangeTheResult) {
  const Outcome result = get({kBundle1, "--trace"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(squeezed(result.out), got({kBundle1}));
  EXPECT_THAT(result.err, testing::AllOf(testing::HasSubstr("ymap_oq_oclacp_openconfiglacp_lvla_lacp"),
                                         testing::HasSubstr(" qd2oc_cfglacpmode\n")));
}

TEST(Get, InvalidPath_IsRefused) {
  expect_refusal(get({"/lacp/colour"}), "oclacp: /openconfig-lacp:lacp/colour: no such node\n");
  expect_refusal(get({"/interfaces"}), "oclacp: /interfaces: no such node\n");
  expect_refusal(get({"colour"}), "oclacp: /colour: no such node\n");
  expect_refusal(get({"/lacp/interfaces/interface[name=Bundle-Ether1"}), "']' is missing after");
  expect_refusal(get({"/lacp/interfaces/interface[name='a'][name='b']"}),
                 "the list entry must name its key exactly once");
  expect_refusal(get({"/lacp/interfaces/interface[name='" + std::string(300, 'x') + "']"}),
                 "/name: an interface name has at most 63 bytes\n");
}

TEST(Get, MissingDeviceOrWrongOptions_IsAUsageError) {
  EXPECT_EQ(run({"get"}).status, 2);
  EXPECT_EQ(get({"--format", "csv"}).status, 2);
  EXPECT_EQ(get({"--unmapped", "--format", "table"}).status, 2);
  EXPECT_EQ(get({"--unmapped", "--keep-going"}).status, 2);
}

class GetFrom : public DeviceFolderTest {
 protected:
  Outcome get(const std::vector<std::string>& further_arguments = {}) {
    std::vector<std::string> arguments = {"get", "-d", folder()};
    arguments.insert(arguments.end(), further_arguments.begin(), further_arguments.end());
    return run(arguments);
  }

  std::string got(const std::vector<std::string>& further_arguments = {}) {
    const Outcome result = get(further_arguments);
    expect_success(result);
    return squeezed(result.out);
  }

  // One entry with LACP after the other.
  void write_entries(const std::string& first_lacp, const std::string& second_lacp) {
    write_running(native_entry("Bundle-Ether1", first_lacp) + "," + native_entry("Bundle-Ether2", second_lacp));
  }
};

TEST_F(GetFrom, PeriodWithoutAnOpenConfigForm_FailsTheRead) {
  write_entries(R"("period": 30000)", R"("period": 200)");
  expect_refusal(get(),
                 "[interface-name='Bundle-Ether2']/Talvo-Brin-QD-bundlemgr-cfg:lacp/period: '200' has no OpenConfig "
                 "form, which only one second (true or 1000) and thirty (30000) have (error tag 'interval', code "
                 "0xaaf2fe00)\n");
  write_entries(R"("period": 1)", R"("period": true)");
  expect_refusal(get(), "[interface-name='Bundle-Ether1']/Talvo-Brin-QD-bundlemgr-cfg:lacp/period: '1' has no");
}

TEST_F(GetFrom, PathWithoutTheFailingPeriod_IsRead) {
  write_entries(R"("period": true)", R"("period": 200, "mode": "active")");
  EXPECT_EQ(got({kBundle1}),
            interfaces(R"({"name":"Bundle-Ether1","config":{"name":"Bundle-Ether1","interval":"FAST"}})"));
  EXPECT_EQ(got({"/lacp/interfaces/interface/config/lacp-mode"}),
            interfaces(R"({"name":"Bundle-Ether2","config":{"lacp-mode":"ACTIVE"}})"));
}

TEST_F(GetFrom, KeepGoing_LeavesOutWhatHasNoForm) {
  write_running(native_entry("Bundle-Ether1", R"("mode": "active", "period": 200)") + "," +
                native_entry("Bundle-Ether2", R"("period": 1000)") + "," +
                native_entry("Bundle-Ether3", R"("period": 1)"));
  const Outcome result = get({"--keep-going"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(squeezed(result.out),
            interfaces(R"({"name":"Bundle-Ether2","config":{"name":"Bundle-Ether2","interval":"FAST"}})"));
  EXPECT_THAT(result.err, testing::AllOf(testing::HasSubstr("[interface-name='Bundle-Ether1']"),
                                         testing::HasSubstr("[interface-name='Bundle-Ether3']"),
                                         testing::Not(testing::HasSubstr("Bundle-Ether2")),
                                         testing::EndsWith(": 2 left out of the answer\n")));
  write_entries(R"("period": 1000)", R"("mode": "passive")");
  EXPECT_EQ(got({"--keep-going"}), got());
}

TEST_F(GetFrom, InactiveOrWithoutLacp_IsNotShown) {
  write_running(R"({"active": "pre", "interface-name": "Bundle-Ether1",
                    "Talvo-Brin-QD-bundlemgr-cfg:lacp": {"mode": "active"}},
                   {"active": "act", "interface-name": "Bundle-Ether2"},
                   {"active": "act", "interface-name": "Bundle-Ether3",
                    "Talvo-Brin-QD-bundlemgr-cfg:bundle-member": {"id": {"bundle-id": 1}}},
                   {"active": "act", "interface-name": "Bundle-Ether4.1",
                    "Talvo-Brin-QD-bundlemgr-cfg:lacp": {"mode": "active"}},)" +
                native_entry("Bundle-Ether5", R"("mode": "on")"));
  EXPECT_EQ(got(), interfaces(R"({"name":"Bundle-Ether5","config":{"name":"Bundle-Ether5"}})"));
}

TEST_F(GetFrom, ConfigurationWithoutInterfaces_IsAnEmptyDocument) {
  write_running("");
  EXPECT_EQ(got(), "{}");
}

TEST_F(GetFrom, Unmapped_ListsWhatOpenConfigCannotExpress) {
  write_running(native_entry("Bundle-Ether1", R"("mode": "on", "period": 200, "system-priority": 5,
      "talvo-extensions": {"enable": [null]})",
                             R"("interface-virtual": [null], "description": "to the core",
      "mtus": {"mtu": [{"owner": "etherbundle", "mtu": 9216}]},
      "Talvo-Brin-QD-bundlemgr-cfg:bundle": {"minimum-active": {"links": 2}})") +
                R"(, {"active": "act", "interface-name": "GigabitEthernet0/0/0/0", "description": "not mapped"})");
  const Outcome result = get({"--unmapped"});
  expect_success(result);
  std::string expected;
  for (const char* line :
       {"interface-virtual", "description = to the core", "mtus/mtu[owner='etherbundle']/mtu = 9216",
        "Talvo-Brin-QD-bundlemgr-cfg:bundle/minimum-active/links = 2", "Talvo-Brin-QD-bundlemgr-cfg:lacp/mode = on",
        "Talvo-Brin-QD-bundlemgr-cfg:lacp/period = 200", "Talvo-Brin-QD-bundlemgr-cfg:lacp/talvo-extensions/enable"}) {
    expected += kNativeBundle1 + line + "\n";
  }
  EXPECT_EQ(result.out, expected);
  EXPECT_EQ(got({"--unmapped", "/lacp/interfaces/interface[name='Bundle-Ether2']"}), "");
}

TEST_F(GetFrom, OtherDeviceType_IsRefused) {
  write_platform(R"({"oclacp-platform:platform": {"router-type": 9}})");
  expect_refusal(get(),
                 "oclacp: platform type 9: the mapping module does not offer openconfig-lacp on devices of this "
                 "type\n");
  expect_refusal(run({"translate", "--to", "native", "-d", folder(), example("requests/create-interface.json")}),
                 "platform type 9");
}

TEST_F(GetFrom, InvalidConfiguration_IsRefused) {
  write_running(R"({"active": "act", "interface-name": ")" + std::string(300, 'x') + "\"}");
  expect_refusal(get(), folder() + "/running.json: ");
  write_running(native_entry("Bundle-Ether1", R"("mode": "sideways")"));
  expect_refusal(get(), ":lacp/mode");
  write_file("running.json", "{");
  expect_refusal(get(), folder() + "/running.json");
  write_file("running.json", R"({"openconfig-lacp:lacp": {}})");
  expect_refusal(get(), folder() + "/running.json");
}

}  // namespace
}  // namespace support
