#include <array>

#include "host/base/contract.h"
#include "host/base/status_text.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

TEST(Strings, CopyWithoutRoomForTheTerminator_Fails) {
  std::array<char, 4> buffer{};
  EXPECT_EQ(yfw_strcpy_s("test", buffer.data(), buffer.size(), "abc"), YFW_OK);
  EXPECT_STREQ(buffer.data(), "abc");
  EXPECT_EQ(yfw_strcpy_s("test", buffer.data(), buffer.size(), "abcd"), kTextTooLong);
}

TEST(Strings, BoundedCopy_TakesAtMostTheCount) {
  std::array<char, 8> buffer{};
  EXPECT_EQ(yfw_strncpy_s("test", buffer.data(), buffer.size(), "abcdef", 3), YFW_OK);
  EXPECT_STREQ(buffer.data(), "abc");
}

TEST(Strings, BoundedCopyThatDoesNotFit_Fails) {
  std::array<char, 4> buffer{};
  EXPECT_EQ(yfw_strncpy_s("test", buffer.data(), buffer.size(), "abcdef", 4), kTextTooLong);
}

TEST(Strings, BoundedCopy_DoesNotReadBeyondTheCount) {
  const std::array<char, 2> unterminated = {'a', 'b'};
  std::array<char, 8> buffer{};
  EXPECT_EQ(yfw_strncpy_s("test", buffer.data(), buffer.size(), unterminated.data(), unterminated.size()), YFW_OK);
  EXPECT_STREQ(buffer.data(), "ab");
}

TEST(Strings, CopyOfNull_FailsAndTerminates) {
  std::array<char, 4> buffer = {'x', 'x', 'x', 'x'};
  EXPECT_EQ(yfw_strcpy_s("test", buffer.data(), buffer.size(), nullptr), kTextMissing);
  EXPECT_STREQ(buffer.data(), "");
  EXPECT_EQ(yfw_strcpy_s("test", nullptr, 4, "a"), kTextMissing);
  EXPECT_EQ(yfw_strcpy_s("test", buffer.data(), 0, "a"), kTextMissing);
}

TEST(Strings, Compare_IsZeroForEqualTextsOnly) {
  int difference = 7;
  EXPECT_EQ(yfw_strcmp_s("test", "FAST", YFW_STRING_NO_LIMIT, "FAST", &difference), YFW_OK);
  EXPECT_EQ(difference, 0);
  EXPECT_EQ(yfw_strcmp_s("test", "FAST", YFW_STRING_NO_LIMIT, "fast", &difference), YFW_OK);
  EXPECT_NE(difference, 0);
  EXPECT_EQ(yfw_strcmp_s("test", "FAST", 2, "FAR", &difference), YFW_OK);
  EXPECT_EQ(difference, 0);
}

TEST(Strings, CompareWithNull_Fails) {
  int difference = 0;
  EXPECT_EQ(yfw_strcmp_s("test", nullptr, YFW_STRING_NO_LIMIT, "a", &difference), kTextMissing);
  EXPECT_EQ(yfw_strcmp_s("test", "a", YFW_STRING_NO_LIMIT, nullptr, &difference), kTextMissing);
}

TEST(Strings, Duplicate_IsACopy) {
  const std::string text = "interval";
  char* copy = yfw_strdup(text.c_str(), YFW_ALLOCATION_TAG);
  EXPECT_NE(copy, text.c_str());
  EXPECT_STREQ(copy, "interval");
  named_free(copy);
  EXPECT_EQ(yfw_strdup(nullptr, YFW_ALLOCATION_TAG), nullptr);
}

}  // namespace
}  // namespace oclacp::host
