// Native data on the standard input, OpenConfig on the standard output.
#include "tests/e2e/device_folder.h"
#include "tests/e2e/program.h"

namespace support {
namespace {

Outcome to_openconfig(const std::string& native, const std::vector<std::string>& further_arguments = {}) {
  std::vector<std::string> arguments = {"translate", "--to", "openconfig", "-"};
  arguments.insert(arguments.end(), further_arguments.begin(), further_arguments.end());
  return run(arguments, native);
}

std::string translated(const std::string& native, const std::vector<std::string>& further_arguments = {}) {
  const Outcome result = to_openconfig(native, further_arguments);
  expect_success(result);
  return squeezed(result.out);
}

TEST(ToOpenconfig, SeveralNativeTrees_AreTranslatedTogether) {
  EXPECT_EQ(translated(R"({"Talvo-Brin-QD-bundlemgr-cfg:lacp": {"system-priority": 7},
      "Talvo-Brin-QD-bundlemgr-cfg:bundle": {"lacp-delay": 5},
      "Talvo-Brin-QD-ifmgr-cfg:interface-configurations": {"interface-configuration": [)" +
                       native_entry("Bundle-Ether1", R"("mode": "passive")") + "]}}"),
            R"({"openconfig-lacp:lacp":{"config":{"system-priority":7},"interfaces":{"interface":[)"
            R"({"name":"Bundle-Ether1","config":{"name":"Bundle-Ether1","lacp-mode":"PASSIVE"}}]}}})");
}

TEST(ToOpenconfig, Result_HasTheFormatOfTheInputByDefault) {
  const std::string xml = R"(<lacp xmlns="urn:talvo-brin:yang:Talvo-Brin-QD-bundlemgr-cfg">)"
                          R"(<system-priority>7</system-priority></lacp>)";
  EXPECT_EQ(translated(xml), R"(<lacpxmlns="http://openconfig.net/yang/lacp"><config><system-priority>7)"
                             R"(</system-priority></config></lacp>)");
  EXPECT_EQ(translated(xml, {"--format", "json"}), R"({"openconfig-lacp:lacp":{"config":{"system-priority":7}}})");
}

TEST(ToOpenconfig, WithADevice_OnlyItsInterfacesAreTranslated) {
  const std::string native = native_interfaces(native_entry("Bundle-Ether1", R"("mode": "active")") + "," +
                                               native_entry("Bundle-Ether7", R"("mode": "active")"));
  EXPECT_THAT(translated(native),
              testing::AllOf(testing::HasSubstr("Bundle-Ether1"), testing::HasSubstr("Bundle-Ether7")));
  EXPECT_THAT(translated(native, with_device()),
              testing::AllOf(testing::HasSubstr("Bundle-Ether1"), testing::Not(testing::HasSubstr("Bundle-Ether7"))));
}

TEST(ToOpenconfig, InputWithoutMappedData_IsAnEmptyDocument) {
  EXPECT_EQ(translated("{}"), "{}");
  EXPECT_EQ(translated(R"({"Talvo-Brin-QD-ifmgr-cfg:global-interface-configuration": {"link-status": "disable"}})"),
            "{}");
}

TEST(ToOpenconfig, InvalidInput_IsRefused) {
  expect_refusal(to_openconfig(""), "empty");
  expect_refusal(to_openconfig("{"), "the document ends early");
  expect_refusal(to_openconfig(interface(R"("name": "a")")), "openconfig-lacp");
  expect_refusal(to_openconfig(native_interfaces(R"({"active": "act"})")), "interface-name");
  expect_refusal(to_openconfig(native_interfaces(native_entry("a", R"("mode": "sideways")"))), ":lacp/mode");
  expect_refusal(to_openconfig(native_interfaces(native_entry("a", R"("period": 200)"))),
                 "[interface-name='a']/Talvo-Brin-QD-bundlemgr-cfg:lacp/period: '200' has no OpenConfig form");
  expect_refusal(to_openconfig(R"({"Talvo-Brin-QD-bundlemgr-oper:lacp-bundles": {"bundles": {}}})"), "lacp-bundles");
  expect_refusal(to_openconfig(std::string(10'000, '[')), "nested deeper than 100 levels");
  expect_refusal(to_openconfig(native_interfaces(native_entry("a", R"("@": {"ietf-netconf:operation": "remove"})"))),
                 "lacp: carries the attribute 'operation', which data has not\n");
  EXPECT_EQ(to_openconfig("{}", {"--operation", "delete"}).status, 2);
  EXPECT_EQ(to_openconfig("{}", {"--strict"}).status, 2);
}

// Whatever of a value's forms has a way back: each combination of the leaves, set by a request and read back.
TEST(Pipe, SettingsOfAnInterface_AreTranslatedBack) {
  for (int choice = 0; choice < 3 * 2 * 2 * 2; ++choice) {
    std::string leaves = R"("name": "Bundle-Ether1")";
    leaves += choice % 2 == 0 ? "" : R"(, "interval": "SLOW")";
    leaves += choice / 2 % 3 == 0   ? ""
              : choice / 2 % 3 == 1 ? R"(, "lacp-mode": "ACTIVE")"
                                    : R"(, "lacp-mode": "PASSIVE")";
    leaves += choice / 6 % 2 == 0 ? "" : R"(, "system-id-mac": "0a:11:22:33:44:5f")";
    leaves += choice / 12 % 2 == 0 ? "" : R"(, "system-priority": 65535)";
    const std::string request = interface(R"("name": "Bundle-Ether1", "config": {)" + leaves + "}");
    const Outcome native = translate(request);
    expect_success(native);
    // Without any setting there is no LACP on the interface, which therefore is not shown.
    EXPECT_EQ(translated(native.out), choice == 0 ? "{}" : squeezed(request)) << native.out;
  }
}

TEST(Pipe, SystemPriority_IsTranslatedBack) {
  const std::string request = R"({"openconfig-lacp:lacp": {"config": {"system-priority": 5}}})";
  EXPECT_EQ(translated(translate(request).out), squeezed(request));
}

// A fast interval is written as one second and not as a number of milliseconds, which only some devices turn into a
// form that reads back.
TEST(Pipe, FastInterval_IsNotTranslatedBack) {
  const Outcome native = translate(interface(R"("name": "Bundle-Ether1", "config": {"interval": "FAST"})"));
  expect_success(native);
  expect_refusal(to_openconfig(native.out), "/period: '1' has no OpenConfig form");
}

}  // namespace
}  // namespace support
