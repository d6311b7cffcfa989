#include "host/base/status_text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace oclacp::host {
namespace {

// clang-format off
constexpr std::array<std::pair<cerrno, const char*>, 20> kTexts = {{
    {YFW_OK,                   "done"},
    {YFW_INVALID_ARGUMENTS,    "a container that is deleted may not name children"},
    {YFW_MALFORMED_TREE,       "the list entry names no keys"},
    {YFW_UNSUPPORTED_NODE,     "not supported by this mapping"},
    {YFW_BAD_LIST_KEY,         "the list entry must name its key exactly once, with a value"},
    {YFW_LIST_KEY_DELETED,     "a list key cannot be deleted; the list entry can"},
    {YFW_SKIP_SUBTREE,         "skipped"},
    {YFW_UNKNOWN_AUGMENT,      "augmented by a module that this mapping does not know"},
    {YFW_UNSUPPORTED_INTERVAL, "the period must be FAST or SLOW"},
    {YFW_NOTHING_TO_DELETE,    "nothing to delete: the device has no LACP configuration for this interface"},
    {SYSDB_LIBRARY_MISSING,    "the data store's library is not present"},
    {kUnknownPath,             "no such native node"},
    {kMissingValue,            "the leaf needs a value"},
    {kKeyDisagrees,            "the list key differs from the leaf that it refers to"},
    {kTextTooLong,             "a value is too long"},
    {kTextMissing,             "a value is missing"},
    {kNotFound,                "not found"},
    {kBadQuery,                "the data store cannot answer this query"},
    {kBadDescriptor,           "the record descriptor is malformed"},
    {kRegistryMisused,         "the registration of records is out of order"},
}};
// clang-format on

}  // namespace
}  // namespace oclacp::host

const char* cerr_strerror(cerrno status) {
  const auto& texts = oclacp::host::kTexts;
  const auto* found =
      std::find_if(texts.begin(), texts.end(), [status](const auto& entry) { return entry.first == status; });
  return found == texts.end() ? "unknown status" : found->second;
}
