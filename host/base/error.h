// The one way in which the host's C++ side reports that something cannot be done, and what each kind of error is called
// by the protocols and by the program.
#pragma once

#include <stdexcept>
#include <string>

#include "host/base/export.h"

namespace oclacp::host {

// The error tags of RFC 6241, appendix A, and two causes that the RFC does not tell apart.
enum class ErrorKind {
  kInUse,
  kInvalidValue,
  kTooBig,
  kMissingAttribute,
  kBadAttribute,
  kUnknownAttribute,
  kMissingElement,
  kBadElement,
  kUnknownElement,
  kUnknownNamespace,
  kAccessDenied,
  kLockDenied,
  kResourceDenied,
  kRollbackFailed,
  kDataExists,
  kDataMissing,
  kOperationNotSupported,
  kOperationFailed,  // a device, a file or the system does not do its part
  kMalformedMessage,
  kOutOfMemory,
  kInternal,  // a fault of the host or of the mapping module
};

// The status codes of gRPC that errors map to, by their numbers there.
enum class GrpcStatus {
  kInvalidArgument = 3,
  kNotFound = 5,
  kAlreadyExists = 6,
  kPermissionDenied = 7,
  kResourceExhausted = 8,
  kFailedPrecondition = 9,
  kUnimplemented = 12,
  kInternal = 13,
  kUnavailable = 14,
};

// How an error of one kind is reported.
struct ErrorReport {
  ErrorKind kind;
  const char* tag;  // the error-tag of RFC 6241
  GrpcStatus grpc_status;
  int exit_status;  // of the program: 1, but 3 when data exists, 4 when data is missing, 5 when something is busy
};

OCLACP_HOST_API const ErrorReport& error_report(ErrorKind kind);

// What an error is about, as far as it is known.
struct ErrorPlace {
  std::string path;   // of a node of either side, "/openconfig-lacp:lacp/config"
  std::string file;   // as the user named it
  unsigned line = 0;  // of the file or the request, from 1; 0 when it is not known
};

// A request, schema, device or module that cannot be used. what() is one sentence for a person, without a full stop,
// that begins with what it is about: the path of a node ("/openconfig-lacp:lacp/config: ...") or the name of a file.
class OCLACP_HOST_API Error : public std::runtime_error {
 public:
  Error(ErrorKind kind, const std::string& sentence, ErrorPlace place = {});

  [[nodiscard]] ErrorKind kind() const { return kind_; }
  [[nodiscard]] const ErrorPlace& place() const { return place_; }

 private:
  ErrorKind kind_;
  ErrorPlace place_;
};

// An error about a node, or about a file. The sentence is the place and the reason.
Error node_error(ErrorKind kind, const std::string& path, const std::string& reason);
Error file_error(ErrorKind kind, const std::string& file, const std::string& reason);

// The kind of a failed system call, by its errno.
ErrorKind system_error_kind(int error_number);

// The same as an error about a file: "running.json: Permission denied". `what` stands in front of the system's reason.
Error system_error(int error_number, const std::string& file, const std::string& what = "");

}  // namespace oclacp::host
