#include "host/yang/text_sink.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "host/base/error.h"

namespace oclacp::host {
namespace {

constexpr std::string_view kBlanks = "                                                                ";

using Escapes = std::array<std::array<char, 8>, 256>;

// What stands for a character in a JSON string; empty for itself.
constexpr Escapes kJsonEscapes = [] {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  Escapes escapes{};
  for (size_t code = 0; code < 0x20; ++code) {
    escapes[code] = {'\\', 'u', '0', '0', kDigits[code / 16], kDigits[code % 16]};
  }
  escapes['"'] = {'\\', '"'};
  escapes['\\'] = {'\\', '\\'};
  return escapes;
}();

const char* xml_escape(char character) {
  switch (character) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    default:
      return "";
  }
}

}  // namespace

void TextSink::empty_buffer() {
  if (used_ != 0) {
    const std::string_view text(buffer_.data(), used_);
    used_ = 0;
    write(text);
  }
}

void TextSink::put_long(std::string_view text) {
  empty_buffer();
  if (text.size() >= buffer_.size()) {
    write(text);
    return;
  }
  put(text);
}

void TextSink::indent(unsigned level) {
  for (size_t blanks = size_t{2} * level; blanks != 0;) {
    const size_t count = std::min(blanks, kBlanks.size());
    put(kBlanks.substr(0, count));
    blanks -= count;
  }
}

template <typename Escape>
void TextSink::put_escaped(std::string_view text, const Escape& escape) {
  size_t plain = 0;
  for (size_t position = 0; position < text.size(); ++position) {
    if (const char* escaped = escape(text[position]); escaped[0] != '\0') {
      put(text.substr(plain, position - plain));
      put(escaped);
      plain = position + 1;
    }
  }
  put(text.substr(plain));
}

void TextSink::put_json(std::string_view text) {
  put_escaped(text, [](char character) { return kJsonEscapes[static_cast<unsigned char>(character)].data(); });
}

void TextSink::put_xml(std::string_view text) {
  put_escaped(text, xml_escape);
}

void FileSink::write(std::string_view text) {
  if (std::fwrite(text.data(), 1, text.size(), file_) != text.size() || std::fflush(file_) != 0) {
    throw Error(system_error_kind(errno), std::string("the result cannot be written: ") + std::strerror(errno));
  }
}

}  // namespace oclacp::host
