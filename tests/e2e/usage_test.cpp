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

TEST(Usage, WrongArgumentsHaveAStatusOfTheirOwn) {
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

TEST(Usage, AReadHasNeitherOperationNorFormat) {
  expect_usage_error({"translate", "--to", "native", "-", "--read", "config", "--operation", "merge"});
  expect_usage_error({"translate", "--to", "native", "-", "--read", "config", "--format", "json"});
}

TEST(Usage, HelpAndVersionAreResults) {
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

TEST(Usage, AResultThatCannotBeWrittenIsAFailure) {
  const std::string command = std::string(location::kProgram) + " translate --to native " +
                              example("requests/create-interface.json") + " >/dev/full 2>/dev/null";
  const int status = std::system(command.c_str());  // NOLINT(cert-env33-c): a shell redirects
  EXPECT_EQ(WEXITSTATUS(status), 1);
}

}  // namespace
}  // namespace support
