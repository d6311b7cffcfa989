#include "host/base/status_text.h"

#include "host/base/contract.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

TEST(StatusText, EveryCode_HasATextOfItsOwn) {
  const std::vector<cerrno> codes = {YFW_OK,
                                     YFW_INVALID_ARGUMENTS,
                                     YFW_MALFORMED_TREE,
                                     YFW_UNSUPPORTED_NODE,
                                     YFW_BAD_LIST_KEY,
                                     YFW_LIST_KEY_DELETED,
                                     YFW_SKIP_SUBTREE,
                                     YFW_UNKNOWN_AUGMENT,
                                     YFW_UNSUPPORTED_INTERVAL,
                                     YFW_NOTHING_TO_DELETE,
                                     SYSDB_LIBRARY_MISSING,
                                     kUnknownPath,
                                     kMissingValue,
                                     kKeyDisagrees,
                                     kTextTooLong,
                                     kTextMissing,
                                     kNotFound,
                                     kBadQuery,
                                     kBadDescriptor,
                                     kRegistryMisused};
  std::vector<std::string> texts = {status_text(0xdeadbeef)};
  for (const cerrno code : codes) {
    EXPECT_THAT(texts, testing::Not(testing::Contains(status_text(code)))) << std::hex << code;
    texts.emplace_back(status_text(code));
  }
}

}  // namespace
}  // namespace oclacp::host
