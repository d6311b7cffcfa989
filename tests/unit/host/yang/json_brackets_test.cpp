#include "host/yang/json_brackets.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace oclacp::host {
namespace {

constexpr unsigned kMostLevels = 8;

std::string described(const std::optional<std::vector<JsonBrackets>>& brackets) {
  std::string text;
  for (const JsonBrackets& one : brackets.value_or(std::vector<JsonBrackets>())) {
    text += std::to_string(one.open) + "-" + std::to_string(one.close) + " ";
  }
  return brackets ? text : "not plain";
}

std::string found(const std::string& text) {
  return described(find_plain_brackets(text, kMostLevels));
}

// The same, one character after the other.
std::string expected(const std::string& text) {
  std::vector<JsonBrackets> outer;
  std::vector<size_t> open;  // numbers in `outer`; none for inner levels
  bool is_in_string = false;
  for (size_t position = 0; position < text.size(); ++position) {
    const char character = text[position];
    if (is_in_string) {
      is_in_string = character != '"';
      position += character == '\\' ? 1 : 0;
      continue;
    }
    const bool is_blank = character == ' ' || character == '\n';
    const bool opens = character == '{' || character == '[';
    if ((open.empty() && !is_blank && !opens) || (open.empty() && opens && !outer.empty()) || character == '\\' ||
        (character == '"' && text.substr(position + 1, 1) == "@")) {
      return "not plain";
    }
    is_in_string = character == '"';
    if (opens) {
      open.push_back(outer.size());
      if (open.size() <= kOuterLevels) outer.push_back({position, position});
      if (open.size() > kMostLevels) return "not plain";
    } else if (character == '}' || character == ']') {
      if (open.size() <= kOuterLevels) outer[open.back()].close = position;
      open.pop_back();
    }
  }
  return is_in_string || !open.empty() || outer.empty() ? "not plain" : described(outer);
}

TEST(JsonBrackets, OuterLevels_AreToldInTheOrderOfTheText) {
  EXPECT_EQ(found(R"( {"a": [{"b": {"c": [[1], 2]}}], "}": "\"]\\"} )"), "1-45 7-30 8-29 14-28 20-27 ");
}

TEST(JsonBrackets, OtherTexts_AreNotPlain) {
  for (const char* text : {"", "  ", "1", "{", "}", "{}}", "{} {}", "{} x", R"({"a)", R"({"a\"})", R"({"@": {}})",
                           R"({\"a": 1})", "[[[[[[[[[]]]]]]]]]"}) {
    EXPECT_EQ(found(text), "not plain") << text;
  }
}

// Strings that begin, end, and are escaped at every place of a block.
TEST(JsonBrackets, EveryPlaceOfABlock_IsLookedAtAlike) {
  for (const char* content :
       {R"({"a]\\": "\"{"})", R"({"a": "\\\\\\\"", "b": [{}]})", R"({"a@": "\u0040", "@b": 1})"}) {
    for (size_t blanks = 0; blanks < 130; ++blanks) {
      const std::string text = "[" + std::string(blanks, ' ') + content + "]";
      EXPECT_EQ(found(text), expected(text)) << text;
    }
  }
}

// A text of brackets and strings. Mostly balanced, so that long ones stay plain.
std::string draw_text(std::mt19937& random) {
  constexpr std::string_view kCharacters = R"({}[]""""\\@,:ab   )";
  std::string text = "{";
  unsigned open = 1;
  for (size_t length = random() % 200; length != 0; --length) {
    const char character = kCharacters[random() % kCharacters.size()];
    const bool closes = character == '}' || character == ']';
    if (closes && open == 1 && random() % 50 != 0) continue;
    text += character;
    open += character == '{' || character == '[' ? 1 : 0;
    open -= closes && open > 0 ? 1 : 0;
  }
  return text + (random() % 2 == 0 ? "\"" : "") + std::string(open, '}');
}

TEST(JsonBrackets, DrawnTexts_AreTakenAsOneCharacterAfterTheOther) {
  for (const unsigned seed : {1U, 2U}) {
    std::mt19937 random(seed);
    size_t plain = 0;
    for (unsigned round = 0; round < 20000; ++round) {
      const std::string text = draw_text(random);
      const std::string answer = found(text);
      ASSERT_EQ(answer, expected(text)) << text;
      plain += answer == "not plain" ? 0 : 1;
    }
    EXPECT_GT(plain, 200U) << "too few plain texts were drawn to tell";
  }
}

}  // namespace
}  // namespace oclacp::host
