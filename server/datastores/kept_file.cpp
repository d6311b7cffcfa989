#include "server/datastores/kept_file.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <optional>

#include "host/base/error.h"

namespace oclacp::server {
namespace {

using host::Error;
using host::ErrorKind;
using host::file_error;

constexpr std::string_view kSections = "sections";
constexpr std::string_view kChecksum = "checksum";

// http://www.isthe.com/chongo/tech/comp/fnv/: FNV-1a, 64 bits.
uint64_t checksum_of(std::string_view text, uint64_t sum) {
  constexpr uint64_t kPrime = 1099511628211U;
  for (const char character : text) {
    sum = (sum ^ static_cast<unsigned char>(character)) * kPrime;
  }
  return sum;
}

std::string checksum_of(std::string_view head, std::string_view body) {
  constexpr uint64_t kStart = 14695981039346656037U;
  std::array<char, 17> text{};
  static_cast<void>(std::snprintf(text.data(), text.size(), "%016jx",
                                  static_cast<uintmax_t>(checksum_of(body, checksum_of(head, kStart)))));
  return text.data();
}

// The text up to a line break, which is taken away with it; nothing when there is none.
std::optional<std::string_view> take_line(std::string_view& text) {
  const size_t end = text.find('\n');
  if (end == std::string_view::npos) {
    return std::nullopt;
  }
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end + 1);
  return line;
}

template <typename Number>
std::optional<Number> to_number(std::string_view text) {
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

class Reader {
 public:
  Reader(std::string_view text, const std::string& file) : whole_(text), left_(text), file_(file) {}

  void take_kind(std::string_view kind, unsigned format) {
    const std::optional<std::string_view> line = take_line(left_);
    if (!line || !line->starts_with(kind) || line->size() <= kind.size() || (*line)[kind.size()] != ' ') {
      throw damaged("it does not begin with '" + std::string(kind) + "'");
    }
    const std::optional<unsigned> found = to_number<unsigned>(line->substr(kind.size() + 1));
    if (!found) {
      throw damaged("its format has no number");
    }
    if (*found != format) {
      throw file_error(
          ErrorKind::kOperationFailed, file_,
          "is of format " + std::to_string(*found) + ", and this program knows format " + std::to_string(format));
    }
  }

  KeptFile take_rest() {
    KeptFile content;
    std::string sizes;
    while (true) {
      const size_t here = whole_.size() - left_.size();
      const std::optional<std::string_view> line = take_line(left_);
      const size_t colon = line ? line->find(": ") : std::string_view::npos;
      if (colon == std::string_view::npos) {
        throw damaged("it ends within its head");
      }
      const std::string_view name = line->substr(0, colon);
      const std::string_view value = line->substr(colon + 2);
      if (name == kChecksum) {
        check(whole_.substr(0, here), value);
        break;
      }
      if (name == kSections) {
        sizes = value;
      } else {
        content.fields.emplace_back(name, unescape(value));
      }
    }
    take_sections(sizes, content);
    return content;
  }

  [[nodiscard]] Error damaged(const std::string& reason) const {
    return file_error(ErrorKind::kOperationFailed, file_, "is damaged: " + reason);
  }

 private:
  void check(std::string_view head, std::string_view sum) {
    if (take_line(left_) != std::string_view()) {
      throw damaged("no empty line follows its head");
    }
    if (sum != checksum_of(head, left_)) {
      throw damaged("its checksum is another one");
    }
  }

  // The checksum is right, so that what is wrong here was written so.
  void take_sections(std::string_view sizes, KeptFile& content) {
    while (!sizes.empty()) {
      const size_t end = std::min(sizes.find(' '), sizes.size());
      const std::optional<size_t> size = to_number<size_t>(sizes.substr(0, end));
      if (!size || *size > left_.size()) {
        throw damaged("its sections are not there");
      }
      content.sections.emplace_back(left_.substr(0, *size));
      left_.remove_prefix(*size);
      sizes.remove_prefix(std::min(end + 1, sizes.size()));
    }
  }

  std::string_view whole_;
  std::string_view left_;
  const std::string& file_;
};

}  // namespace

const std::string& KeptFile::field(std::string_view name, const std::string& file) const {
  const auto found = std::find_if(fields.begin(), fields.end(), [&](const auto& field) { return field.first == name; });
  if (found == fields.end()) {
    throw file_error(ErrorKind::kOperationFailed, file, "is damaged: it has no '" + std::string(name) + "'");
  }
  return found->second;
}

std::string print_kept_file(const KeptFile& content, std::string_view kind, unsigned format) {
  std::string head = std::string(kind) + " " + std::to_string(format) + "\n";
  for (const auto& [name, value] : content.fields) {
    head.append(name).append(": ").append(escape(value)).append("\n");
  }
  std::string body;
  std::string sizes;
  for (const std::string& section : content.sections) {
    sizes.append(sizes.empty() ? "" : " ").append(std::to_string(section.size()));
    body.append(section);
  }
  head.append(kSections).append(": ").append(sizes).append("\n");
  const std::string sum = checksum_of(head, body);
  return head + std::string(kChecksum) + ": " + sum + "\n\n" + body;
}

KeptFile parse_kept_file(std::string_view text, std::string_view kind, unsigned format, size_t sections,
                         const std::string& file) {
  Reader reader(text, file);
  reader.take_kind(kind, format);
  KeptFile content = reader.take_rest();
  if (content.sections.size() < sections) {
    throw reader.damaged("it has too few sections");
  }
  return content;
}

std::string escape(std::string_view text) {
  std::string escaped;
  for (const char character : text) {
    switch (character) {
      case '\\':
        escaped += "\\\\";
        break;
      case '\n':
        escaped += "\\n";
        break;
      case '\t':
        escaped += "\\t";
        break;
      default:
        escaped += character;
    }
  }
  return escaped;
}

std::string unescape(std::string_view text) {
  std::string plain;
  for (size_t index = 0; index < text.size(); ++index) {
    if (text[index] != '\\' || index + 1 == text.size()) {
      plain += text[index];
      continue;
    }
    const char escaped = text[++index];
    plain += escaped == 'n' ? '\n' : escaped == 't' ? '\t' : escaped;
  }
  return plain;
}

}  // namespace oclacp::server
