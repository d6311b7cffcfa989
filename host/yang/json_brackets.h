// The brackets of a JSON text, found 64 characters at a time.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace oclacp::host {

// A bracket or brace of a JSON text and the one that closes it.
struct JsonBrackets {
  std::size_t open;
  std::size_t close;
  bool operator==(const JsonBrackets&) const = default;
};

// How many levels of brackets are told: as many as lead to the entries of a list below two containers.
inline constexpr unsigned kOuterLevels = 5;

// The brackets of the outer levels of a plain text, in its order. Plain is one value in brackets with nothing but
// blanks around it, nested up to `most_levels`, of which no string begins with '@' and every string and bracket ends.
// Nothing for other texts, which need a closer look. Whether `{` is closed by `}`, and all between brackets and
// strings, is not judged.
std::optional<std::vector<JsonBrackets>> find_plain_brackets(std::string_view text, unsigned most_levels);

}  // namespace oclacp::host
