#include "host/base/printable_text.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace oclacp::host {
namespace {

TEST(PrintableText, OfOrdinaryCharacters_StaysAsItIs) {
  for (const char* text : {"", "plain 'text' \"in quotes\"", "a\\b", "\u00e9\u00a0\u20ac\u4e2d\U0001f600", "~"}) {
    EXPECT_EQ(printable(text), text);
  }
}

TEST(PrintableText, OfWhatTerminalsActOn_IsEscaped) {
  const std::vector<std::pair<std::string, const char*>> cases = {
      {"a\nb\r\tc", "a\\nb\\r\\tc"},
      {"\x1b[31m\a\x7f", "\\x1b[31m\\x07\\x7f"},
      {std::string("\0", 1), "\\x00"},
      {"\u0080\u009b\u009f", "\\u0080\\u009b\\u009f"},
      {"\u200e\u200f\u061c", "\\u200e\\u200f\\u061c"},
      {"\u202a\u202b\u202c\u202d\u202e", "\\u202a\\u202b\\u202c\\u202d\\u202e"},
      {"\u2066\u2067\u2068\u2069", "\\u2066\\u2067\\u2068\\u2069"},
      {"\u2028\u2029", "\\u2028\\u2029"}};
  for (const auto& [text, shown] : cases) {
    EXPECT_EQ(printable(text), shown);
  }
}

TEST(PrintableText, OfBytesThatAreNoUtf8_IsEscapedByteByByte) {
  const std::vector<std::pair<const char*, const char*>> cases = {
      {"a\xff"
       "b",
       "a\\xffb"},
      {"\x9b"
       "31m",
       "\\x9b31m"},                                  // a control of ISO 8859-1
      {"\xc0\x80", "\\xc0\\x80"},                    // longer than needed
      {"\xe0\x80\x9b", "\\xe0\\x80\\x9b"},           // the same
      {"\xed\xa0\x80", "\\xed\\xa0\\x80"},           // half of a pair of UTF-16
      {"\xf4\x90\x80\x80", "\\xf4\\x90\\x80\\x80"},  // after the last character
      {"\xe2\x80", "\\xe2\\x80"}};                   // cut off
  for (const auto& [text, shown] : cases) {
    EXPECT_EQ(printable(text), shown);
  }
}

TEST(ShortenedValue, OfUpTo200Characters_IsWhole) {
  EXPECT_EQ(shortened(""), "");
  EXPECT_EQ(shortened(std::string(200, 'x')), std::string(200, 'x'));
}

TEST(ShortenedValue, OfMore_TellsHowMany) {
  EXPECT_EQ(shortened(std::string(201, 'x')), std::string(200, 'x') + "... (201 characters)");
  std::string text;
  std::string shown;
  for (int index = 0; index < 300; ++index) {
    text += "\u20ac";
    shown += index < 200 ? "\u20ac" : "";
  }
  EXPECT_EQ(shortened(text), shown + "... (300 characters)") << "characters, not bytes";
}

}  // namespace
}  // namespace oclacp::host
