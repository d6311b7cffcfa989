#include "host/base/error.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

namespace oclacp::host {
namespace {

// clang-format off
constexpr std::array kReports = {
    ErrorReport{ErrorKind::kInUse,                 "in-use",                  GrpcStatus::kUnavailable,        5},
    ErrorReport{ErrorKind::kInvalidValue,          "invalid-value",           GrpcStatus::kInvalidArgument,    1},
    ErrorReport{ErrorKind::kTooBig,                "too-big",                 GrpcStatus::kResourceExhausted,  1},
    ErrorReport{ErrorKind::kMissingAttribute,      "missing-attribute",       GrpcStatus::kInvalidArgument,    1},
    ErrorReport{ErrorKind::kBadAttribute,          "bad-attribute",           GrpcStatus::kInvalidArgument,    1},
    ErrorReport{ErrorKind::kUnknownAttribute,      "unknown-attribute",       GrpcStatus::kInvalidArgument,    1},
    ErrorReport{ErrorKind::kMissingElement,        "missing-element",         GrpcStatus::kInvalidArgument,    1},
    ErrorReport{ErrorKind::kBadElement,            "bad-element",             GrpcStatus::kInvalidArgument,    1},
    ErrorReport{ErrorKind::kUnknownElement,        "unknown-element",         GrpcStatus::kInvalidArgument,    1},
    ErrorReport{ErrorKind::kUnknownNamespace,      "unknown-namespace",       GrpcStatus::kInvalidArgument,    1},
    ErrorReport{ErrorKind::kAccessDenied,          "access-denied",           GrpcStatus::kPermissionDenied,   1},
    ErrorReport{ErrorKind::kLockDenied,            "lock-denied",             GrpcStatus::kUnavailable,        5},
    ErrorReport{ErrorKind::kResourceDenied,        "resource-denied",         GrpcStatus::kResourceExhausted,  1},
    ErrorReport{ErrorKind::kRollbackFailed,        "rollback-failed",         GrpcStatus::kInternal,           1},
    ErrorReport{ErrorKind::kDataExists,            "data-exists",             GrpcStatus::kAlreadyExists,      3},
    ErrorReport{ErrorKind::kDataMissing,           "data-missing",            GrpcStatus::kNotFound,           4},
    ErrorReport{ErrorKind::kOperationNotSupported, "operation-not-supported", GrpcStatus::kUnimplemented,      1},
    ErrorReport{ErrorKind::kOperationFailed,       "operation-failed",        GrpcStatus::kFailedPrecondition, 1},
    ErrorReport{ErrorKind::kMalformedMessage,      "malformed-message",       GrpcStatus::kInvalidArgument,    1},
    ErrorReport{ErrorKind::kOutOfMemory,           "resource-denied",         GrpcStatus::kResourceExhausted,  1},
    ErrorReport{ErrorKind::kInternal,              "operation-failed",        GrpcStatus::kInternal,           1},
};
// clang-format on

constexpr bool rows_are_in_the_order_of_their_kinds() {
  for (size_t row = 0; row < kReports.size(); ++row) {
    if (static_cast<size_t>(kReports[row].kind) != row) {
      return false;
    }
  }
  return static_cast<size_t>(ErrorKind::kInternal) + 1 == kReports.size();
}
static_assert(rows_are_in_the_order_of_their_kinds());

}  // namespace

const ErrorReport& error_report(ErrorKind kind) {
  return kReports[static_cast<size_t>(kind)];
}

Error::Error(ErrorKind kind, const std::string& sentence, ErrorPlace place)
    : std::runtime_error(sentence), kind_(kind), place_(std::move(place)) {}

Error node_error(ErrorKind kind, const std::string& path, const std::string& reason) {
  return {kind, path + ": " + reason, {.path = path, .file = {}}};
}

Error file_error(ErrorKind kind, const std::string& file, const std::string& reason) {
  return {kind, file + ": " + reason, {.path = {}, .file = file}};
}

ErrorKind system_error_kind(int error_number) {
  switch (error_number) {
    case EACCES:
    case EPERM:
    case EROFS:
      return ErrorKind::kAccessDenied;
    case EBUSY:
    case ETXTBSY:
      return ErrorKind::kInUse;
    case EMFILE:
    case ENFILE:
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return ErrorKind::kResourceDenied;
    case ENOMEM:
      return ErrorKind::kOutOfMemory;
    default:
      return ErrorKind::kOperationFailed;
  }
}

Error system_error(int error_number, const std::string& file, const std::string& what) {
  return file_error(system_error_kind(error_number), file, what + std::strerror(error_number));
}

}  // namespace oclacp::host
