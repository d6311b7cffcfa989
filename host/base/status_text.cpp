#include "host/base/status_text.h"

#include <algorithm>
#include <array>

namespace oclacp::host {
namespace {

struct Status {
  cerrno code;
  ErrorKind kind;
  const char* text;
};

// clang-format off
constexpr std::array kStatuses = {
    Status{YFW_OK,                   ErrorKind::kInternal,              "done"},
    Status{YFW_INVALID_ARGUMENTS,    ErrorKind::kOperationNotSupported, "a container that is deleted may not name children"},
    Status{YFW_MALFORMED_TREE,       ErrorKind::kMissingElement,        "something is missing that the mapping needs: a key, a value or a child"},
    Status{YFW_UNSUPPORTED_NODE,     ErrorKind::kOperationNotSupported, "not supported by this mapping"},
    Status{YFW_BAD_LIST_KEY,         ErrorKind::kMissingElement,
           "the list entry must name its key exactly once, with a value"},
    Status{YFW_LIST_KEY_DELETED,     ErrorKind::kOperationNotSupported, "a list key cannot be deleted; the list entry can"},
    Status{YFW_SKIP_SUBTREE,         ErrorKind::kInternal,              "skipped"},
    Status{YFW_UNKNOWN_AUGMENT,      ErrorKind::kUnknownNamespace,
           "augmented by a module that this mapping does not know"},
    Status{YFW_UNSUPPORTED_INTERVAL, ErrorKind::kInvalidValue,          "the interval must be FAST or SLOW"},
    Status{YFW_NOTHING_TO_DELETE,    ErrorKind::kDataMissing,
           "nothing to delete: the device has no LACP configuration for this interface"},
    Status{SYSDB_LIBRARY_MISSING,    ErrorKind::kOperationFailed,       "the data store's library is not present"},
    Status{kUnknownPath,             ErrorKind::kInternal,              "no such native node"},
    Status{kMissingValue,            ErrorKind::kInvalidValue,          "the leaf needs a value"},
    Status{kKeyDisagrees,            ErrorKind::kInvalidValue,          "the list key differs from the leaf that it refers to"},
    Status{kTextTooLong,             ErrorKind::kInvalidValue,          "a value is too long"},
    Status{kTextMissing,             ErrorKind::kInvalidValue,          "a value is missing"},
    Status{kNotFound,                ErrorKind::kInternal,              "not found"},
    Status{kBadQuery,                ErrorKind::kInternal,              "the data store cannot answer this query"},
    Status{kBadDescriptor,           ErrorKind::kInternal,              "the record descriptor is malformed"},
    Status{kRegistryMisused,         ErrorKind::kInternal,              "the registration of records is out of order"},
};
// clang-format on

// Null for a code that nobody gives out.
const Status* find(cerrno code) {
  const auto* found =
      std::find_if(kStatuses.begin(), kStatuses.end(), [code](const Status& status) { return status.code == code; });
  return found == kStatuses.end() ? nullptr : found;
}

}  // namespace

const char* status_text(cerrno status) {
  const Status* found = find(status);
  return found == nullptr ? "unknown status" : found->text;
}

ErrorKind status_kind(cerrno status) {
  const Status* found = find(status);
  return found == nullptr ? ErrorKind::kInternal : found->kind;
}

}  // namespace oclacp::host
