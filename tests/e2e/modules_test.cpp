// Several mapping modules in one program: the clock of tests/support/clock_module beside the one that is shipped.
#include <filesystem>
#include <fstream>

#include "tests/e2e/device_folder.h"
#include "tests/e2e/program.h"
#include "tests/support/locations.h"

namespace support {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr const char* kZone = R"({"example-clock:clock": {"config": {"zone": "UTC"}}})";

class ModulesTest : public DeviceFolderTest {
 protected:
  ModulesTest() {
    write_running(R"({"active": "act", "interface-name": "Bundle-Ether1", "interface-virtual": [null],
                      "Talvo-Brin-QD-bundlemgr-cfg:lacp": {"mode": "active"}})");
    write_file("operational.json", R"({"example-native-time:time-data": {"drift": 7}})");
  }

  // A run of the program with both modules.
  static Outcome run_with_both(std::vector<std::string> arguments, const std::string& input = "") {
    for (const char* module : {location::kModule, location::kClockModule}) {
      arguments.insert(arguments.end(), {"--module", module});
    }
    return run(arguments, input);
  }
  [[nodiscard]] Outcome edit(const std::string& request) const {
    return run_with_both({"edit", "-", "-d", folder()}, request);
  }
  [[nodiscard]] std::string got(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), "get");
    arguments.insert(arguments.end(), {"-d", folder()});
    const Outcome outcome = run_with_both(arguments);
    expect_success(outcome);
    return squeezed(outcome.out);
  }
};

TEST_F(ModulesTest, EditsOfEach_ChangeOneDevice) {
  expect_success(edit(kZone));
  expect_success(
      edit(interface(R"("name": "Bundle-Ether1", "config": {"name": "Bundle-Ether1", "interval": "SLOW"})")));
  EXPECT_THAT(squeezed(read_file("running.json")),
              testing::AllOf(HasSubstr(R"("example-native-time:time":{"timezone":"UTC"})"),
                             HasSubstr(R"(lacp":{"mode":"active","period":30000})")));
  expect_success(run_with_both({"delete", "/clock/config/zone", "-d", folder()}));
  EXPECT_THAT(read_file("running.json"), Not(HasSubstr("timezone")));
  EXPECT_THAT(read_file("running.json"), HasSubstr("30000"));
}

TEST_F(ModulesTest, ReadOfPathsOfBoth_IsOneAnswer) {
  expect_success(edit(kZone));
  const std::string lacp = R"("openconfig-lacp:lacp":{"interfaces":{"interface":[{"name":"Bundle-Ether1"})";
  EXPECT_EQ(got({"/clock", "--all"}),
            R"({"example-clock:clock":{"config":{"zone":"UTC"},"state":{"zone":"UTC","drift":7}}})");
  const std::string both = got({"/lacp/interfaces/interface/name", "/clock/state/drift", "--all"});
  EXPECT_THAT(both,
              testing::AllOf(HasSubstr(lacp.substr(0, lacp.size() - 1)),
                             HasSubstr(R"("example-clock:clock":{"state":{"drift":7}})"), Not(HasSubstr("zone"))));
}

TEST_F(ModulesTest, NativeDataOfBoth_IsTranslatedAtOnce) {
  const Outcome outcome = run_with_both({"translate", "-", "--to", "openconfig"}, R"({
      "example-native-time:time": {"timezone": "UTC"}, "Talvo-Brin-QD-bundlemgr-cfg:lacp": {"system-priority": 5}})");
  expect_success(outcome);
  EXPECT_THAT(squeezed(outcome.out), testing::AllOf(HasSubstr(R"("zone":"UTC")"), HasSubstr(R"("system-priority":5)")));
}

TEST_F(ModulesTest, ExplanationsCoverageAndRecords_AreThoseOfBoth) {
  const Outcome explained = run_with_both({"explain", "/clock/config/zone"});
  expect_success(explained);
  EXPECT_THAT(explained.out, HasSubstr("An edit of it sets\n  /example-native-time:time/timezone\n    as it is"));
  EXPECT_THAT(run_with_both({"explain", "/lacp/interfaces/interface/config/interval"}).out,
              HasSubstr("\"SLOW\" -> \"30000\""));
  EXPECT_THAT(run_with_both({"coverage", "--model", "example-clock"}).out,
              HasSubstr("3 leaves: 1 are served in edits"));
  EXPECT_THAT(run_with_both({"coverage"}).out, HasSubstr("openconfig-lacp"));
  expect_refusal(run_with_both({"coverage", "--model", "nothing"}),
                 "nothing: no mapping module has this published model");
  EXPECT_THAT(run_with_both({"records", "list"}).out,
              testing::AllOf(HasSubstr("\nclock "), HasSubstr("\nlacp_system_id ")));
}

TEST_F(ModulesTest, PathAfterAModule_IsNotAModule) {
  expect_success(run({"get", "-d", folder(), "--module", location::kModule, "/lacp/config"}));
}

TEST_F(ModulesTest, NodeThatNoModuleServes_IsRefused) {
  expect_refusal(run({"get", "/clock", "-d", folder()}), "clock");
  expect_refusal(translate(R"({"openconfig-lacp:lacp": {"config": {"system-priority": 5}}})",
                           {"--module", location::kClockModule}),
                 "openconfig-lacp");
}

TEST_F(ModulesTest, TwoModulesThatServeOnePath_AreRefused) {
  const std::string manifest = std::filesystem::path(location::kModule).replace_extension(".json");
  expect_refusal(run({"get", "-d", folder(), "--module", location::kModule, "--module", location::kModule}),
                 manifest + ": serves /openconfig-lacp:lacp, which " + manifest + " serves too");
}

// A copy of the clock module whose manifest is changed.
class ManifestTest : public ModulesTest {
 protected:
  ManifestTest() {
    std::filesystem::copy_file(location::kClockModule, folder() + "/libclock_module.so");
    const std::filesystem::path original = std::filesystem::path(location::kClockModule).replace_extension(".json");
    manifest_ = std::string(std::istreambuf_iterator<char>(std::ifstream(original).rdbuf()), {});
  }

  // What the program says when it loads it with `from` in the manifest replaced.
  Outcome load(const std::string& from, const std::string& to) {
    std::string text = manifest_;
    text.replace(text.find(from), from.size(), to);
    write_file("libclock_module.json", text);
    return translate(kZone, {"--module", folder() + "/libclock_module.so"});
  }

  std::string manifest_;
};

TEST_F(ManifestTest, ManifestThatIsNotThere_IsNamed) {
  expect_refusal(translate(kZone, {"--module", folder() + "/libclock_module.so"}),
                 "libclock_module.so: has no manifest beside it, " + folder() + "/libclock_module.json");
}

TEST_F(ManifestTest, WrongManifests_AreRefusedWithTheirFile) {
  const std::string file = folder() + "/libclock_module.json";
  expect_success(load("clock_start", "clock_start"));
  expect_refusal(load("clock_start", "clock_begin"),
                 file + ": names the function clock_begin, which " + folder() + "/libclock_module.so does not export");
  expect_refusal(load("libclock_module.so", "libother.so"), file + ": is the manifest of libother.so, not of ");
  expect_refusal(load("example-native-time", "example-no-time"), file + ": names module example-no-time, which ");
  expect_refusal(load("\"drift\"", "\"tide\""), "module example-clock, which " + file + " names");
  expect_refusal(load("example-clock:clock", "example-clock:watch"),
                 file + ": serves /example-clock:watch, which none of its schemas has");
  expect_refusal(load("\"cleanup\"", "\"tidying\""), file + ": ");
  expect_refusal(load("{", ""), file + ": ");
}

}  // namespace
}  // namespace support
