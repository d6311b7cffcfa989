// The commands edit and delete on a device that works.
#include <sys/stat.h>

#include "tests/e2e/edit_program.h"

namespace support {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr const char* kBundle9 = "/lacp/interfaces/interface[name='Bundle-Ether9']";
constexpr const char* kBundle1 = "/lacp/interfaces/interface[name='Bundle-Ether1']";

class Device : public testing::Test, protected CopiedDevice {
 protected:
  // The native LACP container of the interface that was written last.
  [[nodiscard]] std::string last_lacp() const {
    const std::string text = read();
    return text.substr(text.rfind("\"Talvo-Brin-QD-bundlemgr-cfg:lacp\""));
  }

  void expect_unchanged(const Outcome& outcome, const std::string& part, int status = kFailed) const {
    expect_refusal(outcome, part, status);
    EXPECT_EQ(read(), before_);
    EXPECT_EQ(files().size(), 2U);
  }

  std::string before_ = read();
};

TEST_F(Device, Edit_IsKept) {
  const Outcome outcome = edit(config_of("Bundle-Ether9", R"("interval": "SLOW", "lacp-mode": "PASSIVE")"));
  expect_success(outcome);
  EXPECT_EQ(outcome.out, "");
  EXPECT_THAT(read(), AllOf(HasSubstr(R"("interface-name": "Bundle-Ether9",
        "interface-virtual": [null],
        "Talvo-Brin-QD-bundlemgr-cfg:lacp": {
          "mode": "passive",
          "period": 30000
        })"),
                            HasSubstr("to the core")));
  EXPECT_EQ(files().size(), 2U);
  expect_success(edit(config_of("Bundle-Ether9", R"("interval": "SLOW")"), {"--expect-no-change"}));
}

TEST_F(Device, XmlRequest_IsTaken) {
  expect_success(run({"edit", example("requests/create-interface.xml"), "-d", path()}));
  EXPECT_THAT(read(), HasSubstr("Bundle-Ether3"));
}

TEST_F(Device, EditWithoutAChange_DoesNotTouchTheFile) {
  struct stat one {};
  struct stat other {};
  ASSERT_EQ(stat((path() + "/running.json").c_str(), &one), 0);
  expect_success(edit(config_of("Bundle-Ether1", R"("lacp-mode": "ACTIVE")")));
  ASSERT_EQ(stat((path() + "/running.json").c_str(), &other), 0);
  EXPECT_EQ(one.st_ino, other.st_ino);
  EXPECT_EQ(one.st_mtim.tv_nsec, other.st_mtim.tv_nsec);
  EXPECT_EQ(read(), before_);
}

TEST_F(Device, DryRun_ShowsEditAndDifferenceAndChangesNothing) {
  const std::string request = config_of("Bundle-Ether2", R"("interval": "FAST")");
  const Outcome outcome = edit(request, {"--dry-run"});
  expect_success(outcome);
  const std::string translated = translate(request, {"-d", path()}).out;
  EXPECT_EQ(outcome.out.substr(0, translated.size()), translated);
  EXPECT_THAT(outcome.out.substr(translated.size()), AllOf(HasSubstr(R"("period": true)"), HasSubstr(R"("@period": {
            "yang:operation": "replace")"),
                                                           HasSubstr(R"("yang:orig-value": "30000")")));
  EXPECT_EQ(read(), before_);
}

TEST_F(Device, DryRunWithoutAChange_ShowsAnEmptyDifference) {
  const std::string request = config_of("Bundle-Ether1", R"("lacp-mode": "ACTIVE")");
  const Outcome outcome = edit(request, {"--dry-run"});
  expect_success(outcome);
  EXPECT_EQ(outcome.out, translate(request, {"-d", path()}).out + "{}\n");
}

TEST_F(Device, DryRunInXml_PrintsXml) {
  const Outcome outcome = edit(config_of("Bundle-Ether2", R"("interval": "FAST")"), {"--dry-run", "--format", "xml"});
  expect_success(outcome);
  EXPECT_THAT(outcome.out, AllOf(HasSubstr("<period>1</period>"), HasSubstr("yang:operation=\"replace\""),
                                 HasSubstr(">true</period>")));
}

TEST_F(Device, UnexpectedChange_IsReportedAndNotMade) {
  expect_unchanged(edit(config_of("Bundle-Ether2", R"("lacp-mode": "ACTIVE")"), {"--expect-no-change"}),
                   path() +
                       ": the edit would change /Talvo-Brin-QD-ifmgr-cfg:interface-configurations/"
                       "interface-configuration[active='act'][interface-name='Bundle-Ether2']/"
                       "Talvo-Brin-QD-bundlemgr-cfg:lacp/mode");
}

TEST_F(Device, FastIntervalOnACanonicalDevice_IsKeptAsTrue) {
  expect_success(edit(config_of("Bundle-Ether9", R"("interval": "FAST")")));
  EXPECT_THAT(last_lacp(), HasSubstr("\"period\": true"));
  expect_success(edit(config_of("Bundle-Ether9", R"("interval": "FAST")"), {"--expect-no-change"}));
}

TEST_F(Device, KeepsAPeriodOfOneAsWritten_WarnsThatItCannotBeRead) {
  write(R"({"oclacp-platform:platform": {"router-type": 7}})", "platform.json");
  const std::string fast = config_of("Bundle-Ether9", R"("interval": "FAST", "lacp-mode": "ACTIVE")");
  const std::string reason =
      "native /Talvo-Brin-QD-ifmgr-cfg:interface-configurations/interface-configuration[active='act']"
      "[interface-name='Bundle-Ether9']/Talvo-Brin-QD-bundlemgr-cfg:lacp/period: '1' has no OpenConfig form, which "
      "only "
      "one second (true or 1000) and thirty (30000) have (error tag 'interval', code 0xaaf2fe00); after this edit the "
      "configuration cannot be read\n";
  expect_unchanged(edit(fast, {"--strict"}), "oclacp: " + reason);
  for (const char* dry_run : {"--dry-run", ""}) {
    const Outcome outcome =
        edit(fast, dry_run[0] == '\0' ? std::vector<std::string>() : std::vector<std::string>{dry_run});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "oclacp: warning: " + reason);
  }
  EXPECT_THAT(last_lacp(), HasSubstr("\"period\": 1\n"));
  expect_refusal(run({"get", "-d", path()}), "'1' has no OpenConfig form");
  // What the edit does not touch is not told again.
  expect_success(edit(config_of("Bundle-Ether9", R"("interval": "FAST")"), {"--expect-no-change"}));
  expect_success(edit(config_of("Bundle-Ether9", R"("lacp-mode": "PASSIVE")"), {"--strict"}));
  expect_success(edit(config_of("Bundle-Ether9", R"("interval": "SLOW")"), {"--strict"}));
  expect_success(run({"get", "-d", path()}));
}

TEST_F(Device, DeleteOfALeaf_RemovesIt) {
  expect_success(erase(std::string(kBundle1) + "/config/interval"));
  EXPECT_THAT(read(), AllOf(Not(HasSubstr("\"period\": 1000")), HasSubstr("00:11:22:33:44:55")));
  EXPECT_THAT(erase(std::string(kBundle1) + "/config/interval").err,
              HasSubstr("native /Talvo-Brin-QD-ifmgr-cfg:interface-configurations/interface-configuration[active='act']"
                        "[interface-name='Bundle-Ether1']/Talvo-Brin-QD-bundlemgr-cfg:lacp/period: cannot be deleted, "
                        "the device has no such configuration"));
}

TEST_F(Device, DeleteOfAnInterface_KeepsItsOtherConfiguration) {
  expect_success(erase("/openconfig-lacp:lacp/interfaces/interface[name='Bundle-Ether1']"));
  EXPECT_THAT(read(),
              AllOf(HasSubstr("to the core"), Not(HasSubstr("00:11:22:33:44:55")), HasSubstr("\"mode\": \"passive\"")));
}

TEST_F(Device, DeleteOfLacp_RemovesAllLacp) {
  expect_success(erase("/lacp"));
  EXPECT_THAT(read(), AllOf(Not(HasSubstr("bundlemgr-cfg:lacp")), HasSubstr("to the core"), HasSubstr("bundle-id")));
  expect_success(erase("/lacp", {"--expect-no-change"}));
}

TEST_F(Device, DeleteOfAnInterface_KeepsTheOneWhoseNameIsAPrefix) {
  expect_success(edit(config_of("Bundle-Ether10", R"("lacp-mode": "PASSIVE")")));
  expect_success(erase("/lacp/interfaces/interface[name='Bundle-Ether10']"));
  EXPECT_THAT(read(), HasSubstr("00:11:22:33:44:55"));
  before_ = read();
  expect_unchanged(erase("/lacp/interfaces/interface[name='Bundle-Ether10']"),
                   "/interface[name='Bundle-Ether10']: nothing to delete", kDataMissing);
}

TEST_F(Device, DeleteOfAnInterfaceWithSlashes_RemovesIt) {
  const std::string port = "/lacp/interfaces/interface[name='GigabitEthernet0/0/0/4']";
  expect_success(edit(config_of("GigabitEthernet0/0/0/4", R"("lacp-mode": "ACTIVE")")));
  const std::string with_lacp = read();
  ASSERT_NE(with_lacp, before_);
  expect_success(erase(port, {"--strict"}));
  EXPECT_EQ(squeezed(read()), squeezed(before_));
  before_ = read();
  write(with_lacp);
  const std::string remove = R"("@": {"ietf-netconf:operation": "remove"}, "name": "GigabitEthernet0/0/0/4")";
  expect_success(edit(interface(remove + R"(, "config": {"name": "GigabitEthernet0/0/0/4"})")));
  EXPECT_EQ(read(), before_);
  expect_success(edit(interface(remove), {"--expect-no-change"}));
  expect_unchanged(erase(port), "nothing to delete", kDataMissing);
}

TEST_F(Device, InterfacesThatDifferInSlashes_AreDeletedSeparately) {
  const std::string port = "GigabitEthernet0/0/0/4";
  const std::string other = "GigabitEthernet0_0_0_4";
  expect_success(edit(config_of(port, R"("lacp-mode": "ACTIVE")")));
  const std::string with_port = read();
  expect_success(edit(config_of(other, R"("lacp-mode": "PASSIVE")")));
  const std::string with_both = read();
  expect_success(erase("/lacp/interfaces/interface[name='" + other + "']"));
  EXPECT_EQ(edit(config_of(port, R"("lacp-mode": "ACTIVE")"), {"--expect-no-change"}).status, 0);
  EXPECT_EQ(edit(config_of(other, R"("lacp-mode": "PASSIVE")"), {"--expect-no-change"}).status, 1);
  write(with_both);
  expect_success(erase("/lacp/interfaces/interface[name='" + port + "']"));
  EXPECT_EQ(edit(config_of(port, R"("lacp-mode": "ACTIVE")"), {"--expect-no-change"}).status, 1);
  EXPECT_EQ(edit(config_of(other, R"("lacp-mode": "PASSIVE")"), {"--expect-no-change"}).status, 0);
  write(with_both);
  expect_success(erase("/lacp"));
  EXPECT_THAT(read(), Not(HasSubstr("bundlemgr-cfg:lacp")));
}

TEST_F(Device, CreateOfAPresentNode_IsRefused) {
  const std::string create = R"("@": {"ietf-netconf:operation": "create"})";
  const std::string there = ": cannot be created, the device has it already";
  const auto lacp = [](const std::string& content) { return R"({"openconfig-lacp:lacp": {)" + content + "}}"; };
  const auto entry = [&](const std::string& name) {
    return interface(create + R"(, "name": ")" + name + R"(", "config": {"interval": "SLOW"})");
  };
  const auto config = [&](const std::string& name) {
    return interface(R"("name": ")" + name + R"(", "config": {)" + create + R"(, "interval": "SLOW"})");
  };
  expect_unchanged(edit(lacp(create)), "/openconfig-lacp:lacp" + there, kDataExists);
  expect_unchanged(edit(lacp(R"("config": {)" + create + "}")), "/openconfig-lacp:lacp/config" + there, kDataExists);
  expect_unchanged(edit(lacp(R"("interfaces": {)" + create + "}")), "/interfaces" + there, kDataExists);
  expect_unchanged(edit(entry("Bundle-Ether1")), "/interface[name='Bundle-Ether1']" + there, kDataExists);
  expect_unchanged(edit(config("Bundle-Ether1")), "/interface[name='Bundle-Ether1']/config" + there, kDataExists);
  // An interface without LACP is not an entry.
  expect_success(edit(entry("GigabitEthernet0/0/0/4")));
  expect_success(edit(config("Bundle-Ether9")));
  before_ = read();
  expect_unchanged(edit(entry("Bundle-Ether9")), there, kDataExists);
  expect_success(erase("/lacp"));
  expect_success(edit(lacp(create + R"(, "config": {"system-priority": 5})")));
}

TEST_F(Device, DeleteOfAnAbsentNode_IsRefused) {
  expect_unchanged(erase(kBundle9), "nothing to delete", kDataMissing);
  expect_unchanged(erase(std::string(kBundle9) + "/config/interval"), "cannot be deleted", kDataMissing);
  expect_unchanged(erase("/lacp/nonsense"), "/openconfig-lacp:lacp/nonsense: no such node");
  expect_unchanged(erase("colour"), "/colour: no such node");
  expect_unchanged(erase("//"), "the path '//': names no node");
  expect_unchanged(erase(std::string(kBundle1) + "/name"), "a list key cannot be deleted");
  expect_unchanged(erase(std::string(kBundle1) + "/config/name"), "/config/name: goes with its list entry");
  expect_unchanged(erase("/lacp/interfaces/interface"), "the list entry names no keys");
}

TEST_F(Device, RemoveOnAnAbsentInterface_ChangesNothing) {
  expect_success(edit(config_of("Bundle-Ether9", R"("interval": [null],
                                "@interval": {"ietf-netconf:operation": "remove"})"),
                      {"--expect-no-change"}));
  expect_success(erase(std::string(kBundle9) + "/config", {"--expect-no-change"}));
}

TEST_F(Device, ReplaceOfAnInterface_LeavesOnlyItsContent) {
  expect_success(run({"edit", example("requests/replace-interface.json"), "-d", path()}));
  EXPECT_THAT(read(), AllOf(HasSubstr(R"("Talvo-Brin-QD-bundlemgr-cfg:lacp": {
          "mode": "passive",
          "period": 30000
        })"),
                            HasSubstr("to the core"), Not(HasSubstr("00:11:22:33:44:55"))));
}

TEST_F(Device, ReplaceOfAnInterfaceByNothing_RemovesItsLacp) {
  expect_success(edit(interface(R"("@": {"ietf-netconf:operation": "replace"}, "name": "Bundle-Ether1")")));
  EXPECT_THAT(read(),
              AllOf(HasSubstr("to the core"), Not(HasSubstr("00:11:22:33:44:55")), HasSubstr("\"mode\": \"passive\"")));
}

TEST_F(Device, ReplaceOfLacp_LeavesOnlyItsContent) {
  expect_success(run({"edit", example("requests/replace-lacp.json"), "-d", path()}));
  EXPECT_THAT(read(), AllOf(HasSubstr("\"system-priority\": 32768"), HasSubstr(R"("Talvo-Brin-QD-bundlemgr-cfg:lacp": {
          "mode": "active"
        })"),
                            Not(HasSubstr("\"mode\": \"passive\"\n")), Not(HasSubstr("00:11:22:33:44:55"))));
  expect_success(edit(config_of("Bundle-Ether1", R"("lacp-mode": "PASSIVE")"), {"--operation", "replace"}));
  EXPECT_THAT(read(), Not(HasSubstr("\"mode\": \"active\"")));
}

TEST_F(Device, Strict_RefusesNodesThatWouldBeIgnored) {
  const std::string request = interface(R"("@": {"ietf-netconf:operation": "delete"}, "name": "Bundle-Ether1",
                                        "config": {"name": "Bundle-Ether1"})");
  expect_unchanged(edit(request, {"--strict"}),
                   "/openconfig-lacp:lacp/interfaces/interface[name='Bundle-Ether1']/config: would be ignored");
  expect_refusal(translate(request, {"--strict", "-d", path()}), "/config: would be ignored");
  expect_success(edit(request));
  expect_success(edit(config_of("Bundle-Ether9", R"("interval": "FAST", "lacp-mode": "ACTIVE", "system-priority": 1,
                                                 "system-id-mac": "00:11:22:33:44:77")"),
                      {"--strict"}));
  expect_success(run({"edit", example("requests/replace-lacp.json"), "--strict", "-d", path()}));
  expect_success(erase("/lacp", {"--strict"}));
}

TEST_F(Device, RefusedRequest_ChangesNothing) {
  expect_unchanged(edit("{"), "line 1");
  expect_unchanged(edit(config_of("Bundle-Ether1", R"("interval": "MEDIUM")")), "MEDIUM");
  expect_unchanged(run({"edit", example("bad/two-keys.xml"), "-d", path()}), "key");
  expect_unchanged(run({"edit", "/no/such", "-d", path()}), "/no/such: ");
  expect_unchanged(edit(config_of("Bundle-Ether1", R"("interval": "FAST",
                                  "@interval": {"ietf-netconf:operation": "create"})")),
                   "period: is there already", kDataExists);
}

TEST_F(Device, Trace_ShowsTheHandlers) {
  const Outcome outcome = edit(config_of("Bundle-Ether9", R"("interval": "FAST")"), {"--trace"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "");
  EXPECT_THAT(outcome.err, HasSubstr("oc2qd_cfginterval"));
}

TEST_F(Device, MissingDeviceOrWrongOptions_IsAUsageError) {
  EXPECT_EQ(run({"edit", "-"}).status, 2);
  EXPECT_EQ(run({"delete", "/lacp"}).status, 2);
  EXPECT_EQ(run({"delete", "-d", path()}).status, 2);
  EXPECT_EQ(edit("{}", {"--dry-run", "--expect-no-change"}).status, 2);
  EXPECT_EQ(edit("{}", {"--format", "xml"}).status, 2);
  EXPECT_EQ(read(), before_);
}

}  // namespace
}  // namespace support
