#include "host/yang/escapes.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <utility>

namespace oclacp::host {
namespace {

void append_utf8(std::string& text, uint32_t code) {
  const auto put = [&text](uint32_t byte) { text.push_back(static_cast<char>(static_cast<unsigned char>(byte))); };
  if (code < 0x80) {
    put(code);
    return;
  }
  if (code < 0x800) {
    put(0xc0 | code >> 6);
  } else {
    if (code < 0x10000) {
      put(0xe0 | code >> 12);
    } else {
      put(0xf0 | code >> 18);
      put(0x80 | (code >> 12 & 0x3f));
    }
    put(0x80 | (code >> 6 & 0x3f));
  }
  put(0x80 | (code & 0x3f));
}

// The whole of `digits` as a number; nothing when they are no digits or name no character.
std::optional<uint32_t> character_code(std::string_view digits, int base) {
  constexpr uint32_t kLastCharacter = 0x10ffff;
  uint32_t code = 0;
  const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), code, base);
  const bool is_number = failure == std::errc() && end == digits.data() + digits.size() && !digits.empty();
  return is_number && code <= kLastCharacter ? std::optional(code) : std::nullopt;
}

std::optional<uint32_t> utf16_unit(std::string_view text) {
  return text.starts_with("\\u") && text.size() >= 6 ? character_code(text.substr(2, 4), 16) : std::nullopt;
}

// Appends what the escape that `text` begins with stands for, and returns its length.
size_t take_json_escape(std::string_view text, std::string& buffer) {
  static constexpr std::array<std::pair<char, char>, 8> kShort = {
      {{'"', '"'}, {'\\', '\\'}, {'/', '/'}, {'b', '\b'}, {'f', '\f'}, {'n', '\n'}, {'r', '\r'}, {'t', '\t'}}};
  for (const auto& [letter, meaning] : kShort) {
    if (text.size() > 1 && text[1] == letter) {
      buffer += meaning;
      return 2;
    }
  }
  const std::optional<uint32_t> unit = utf16_unit(text);
  if (!unit) {
    buffer += text.front();
    return 1;
  }
  const std::optional<uint32_t> second = utf16_unit(text.substr(6));
  if ((*unit & 0xfc00) == 0xd800 && second && (*second & 0xfc00) == 0xdc00) {
    append_utf8(buffer, 0x10000 + ((*unit & 0x3ff) << 10) + (*second & 0x3ff));
    return 12;
  }
  append_utf8(buffer, *unit);
  return 6;
}

size_t take_xml_reference(std::string_view text, std::string& buffer) {
  static constexpr std::array<std::pair<std::string_view, char>, 5> kNamed = {
      {{"&lt;", '<'}, {"&gt;", '>'}, {"&amp;", '&'}, {"&quot;", '"'}, {"&apos;", '\''}}};
  for (const auto& [reference, meaning] : kNamed) {
    if (text.starts_with(reference)) {
      buffer += meaning;
      return reference.size();
    }
  }
  const size_t end = text.find(';');
  if (text.starts_with("&#") && end != std::string_view::npos) {
    const bool is_hexadecimal = text.starts_with("&#x");
    const size_t begin = is_hexadecimal ? 3 : 2;
    if (const auto code = character_code(text.substr(begin, end - begin), is_hexadecimal ? 16 : 10)) {
      append_utf8(buffer, *code);
      return end + 1;
    }
  }
  buffer += text.front();
  return 1;
}

template <typename Take>
std::string_view unescape(std::string_view written, char first, std::string& buffer, const Take& take) {
  size_t at = written.find(first);
  if (at == std::string_view::npos) {
    return written;
  }
  buffer.assign(written, 0, at);
  while (at < written.size()) {
    at += take(written.substr(at), buffer);
    const size_t next = std::min(written.find(first, at), written.size());
    buffer.append(written, at, next - at);
    at = next;
  }
  return buffer;
}

}  // namespace

std::string_view unescape_json(std::string_view written, std::string& buffer) {
  return unescape(written, '\\', buffer, take_json_escape);
}

std::string_view unescape_xml(std::string_view written, std::string& buffer) {
  return unescape(written, '&', buffer, take_xml_reference);
}

}  // namespace oclacp::host
