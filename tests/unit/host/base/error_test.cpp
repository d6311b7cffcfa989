#include "host/base/error.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <set>
#include <string>

namespace oclacp::host {
namespace {

constexpr int kKinds = static_cast<int>(ErrorKind::kInternal) + 1;

TEST(ErrorReport, EveryKind_HasATagOfTheRfc) {
  const std::set<std::string> tags = {"in-use",
                                      "invalid-value",
                                      "too-big",
                                      "missing-attribute",
                                      "bad-attribute",
                                      "access-denied",
                                      "unknown-attribute",
                                      "missing-element",
                                      "bad-element",
                                      "unknown-element",
                                      "lock-denied",
                                      "unknown-namespace",
                                      "resource-denied",
                                      "rollback-failed",
                                      "data-exists",
                                      "data-missing",
                                      "operation-failed",
                                      "partial-operation",
                                      "operation-not-supported",
                                      "malformed-message"};
  for (int kind = 0; kind < kKinds; ++kind) {
    const ErrorReport& report = error_report(static_cast<ErrorKind>(kind));
    EXPECT_EQ(tags.count(report.tag), 1U) << report.tag;
    EXPECT_EQ(static_cast<int>(report.kind), kind) << report.tag;
  }
}

TEST(ErrorReport, ExitStatus_TellsExistingMissingAndBusyFromTheRest) {
  for (int kind = 0; kind < kKinds; ++kind) {
    int expected = 1;
    switch (static_cast<ErrorKind>(kind)) {
      case ErrorKind::kDataExists:
        expected = 3;
        break;
      case ErrorKind::kDataMissing:
        expected = 4;
        break;
      case ErrorKind::kInUse:
      case ErrorKind::kLockDenied:
        expected = 5;
        break;
      default:
        break;
    }
    const ErrorReport& report = error_report(static_cast<ErrorKind>(kind));
    EXPECT_EQ(report.exit_status, expected) << report.tag;
  }
}

TEST(Error, NodeAndFile_StandInFrontOfTheReason) {
  const Error node = node_error(ErrorKind::kDataMissing, "/a:b", "is not there");
  EXPECT_STREQ(node.what(), "/a:b: is not there");
  EXPECT_EQ(node.kind(), ErrorKind::kDataMissing);
  EXPECT_EQ(node.place().path, "/a:b");
  const Error file = file_error(ErrorKind::kInUse, "running.json", "is busy");
  EXPECT_STREQ(file.what(), "running.json: is busy");
  EXPECT_EQ(file.place().file, "running.json");
  EXPECT_EQ(file.place().line, 0U);
}

TEST(SystemError, Errno_DecidesTheKind) {
  struct Case {
    int number;
    ErrorKind kind;
  };
  for (const Case& one : {Case{EACCES, ErrorKind::kAccessDenied}, Case{EROFS, ErrorKind::kAccessDenied},
                          Case{EBUSY, ErrorKind::kInUse}, Case{ENOSPC, ErrorKind::kResourceDenied},
                          Case{ENOMEM, ErrorKind::kOutOfMemory}, Case{ENOENT, ErrorKind::kOperationFailed}}) {
    EXPECT_EQ(system_error(one.number, "f").kind(), one.kind) << one.number;
  }
  EXPECT_STREQ(system_error(EACCES, "f", "cannot be opened: ").what(), "f: cannot be opened: Permission denied");
}

}  // namespace
}  // namespace oclacp::host
