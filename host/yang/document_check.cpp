#include "host/yang/document_check.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "host/base/error.h"

namespace oclacp::host {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kJsonOperation = "ietf-netconf:operation";

constexpr bool is_blank(char character) {
  return character == ' ' || character == '\t' || character == '\r' || character == '\n';
}

// A position in the text, and how to refuse there.
class Scanner {
 public:
  Scanner(std::string_view text, std::string subject) : text_(text), subject_(std::move(subject)) {}

 protected:
  [[noreturn]] void refuse(size_t position, const std::string& reason,
                           ErrorKind kind = ErrorKind::kMalformedMessage) const {
    const auto before = text_.substr(0, std::min(position, text_.size()));
    const auto line = std::count(before.begin(), before.end(), '\n') + 1;
    throw Error(kind, subject_ + " (line " + std::to_string(line) + "): " + reason,
                {.path = {}, .file = {}, .line = static_cast<unsigned>(line)});
  }

  void enter(size_t position) {
    if (++depth_ > kMaxRequestDepth) {
      refuse(position, "nested deeper than " + std::to_string(kMaxRequestDepth) + " levels", ErrorKind::kTooBig);
    }
  }

  [[nodiscard]] std::string_view text() const { return text_; }
  [[nodiscard]] size_t skip_blanks(size_t position) const {
    while (position < text_.size() && is_blank(text_[position])) {
      ++position;
    }
    return position;
  }

  unsigned depth_ = 0;

 private:
  std::string_view text_;
  std::string subject_;
};

// Which characters of a JSON text matter outside of strings.
constexpr std::array<bool, 256> kMatters = [] {
  std::array<bool, 256> matters{};
  for (const unsigned char character : {'"', '{', '}', '[', ']'}) {
    matters[character] = true;
  }
  return matters;
}();

// Brackets and strings of a JSON text; everything else is libyang's to judge.
class JsonScanner : Scanner {
 public:
  using Scanner::Scanner;

  // The brackets of the outer levels.
  std::vector<JsonBrackets> scan() {
    size_t position = 0;
    while (position < text().size()) {
      position = step(position);
      if (done_ && skip_blanks(position) < text().size()) {
        refuse(skip_blanks(position), "text behind the end of the document");
      }
    }
    if (depth_ > 0) {
      refuse(text().size(), "the document ends early");
    }
    return std::move(outer_);
  }

 private:
  // Takes the token at `position` and answers where the next one may begin.
  size_t step(size_t position) {
    switch (text()[position]) {
      case '"':
        return take_string(position);
      case '{':
      case '[':
        open(position);
        return position + 1;
      case '}':
      case ']':
        leave(position);
        return position + 1;
      default:
        return behind_plain(position + 1);
    }
  }

  // Most characters outside of strings do not matter.
  [[nodiscard]] size_t behind_plain(size_t position) const {
    const std::string_view all = text();
    while (position < all.size() && !kMatters[static_cast<unsigned char>(all[position])]) {
      ++position;
    }
    return position;
  }

  void open(size_t position) {
    enter(position);
    metadata_names_.emplace_back();
    if (depth_ <= kOuterLevels) {
      open_[depth_ - 1] = outer_.size();
      outer_.push_back({position, position});
    }
  }

  void leave(size_t position) {
    if (depth_ == 0) {
      refuse(position, "a closing bracket without an opening one");
    }
    if (depth_ == metadata_depth_) {
      metadata_depth_ = 0;
    }
    if (depth_ <= kOuterLevels) {
      outer_[open_[depth_ - 1]].close = position;
    }
    metadata_names_.pop_back();
    done_ = --depth_ == 0;
  }

  // A member's name may announce metadata (RFC 7952, 5.2): "@" or "@name" before an object whose members are
  // attributes.
  size_t take_string(size_t position) {
    const size_t end = end_of_string(position);
    const std::string_view content = text().substr(position + 1, end - position - 2);
    const size_t colon = skip_blanks(end);
    if (colon == text().size() || text()[colon] != ':') {
      return end;
    }
    if (metadata_depth_ != 0) {
      if (content != kJsonOperation) {
        refuse(
            position,
            "attribute '" + std::string(content) + "' is not understood, only '" + std::string(kJsonOperation) + "' is",
            ErrorKind::kUnknownAttribute);
      }
    } else if (!content.empty() && content.front() == '@') {
      // libyang keeps the operations of both, or complains of a leaf that is missing.
      if (depth_ != 0 && !metadata_names_.back().insert(content).second) {
        refuse(position, "'" + std::string(content) + "' is named twice", ErrorKind::kBadAttribute);
      }
      metadata_depth_ = depth_ + 1;
      const size_t object = skip_blanks(colon + 1);
      if (object == text().size() || text()[object] != '{') {
        refuse(position, "'" + std::string(content) + "' is not followed by an object of attributes");
      }
    }
    return colon + 1;
  }

  [[nodiscard]] size_t end_of_string(size_t begin) const {
    const std::string_view all = text();
    size_t position = begin + 1;
    while (position < all.size() && all[position] != '"') {
      position += all[position] == '\\' ? 2 : 1;
    }
    if (position >= all.size()) {
      refuse(begin, "a string without an end");
    }
    return position + 1;
  }

  std::vector<JsonBrackets> outer_;
  std::array<size_t, kOuterLevels> open_{};                           // those that are open, in outer_
  unsigned metadata_depth_ = 0;                                       // depth inside an object of attributes; 0 outside
  std::vector<std::unordered_set<std::string_view>> metadata_names_;  // of the objects around the position
  bool done_ = false;
};

// Tags and attributes of an XML text; everything else is libyang's to judge.
class XmlScanner : Scanner {
 public:
  using Scanner::Scanner;

  size_t scan() {
    size_t position = 0;
    while ((position = text().find('<', position)) != std::string_view::npos) {
      position = take_markup(position);
    }
    return operations_;
  }

 private:
  size_t take_markup(size_t begin) {
    const std::string_view rest = text().substr(begin);
    if (rest.starts_with("<!--")) {
      return behind("-->", begin);
    }
    if (rest.starts_with("<![CDATA[")) {
      return behind("]]>", begin);
    }
    if (rest.starts_with("<?")) {
      return behind("?>", begin);
    }
    if (rest.starts_with("</")) {
      depth_ -= depth_ > 0 ? 1 : 0;
      return behind(">", begin);
    }
    return take_start_tag(begin);
  }

  size_t take_start_tag(size_t begin) {
    enter(begin);
    attributes_.clear();
    size_t position = text().find_first_of(" \t\r\n/>", begin);
    while (true) {
      position = position == std::string_view::npos ? text().size() : skip_blanks(position);
      if (position == text().size()) {
        refuse(begin, "a tag without an end");
      }
      if (text()[position] == '>') {
        return position + 1;
      }
      if (text()[position] == '/') {
        --depth_;
        return position + 1;
      }
      position = take_attribute(position);
    }
  }

  size_t take_attribute(size_t begin) {
    const size_t name_end = text().find_first_of(" \t\r\n=/>", begin);
    const size_t quote = text().find_first_of("\"'>", begin);
    if (quote == std::string_view::npos || text()[quote] == '>') {
      refuse(begin, "an attribute without a value");
    }
    judge(text().substr(begin, name_end - begin), begin);
    const size_t end = text().find(text()[quote], quote + 1);
    return end == std::string_view::npos ? end : end + 1;
  }

  void judge(std::string_view name, size_t position) {
    if (!attributes_.insert(name).second) {
      refuse(position, "attribute '" + std::string(name) + "' is named twice", ErrorKind::kBadAttribute);
    }
    if (name == "xmlns" || name.starts_with("xmlns:")) {
      return;
    }
    if (!name.ends_with(":operation")) {
      refuse(position,
             "attribute '" + std::string(name) +
                 "' is not understood, only 'operation' of the NETCONF base "
                 "namespace is",
             ErrorKind::kUnknownAttribute);
    }
    ++operations_;
  }

  [[nodiscard]] size_t behind(std::string_view end, size_t begin) const {
    const size_t found = text().find(end, begin);
    if (found == std::string_view::npos) {
      refuse(begin, "markup without an end");
    }
    return found + end.size();
  }

  size_t operations_ = 0;
  std::unordered_set<std::string_view> attributes_;  // of the tag
};

// Where the outer levels of a JSON text are. Most are plain.
std::vector<JsonBrackets> scan_json(std::string_view text, const std::string& subject) {
  std::optional<std::vector<JsonBrackets>> plain = find_plain_brackets(text, kMaxRequestDepth);
  return plain ? std::move(*plain) : JsonScanner(text, subject).scan();
}

// Where the text begins that is not blank.
size_t check_not_empty(std::string_view text, const std::string& subject) {
  if (text.find('\0') != std::string_view::npos) {
    throw Error(ErrorKind::kMalformedMessage, subject + ": holds a NUL character");
  }
  const size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) {
    throw Error(ErrorKind::kMalformedMessage, subject + ": empty");
  }
  return first;
}

}  // namespace

DocumentInfo inspect_document(std::string_view text, const std::string& subject) {
  if (text.size() > kMaxRequestBytes) {
    throw Error(ErrorKind::kTooBig, subject + ": longer than " + std::to_string(kMaxRequestBytes >> 20) + " MiB");
  }
  if (text[check_not_empty(text, subject)] == '<') {
    return {LYD_XML, XmlScanner(text, subject).scan()};
  }
  scan_json(text, subject);
  return {LYD_JSON, 0};
}

std::vector<JsonBrackets> check_json_document(std::string_view text, const std::string& subject) {
  check_not_empty(text, subject);
  return scan_json(text, subject);
}

}  // namespace oclacp::host
