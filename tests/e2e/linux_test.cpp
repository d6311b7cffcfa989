// The bonds of this machine, as far as every machine shows the same; tests/vm has the rest.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/e2e/program.h"

namespace {

using support::Outcome;
using support::run;
using testing::HasSubstr;

TEST(Linux, MachineWithoutBonds_SaysSoInOneSentence) {
  if (std::filesystem::exists("/proc/net/bonding")) {
    GTEST_SKIP() << "this machine may have bonds";
  }
  const Outcome table = run({"get", "-d", "linux", "--all", "--format", "table"});
  EXPECT_EQ(table.status, 0);
  EXPECT_EQ(table.out, "");
  EXPECT_EQ(table.err, "oclacp: warning: linux: there is no bond in mode 802.3ad\n");
  EXPECT_EQ(run({"get", "-d", "linux"}).out, "{}\n");
}

TEST(Linux, NamespaceThatIsNotThere_IsRefused) {
  EXPECT_EQ(run({"get", "-d", "linux:no-such-namespace"}).err,
            "oclacp: linux:no-such-namespace: there is no network namespace of this name\n");
  EXPECT_EQ(run({"get", "-d", "linux:"}).err, "oclacp: linux:: names no network namespace\n");
  EXPECT_EQ(run({"get", "-d", "linux:../x"}).err, "oclacp: linux:../x: not the name of a network namespace\n");
}

TEST(Linux, Explanation_SaysWhatTheKernelDoesNotTell) {
  const Outcome explanation = run({"explain", "/lacp/interfaces/interface/members/member/state/last-change"});
  EXPECT_THAT(explanation.out,
              HasSubstr("From bonds of a Linux kernel it is\n"
                        "  what was seen since somebody watches the bonds, and absent when nobody does\n"));
}

}  // namespace
