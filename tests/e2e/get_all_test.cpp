// Reading a device's operational state as OpenConfig.
#include <libyang/libyang.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <set>
#include <sstream>
#include <thread>

#include "tests/e2e/device_folder.h"
#include "tests/e2e/program.h"
#include "tests/support/locations.h"

namespace support {
namespace {

const std::string kBundle1 = "/lacp/interfaces/interface[name='Bundle-Ether1']";

Outcome get_all(const std::string& folder, const std::vector<std::string>& further_arguments = {}) {
  std::vector<std::string> arguments = {"get", "--all", "-d", folder};
  arguments.insert(arguments.end(), further_arguments.begin(), further_arguments.end());
  return run(arguments);
}

// The result of a get that goes well, without blanks.
std::string got(const std::vector<std::string>& further_arguments) {
  const Outcome result = get_all(example("device"), further_arguments);
  expect_success(result);
  return squeezed(result.out);
}

std::string interfaces(const std::string& entries) {
  return R"({"openconfig-lacp:lacp":{"interfaces":{"interface":[)" + entries + "]}}}";
}

std::string text_of(const std::string& file) {
  std::ifstream stream(file);
  EXPECT_TRUE(stream.good()) << file;
  return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(GetAll, Bundle_ShowsConfigurationAndState) {
  EXPECT_THAT(got({kBundle1}),
              testing::StartsWith(
                  R"({"openconfig-lacp:lacp":{"interfaces":{"interface":[{"name":"Bundle-Ether1",)"
                  R"("config":{"name":"Bundle-Ether1","interval":"FAST","lacp-mode":"ACTIVE",)"
                  R"("system-id-mac":"00:11:22:33:44:55","system-priority":100},)"
                  R"("state":{"name":"Bundle-Ether1","lacp-mode":"ACTIVE","system-id-mac":"00:11:22:33:44:55",)"
                  R"("system-priority":100},"members":{"member":[{"interface":"GigabitEthernet0/0/0/0","state":{)"
                  R"("interface":"GigabitEthernet0/0/0/0","activity":"ACTIVE","timeout":"SHORT",)"
                  R"("synchronization":"IN_SYNC","aggregatable":true,"collecting":true,"distributing":true,)"
                  R"("system-id":"00:11:22:33:44:55","oper-key":1,"partner-id":"02:00:5e:10:20:30","partner-key":7,)"
                  R"("port-num":1,"partner-port-num":3,"last-change":"1763640000000000000","counters":{)"
                  R"("lacp-in-pkts":"86412","lacp-out-pkts":"86398","lacp-rx-errors":"0","lacp-unknown-errors":"0",)"
                  R"("lacp-errors":"0","lacp-timeout-transitions":"1"}}},)"));
}

TEST(GetAll, Path_ReadsItsSubtree) {
  EXPECT_EQ(got({"/lacp/state"}), R"({"openconfig-lacp:lacp":{"state":{"system-priority":4096}}})");
  EXPECT_EQ(got({"/lacp/config"}), R"({"openconfig-lacp:lacp":{"config":{"system-priority":4096}}})");
  EXPECT_EQ(got({"/lacp/interfaces/interface/state/lacp-mode"}),
            interfaces(R"({"name":"Bundle-Ether1","state":{"lacp-mode":"ACTIVE"}},)"
                       R"({"name":"Bundle-Ether2","state":{"lacp-mode":"PASSIVE"}})"));
  EXPECT_EQ(got({"/lacp/interfaces/interface[name='Bundle-Ether2']/members/"
                 "member[interface='GigabitEthernet0/0/0/3']/state/counters/lacp-errors"}),
            interfaces(R"({"name":"Bundle-Ether2","members":{"member":[{"interface":"GigabitEthernet0/0/0/3",)"
                       R"("state":{"counters":{"lacp-errors":"3"}}}]}})"));
}

TEST(GetAll, PathWithAValue_ReadsTheMembersThatHoldIt) {
  EXPECT_THAT(got({"/lacp/interfaces/interface/members/member/state/synchronization[.='OUT_SYNC']"}),
              testing::AllOf(testing::HasSubstr("GigabitEthernet0/0/0/3"),
                             testing::Not(testing::HasSubstr("GigabitEthernet0/0/0/2"))));
}

TEST(GetAll, LeafWithoutASource_IsRefused) {
  expect_refusal(get_all(example("device"), {kBundle1 + "/state/interval"}),
                 "/state/interval: not supported by this mapping (error tag 'interval'");
}

TEST(GetAll, FormatXml_PrintsXml) {
  EXPECT_EQ(
      got({"--format", "xml", "/lacp/state"}),
      R"(<lacpxmlns="http://openconfig.net/yang/lacp"><state><system-priority>4096</system-priority></state></lacp>)");
}

TEST(GetAll, FormatTable_PrintsTheTableOfTheReadme) {
  const Outcome result = get_all(example("device"), {"--format", "table"});
  expect_success(result);
  EXPECT_THAT(result.out, testing::Not(testing::HasSubstr("\x1b")));
  // As a block in Markdown.
  std::string block;
  std::istringstream lines(result.out);
  for (std::string line; std::getline(lines, line);) {
    EXPECT_LE(line.size(), 80U) << line;
    block += (line.empty() ? "" : "    " + line) + "\n";
  }
  EXPECT_THAT(text_of(example("../README.md")), testing::HasSubstr("\n" + block));
}

TEST(GetAll, Terminal_HasColoursUnlessNoColorIsSet) {
  const std::vector<std::string> arguments = {"get", "--all", "--format", "table", "-d", example("device")};
  EXPECT_THAT(printed_on_terminal(arguments), testing::HasSubstr("\x1b[31mOUT_SYNC\x1b[0m"));
  ASSERT_EQ(setenv("NO_COLOR", "1", 1), 0);
  EXPECT_THAT(printed_on_terminal(arguments), testing::Not(testing::HasSubstr("\x1b")));
  ASSERT_EQ(unsetenv("NO_COLOR"), 0);
}

TEST(GetAll, Trace_ShowsTheWalkersOfAllNativeRoots) {
  const Outcome result = get_all(example("device"), {"--trace"});
  EXPECT_EQ(result.status, 0);
  for (const char* walker :
       {"ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations",
        "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles", "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp",
        "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata"}) {
    EXPECT_THAT(result.err, testing::HasSubstr(std::string("\n") + walker + "\n"));
  }
}

struct FreeContext {
  void operator()(ly_ctx* context) const { ly_ctx_destroy(context); }
};

TEST(GetAll, Answer_IsValidAgainstTheSchema) {
  ly_ctx* made = nullptr;
  ASSERT_EQ(ly_ctx_new(location::kSchemas, LY_CTX_NO_YANGLIBRARY, &made), LY_SUCCESS);
  const std::unique_ptr<ly_ctx, FreeContext> context(made);
  ASSERT_NE(ly_ctx_load_module(made, "openconfig-lacp", nullptr, nullptr), nullptr);
  for (const char* format : {"json", "xml"}) {
    const Outcome result = get_all(example("device"), {"--format", format});
    expect_success(result);
    lyd_node* data = nullptr;
    EXPECT_EQ(lyd_parse_data_mem(made, result.out.c_str(), std::string(format) == "xml" ? LYD_XML : LYD_JSON,
                                 LYD_PARSE_STRICT, LYD_VALIDATE_PRESENT, &data),
              LY_SUCCESS)
        << ly_errmsg(made);
    EXPECT_NE(data, nullptr);
    lyd_free_all(data);
  }
}

// ---- A device of the test's own

std::string bundle(const std::string& name, const std::string& content) {
  return R"({"bundle-interface": ")" + name + "\"" + (content.empty() ? "" : ", " + content) + "}";
}

std::string with_member(const std::string& name, const std::string& content) {
  return R"("members": {"member": [{"member-interface": ")" + name + "\", " + content + "}]}";
}

class GetAllFrom : public DeviceFolderTest {
 protected:
  void SetUp() override {
    write_running(native_entry("Bundle-Ether1", R"("mode": "active")") + "," +
                  native_entry("Bundle-Ether1.5", R"("mode": "active")"));
  }

  void write_bundles(const std::string& bundles) const {
    write_file("operational.json",
               R"({"Talvo-Brin-QD-bundlemgr-oper:lacp-bundles": {"bundles": {"bundle": [)" + bundles + "]}}}");
  }

  [[nodiscard]] Outcome get(const std::vector<std::string>& further_arguments = {}) const {
    return get_all(folder(), further_arguments);
  }
};

TEST_F(GetAllFrom, SubInterface_IsLeftOutWithItsMembers) {
  write_bundles(bundle("Bundle-Ether1", with_member("p1", R"("link-data": {"actor-port-id": 1})")) + "," +
                bundle("Bundle-Ether1.5", with_member("p5", R"("link-data": {"actor-port-id": 5})")) + "," +
                bundle("Bundle-Ether2", with_member("p2", R"("link-data": {"actor-port-id": 2})")));
  const Outcome result = get({"/lacp/interfaces/interface/members"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err,
            "oclacp: omitted 4 leaves: the native entry has no OpenConfig list entry (e.g. sub-interface bundles)\n");
  EXPECT_EQ(squeezed(result.out),
            interfaces(R"({"name":"Bundle-Ether1","members":{"member":[{"interface":"p1","state":{"interface":"p1",)"
                       R"("port-num":1}}]}},{"name":"Bundle-Ether2","members":{"member":[{"interface":"p2",)"
                       R"("state":{"interface":"p2","port-num":2}}]}})"));
}

TEST_F(GetAllFrom, ModeWithoutAnOpenConfigForm_IsLeftOutAndReported) {
  write_bundles(bundle("Bundle-Ether1", R"("data": {"applied-lacp-mode": "bmd-mode-off"})"));
  const Outcome result = get({kBundle1 + "/state"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err,
            "oclacp: /openconfig-lacp:lacp/interfaces/interface[name='Bundle-Ether1']/state/lacp-mode: omitted: "
            "the native value has no OpenConfig equivalent\n");
  EXPECT_EQ(squeezed(result.out), interfaces(R"({"name":"Bundle-Ether1","state":{"name":"Bundle-Ether1"}})"));
}

TEST_F(GetAllFrom, ManyLeavesWithoutAForm_TenAreNamed) {
  std::string entries;
  std::string bundles;
  for (int number = 0; number < 12; ++number) {
    const std::string name = "b" + std::to_string(number);
    entries += (number == 0 ? "" : ",") + native_entry(name, R"("mode": "active")");
    bundles += (number == 0 ? "" : ",") + bundle(name, R"("data": {"applied-lacp-mode": "bmd-mode-off"})");
  }
  write_running(entries);
  write_bundles(bundles);
  const Outcome result = get();
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 11);
  EXPECT_THAT(result.err, testing::EndsWith("oclacp: left out 2 more leaves for the same reason\n"));
}

TEST_F(GetAllFrom, InvalidOperationalData_IsRefusedWithFileAndPath) {
  const std::string file = "oclacp: " + folder() + "/operational.json: ";
  for (const char* state : {"256", "-1", "\"up\"", "1.5", "[null]"}) {
    write_bundles(
        bundle("Bundle-Ether1", with_member("p", std::string(R"("link-data": {"actor-port-state": )") + state + "}")));
    const Outcome result = get();
    expect_refusal(result, "actor-port-state");
    EXPECT_THAT(result.err, testing::StartsWith(file));
  }
  write_bundles(R"({"data": {}})");
  expect_refusal(get(), "bundle-interface");
  write_bundles(
      bundle("Bundle-Ether1", R"("members": {"member": [{"member-interface": "p"}, {"member-interface": "p"}]})"));
  expect_refusal(get(),
                 "/bundles/bundle[bundle-interface='Bundle-Ether1']/members/member[member-interface='p']: Duplicate");
  write_bundles(bundle("a", "") + "," + bundle("a", ""));
  expect_refusal(get(), "lacp-bundles/bundles/bundle[bundle-interface='a']: Duplicate");
  write_bundles(bundle(std::string(300, 'x'), ""));
  expect_refusal(get(), "bundle-interface");
  write_bundles(bundle("a", R"("colour": "red")"));
  expect_refusal(get(), "colour");
  write_file("operational.json", "{");
  expect_refusal(get(), folder() + "/operational.json");
  write_file("operational.json", "");
  expect_refusal(get(), folder() + "/operational.json");
}

TEST_F(GetAllFrom, MissingOperationalData_IsRefusedOnlyInReadsOfState) {
  expect_refusal(get(), folder() + "/operational.json: No such file or directory");
  expect_success(get({"/lacp/config"}));
  expect_success(run({"get", "--config", "-d", folder()}));
}

TEST_F(GetAllFrom, KeepGoing_LeavesOutWhatCannotBeTranslated) {
  write_running(native_entry("Bundle-Ether1", R"("period": 200)") + "," +
                native_entry("Bundle-Ether2", R"("mode": "active")"));
  write_bundles(bundle("Bundle-Ether1", "") + "," + bundle("Bundle-Ether2", ""));
  const Outcome result = get({"--keep-going", "/lacp/interfaces/interface/state"});
  expect_success(result);
  const Outcome all = get({"--keep-going"});
  EXPECT_EQ(all.status, 1);
  EXPECT_THAT(all.err, testing::HasSubstr("[interface-name='Bundle-Ether1']"));
  EXPECT_EQ(squeezed(all.out),
            interfaces(R"({"name":"Bundle-Ether2","config":{"name":"Bundle-Ether2","lacp-mode":"ACTIVE"},)"
                       R"("state":{"name":"Bundle-Ether2"}},{"name":"Bundle-Ether1","config":{"name":"Bundle-Ether1"},)"
                       R"("state":{"name":"Bundle-Ether1"}})"));
}

TEST_F(GetAllFrom, StateReplacedMeanwhile_IsTheOldOrTheNew) {
  const auto write_all = [this](int value) {
    std::string bundles;
    for (int number = 0; number < 50; ++number) {
      bundles += (number == 0 ? "" : ",") +
                 bundle("b" + std::to_string(number),
                        with_member("p", R"("counters": {"lacpd-us-received": ")" + std::to_string(value) + "\"}"));
    }
    write_file("operational.new",
               R"({"Talvo-Brin-QD-bundlemgr-oper:lacp-bundles": {"bundles": {"bundle": [)" + bundles + "]}}}");
    std::filesystem::rename(folder() + "/operational.new", folder() + "/operational.json");
  };
  write_all(0);
  std::atomic<bool> is_ending = false;
  std::thread writer([&] {
    for (int value = 1; !is_ending; ++value) {
      write_all(value);
    }
  });
  for (int turn = 0; turn < 10; ++turn) {
    const Outcome result = get();
    expect_success(result);
    std::set<std::string> values;
    const std::string text = squeezed(result.out);
    const std::string leaf = "\"lacp-in-pkts\":";
    size_t count = 0;
    for (size_t at = text.find(leaf); at != std::string::npos; at = text.find(leaf, at + 1), ++count) {
      values.insert(text.substr(at, text.find('}', at) - at));
    }
    EXPECT_EQ(count, 50U);
    EXPECT_EQ(values.size(), 1U);
  }
  is_ending = true;
  writer.join();
}

TEST_F(GetAllFrom, Watch_ShowsRatesUntilInterrupted) {
  const auto write_counter = [this](int value) {
    write_file("operational.new", R"({"Talvo-Brin-QD-bundlemgr-oper:lacp-bundles": {"bundles": {"bundle": [)" +
                                      bundle("b", with_member("p", R"("counters": {"lacpd-us-received": ")" +
                                                                       std::to_string(value) + "\"}")) +
                                      "]}}}");
    std::filesystem::rename(folder() + "/operational.new", folder() + "/operational.json");
  };
  write_counter(1000);
  Process watch({"get", "--all", "--watch", "0.2", "-d", folder()});
  EXPECT_TRUE(watch.has_printed("per second", std::chrono::seconds(20)));
  write_counter(3000);
  EXPECT_TRUE(watch.has_printed("  p       3000\n", std::chrono::seconds(20)));
  const Outcome result = watch.end(SIGINT);
  expect_success(result);
  EXPECT_THAT(result.out, testing::HasSubstr("  p       1000\n\n  per second   in\n  p           0.0\n"));
  EXPECT_THAT(result.out, testing::ContainsRegex("  p       3000\n\n  per second +in\n  p +[1-9][0-9]*\\.[0-9]\n"));
}

TEST_F(GetAllFrom, ReadOfAnotherInterface_DoesNotReportTheSubInterface) {
  write_bundles(bundle("Bundle-Ether1", "") + "," + bundle("Bundle-Ether1.5", R"("data": {})"));
  expect_success(get({kBundle1}));
}

TEST_F(GetAllFrom, ConfigurationInOperationalData_IsRefused) {
  write_file("operational.json", R"({"Talvo-Brin-QD-bundlemgr-cfg:lacp": {"system-priority": 5}})");
  expect_refusal(get(), "/operational.json: /Talvo-Brin-QD-bundlemgr-cfg:lacp: is configuration");
}

TEST_F(GetAllFrom, MatchOfANonCanonicalNumber_ComparesValues) {
  write_file("operational.json", R"({"Talvo-Brin-QD-bundlemgr-oper:lacp-data": {"global": {"system-id": {"system-id": {
                                      "system-prio": 4096}}}}})");
  const Outcome result = get({"/lacp/state/system-priority[.='04096']"});
  expect_success(result);
  EXPECT_EQ(squeezed(result.out), R"({"openconfig-lacp:lacp":{"state":{"system-priority":4096}}})");
}

TEST_F(GetAllFrom, AnswerToAPath_FitsTheModel) {
  ly_ctx* made = nullptr;
  ASSERT_EQ(ly_ctx_new(location::kSchemas, LY_CTX_NO_YANGLIBRARY, &made), LY_SUCCESS);
  const std::unique_ptr<ly_ctx, FreeContext> context(made);
  ASSERT_NE(ly_ctx_load_module(made, "openconfig-lacp", nullptr, nullptr), nullptr);
  for (const char* path : {"/lacp/interfaces/interface/state", "/lacp/interfaces/interface/name",
                           "/lacp/interfaces/interface/members/member/state/counters"}) {
    const Outcome result = get_all(example("device"), {path});
    expect_success(result);
    lyd_node* data = nullptr;
    EXPECT_EQ(lyd_parse_data_mem(made, result.out.c_str(), LYD_JSON, LYD_PARSE_STRICT | LYD_PARSE_ONLY, 0, &data),
              LY_SUCCESS)
        << path << ": " << ly_errmsg(made);
    EXPECT_NE(data, nullptr) << path;
    lyd_free_all(data);
  }
}

TEST(GetAll, WatchWithoutStateOrTable_IsAUsageError) {
  for (const char* seconds : {"nan", "inf", "-1", "1x"}) {
    EXPECT_EQ(get_all(example("device"), {"--watch", seconds}).status, 2) << seconds;
  }
  EXPECT_EQ(run({"get", "-d", example("device"), "--watch", "1"}).status, 2);
  EXPECT_EQ(get_all(example("device"), {"--watch", "0"}).status, 2);
  EXPECT_EQ(get_all(example("device"), {"--watch", "1", "--format", "json"}).status, 2);
  EXPECT_EQ(get_all(example("device"), {"--config"}).status, 2);
  expect_refusal(get_all("/no/such", {"--watch", "1"}), "/no/such: no such device directory");
}

}  // namespace
}  // namespace support
