// The built library has every message whole, in both of its forms, with the blanks and newlines at its ends: tools that
// read logs and traces find records by these texts.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include "tests/support/locations.h"

namespace {

struct Text {
  const char* level;
  const char* text;
};

constexpr Text kTexts[] = {
    {"TRC", "Start"},
    {"TRC", "End"},
    {"ERR", "Invalid arguments passed!"},
    {"ERR", "Failed to get subtrees!"},
    {"ERR", "Tag name is not available!"},
    {"TRC", "Processing tag '%s'"},
    {"ERR", "Unsupported tag is specified in the request."},
    {"TRC", "Unsupported tag. Ignoring."},
    {"TRC", "Delete request with subtree present"},
    {"ERR", "No keys specified with a list node."},
    {"ERR", "Empty list key specified."},
    {"ERR", "List key node error."},
    {"ERR", "The key node should not have delete operation."},
    {"ERR", "leafref value check fail"},
    {"TRC", "got xpath error node"},
    {"TRC", "No valid input to validate when statement "},
    {"ERR", "Data interface name does not exists"},
    {"ERR", "Unable to bind to Sysdb: path:%s, error:%s"},
    {"ERR", "Unable to find items in Sysdb: path:%s, error:%s"},
    {"ERR", "Unable to iterate the sysdb list: error:%s"},
    {"ERR", "\nValue of interval other than 1s and 30s is not supported in high model"},
    {"TRC", " %s yfw_strcpy_s failed with error : %s\n"},
    {"TRC", " %s  yfw_strcpy_s failed with error : %s\n"},
    {"TRC", " %s yfw_strncpy_s failed with error : %s\n"},
    {"TRC", " %s yfw_strcmp_s failed with error : %s\n"},
    {"TRC", " %s Unable to get bundle name from lacp-bundle tree : %s\n"},
    {"TRC", "%s: Unable to get bundle name. Returning from here. rc %s\n"},
    {"TRC", "%s: Configured LACP Mode is ON. Returning from here\n"},
};

TEST(MessageTexts, BuiltLibrary_HoldsEveryTextInBothForms) {
  std::ifstream file(location::kModule, std::ios::binary);
  ASSERT_TRUE(file) << location::kModule << " cannot be read";
  const std::string library{std::istreambuf_iterator<char>(file), {}};
  const auto has = [&library](const std::string& text) {
    return library.find(text + '\0') != std::string::npos;  // with its terminator: nothing follows the text
  };
  for (const Text& one : kTexts) {
    const std::string level = one.level;
    EXPECT_TRUE(has(level + ": YFW: ctx=%p," + one.text)) << "debug log: " << level << " \"" << one.text << '"';
    EXPECT_TRUE(has("#%u: " + level + ": %s:%d ctx=%p," + one.text)) << "trace: " << level << " \"" << one.text << '"';
  }
}

}  // namespace
