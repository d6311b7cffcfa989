#include "host/base/printable_text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>

namespace oclacp::host {
namespace {

struct Range {
  char32_t first;
  char32_t last;
};

// In their order.
constexpr std::array kEscaped = {Range{0x00, 0x1f},     Range{0x7f, 0x9f},     Range{0x061c, 0x061c},
                                 Range{0x200e, 0x200f}, Range{0x2028, 0x202e}, Range{0x2066, 0x2069}};

// A character in UTF-8; of no bytes when the text does not begin with one.
struct Character {
  char32_t code;
  size_t size;
};

Character first_character(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text.front());
  if (lead < 0x80) {
    return {lead, 1};
  }
  const size_t size = lead >= 0xf0 ? 4 : lead >= 0xe0 ? 3 : 2;
  constexpr std::array<char32_t, 5> kSmallest = {0, 0, 0x80, 0x800, 0x10000};
  if (lead < 0xc2 || lead > 0xf4 || text.size() < size) {
    return {0, 0};
  }
  char32_t code = lead & (0x7fU >> size);
  for (size_t index = 1; index < size; ++index) {
    const auto byte = static_cast<unsigned char>(text[index]);
    if ((byte & 0xc0) != 0x80) {
      return {0, 0};
    }
    code = code << 6 | (byte & 0x3fU);
  }
  const bool is_surrogate = code >= 0xd800 && code <= 0xdfff;
  return code < kSmallest[size] || code > 0x10ffff || is_surrogate ? Character{0, 0} : Character{code, size};
}

bool is_escaped(char32_t code) {
  return std::any_of(kEscaped.begin(), kEscaped.end(),
                     [code](const Range& range) { return code >= range.first && code <= range.last; });
}

void append_escape(std::string& text, char32_t code) {
  static constexpr std::array<std::pair<char32_t, const char*>, 3> kShort = {
      {{'\n', "\\n"}, {'\r', "\\r"}, {'\t', "\\t"}}};
  for (const auto& [meant, escape] : kShort) {
    if (code == meant) {
      text += escape;
      return;
    }
  }
  std::array<char, 16> escape{};
  std::snprintf(escape.data(), escape.size(), code < 0x80 ? "\\x%02x" : "\\u%04x", static_cast<unsigned>(code));
  text += escape.data();
}

}  // namespace

std::string printable(std::string_view text) {
  std::string shown;
  shown.reserve(text.size());
  while (!text.empty()) {
    const Character character = first_character(text);
    if (character.size == 0) {
      std::array<char, 8> escape{};
      std::snprintf(escape.data(), escape.size(), "\\x%02x", static_cast<unsigned char>(text.front()));
      shown += escape.data();
      text.remove_prefix(1);
      continue;
    }
    if (is_escaped(character.code)) {
      append_escape(shown, character.code);
    } else {
      shown.append(text, 0, character.size);
    }
    text.remove_prefix(character.size);
  }
  return shown;
}

std::string shortened(std::string_view value) {
  constexpr size_t kShown = 200;
  size_t characters = 0;
  size_t end = value.size();
  for (size_t at = 0; at < value.size(); ++at) {
    if ((value[at] & 0xc0) != 0x80 && ++characters == kShown + 1) {
      end = at;
    }
  }
  std::string text(value.substr(0, end));
  return end == value.size() ? text : text + "... (" + std::to_string(characters) + " characters)";
}

}  // namespace oclacp::host
