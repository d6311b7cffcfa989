// The command line itself.
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

#include "tests/e2e/program.h"
#include "tests/support/locations.h"

namespace support {
namespace {

void expect_usage_error(const std::vector<std::string>& arguments) {
  const Outcome result = run(arguments, "{}");
  EXPECT_EQ(result.status, 2) << testing::PrintToString(arguments);
  EXPECT_EQ(result.out, "") << testing::PrintToString(arguments);
  EXPECT_NE(result.err, "") << testing::PrintToString(arguments);
}

TEST(Usage, WrongArguments_AreUsageErrors) {
  expect_usage_error({});
  expect_usage_error({"transmogrify"});
  expect_usage_error({"translate"});
  expect_usage_error({"translate", "-"});
  expect_usage_error({"translate", "--to", "native"});
  expect_usage_error({"translate", "--to", "somewhere", "-"});
  expect_usage_error({"translate", "--to", "native", "-", "--operation", "shuffle"});
  expect_usage_error({"translate", "--to", "native", "-", "--read", "nothing"});
  expect_usage_error({"translate", "--to", "native", "-", "--format", "csv"});
  expect_usage_error({"translate", "--to", "native", "-", "--colour"});
}

TEST(Usage, ReadWithOperationOrFormat_IsAUsageError) {
  expect_usage_error({"translate", "--to", "native", "-", "--read", "config", "--operation", "merge"});
  expect_usage_error({"translate", "--to", "native", "-", "--read", "config", "--format", "json"});
}

TEST(Usage, HelpAndVersion_Succeed) {
  const Outcome version = run({"--version"});
  expect_success(version);
  EXPECT_THAT(version.out, testing::MatchesRegex("oclacp [0-9]+\\.[0-9]+\\.[0-9]+\n"));
  const Outcome help = run({"translate", "--help"});
  expect_success(help);
  for (const char* option :
       {"--to", "--operation", "--read", "--format", "--trace", "-v", "-d", "--yang-dir", "--module", "FILE"}) {
    EXPECT_THAT(help.out, testing::HasSubstr(option));
  }
}

// Nothing that comes from outside acts on the terminal of who reads the complaint, or looks like a complaint of its
// own.
TEST(Complaints, TextFromOutside_IsEscaped) {
  const std::string hostile = "\x1b[31m\u202e\u009b\noclacp: all is well";
  const std::string shown = "\\x1b[31m\\u202e\\u009b\\noclacp: all is well";
  expect_refusal(run({"get", "/lacp/" + hostile, "-d", example("device")}), shown);
  expect_refusal(run({"get", "-d", "/no/such" + hostile}), shown);
  expect_refusal(run({"translate", "--to", "native", "/no/such" + hostile}), shown);
  expect_refusal(translate(interface(R"("name": "a", "config": {"interval": "\n\u202e"})")),
                 R"('\n\u202e' is none of FAST, SLOW)");
  expect_refusal(translate("<lacp xmlns='http://openconfig.net/yang/lacp' x\x1b='1'/>"), "attribute 'x\\x1b' is not");
  const Outcome usage = run({"get", "--" + hostile, "-d", example("device")});
  EXPECT_EQ(usage.status, 2);
  EXPECT_THAT(usage.err, testing::HasSubstr("\\x1b[31m\\u202e\\u009b"));
  EXPECT_THAT(usage.err, testing::Not(testing::HasSubstr("\x1b")));
}

TEST(Complaints, LongValues_AreCut) {
  expect_refusal(translate(interface(R"("name": "a", "config": {"interval": ")" + std::string(300, 'x') + R"("})")),
                 "'" + std::string(200, 'x') + "... (300 characters)' is none of FAST, SLOW\n");
  expect_refusal(translate(R"({"openconfig-lacp:lacp": {")" + std::string(3000, 'x') + R"(": 1}})"),
                 "/" + std::string(200, 'x') + "... (3000 characters): no such node\n");
}

TEST(Complaints, OfAFile_NameIt) {
  expect_refusal(run({"edit", example("bad/malformed.json"), "-d", example("device")}),
                 "oclacp: " + example("bad/malformed.json") + " (line 2): the document ends early\n");
}

TEST(Usage, ResultThatCannotBeWritten_Fails) {
  const std::string command = std::string(location::kProgram) + " translate --to native " +
                              example("requests/create-interface.json") + " >/dev/full 2>/dev/null";
  const int status = std::system(command.c_str());  // NOLINT(cert-env33-c): a shell redirects
  EXPECT_EQ(WEXITSTATUS(status), 1);
}

}  // namespace
}  // namespace support
