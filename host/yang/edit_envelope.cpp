#include "host/yang/edit_envelope.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <string_view>
#include <vector>

#include "host/base/error.h"
#include "host/base/printable_text.h"
#include "host/yang/xml_tags.h"

namespace oclacp::host {
namespace {

constexpr std::string_view kNetconf = "urn:ietf:params:xml:ns:netconf:base:1.0";
constexpr std::string_view kBlanks = " \t\r\n";

using Namespaces = std::map<std::string_view, std::string_view>;  // by prefix

Namespaces with_declarations(Namespaces known, const XmlTag& tag) {
  for (const auto& [name, value] : tag.attributes) {
    if (name == "xmlns") {
      known[""] = value;
    } else if (name.starts_with("xmlns:")) {
      known[name.substr(6)] = value;
    }
  }
  return known;
}

// The name of an element of NETCONF, or of none; empty for any other.
std::string_view netconf_name(const XmlTag& tag, const Namespaces& known) {
  const size_t colon = tag.name.find(':');
  const std::string_view prefix = colon == std::string_view::npos ? "" : tag.name.substr(0, colon);
  const auto found = known.find(prefix);
  const std::string_view ns = found == known.end() ? "" : found->second;
  if (ns != kNetconf && !(ns.empty() && prefix.empty())) {
    return "";
  }
  return colon == std::string_view::npos ? tag.name : tag.name.substr(colon + 1);
}

struct Option {
  std::string_view name;
  std::vector<std::string_view> values;
};

// Goes down to the data, and notes where it stands.
class Envelope {
 public:
  explicit Envelope(const std::string& text) : text_(text), tags_(text) {}

  // Whether there is one.
  bool find() {
    XmlTag tag;
    const size_t first = text_.find_first_not_of(kBlanks);
    if (first == std::string::npos || text_[first] != '<' || !tags_.next(tag) || tag.kind == XmlTag::Kind::kEnd) {
      return false;
    }
    const std::string_view name = netconf_name(tag, with_declarations({}, tag));
    if (name != "rpc" && name != "edit-config" && name != "config") {
      return false;
    }
    check_blank(0, tag.begin);
    last_end_ = tag.end;
    take(tag, {}, "");
    if (data_end_ == 0) {
      refuse(tag, "<" + shortened(tag.name) + "> holds no <config>");
    }
    if (tags_.next(tag)) {
      refuse(tag, "text after the end of the document");
    }
    check_blank(last_end_, text_.size());
    return true;
  }

  [[nodiscard]] OpenedEdit open() const {
    OpenedEdit opened;
    opened.default_operation = default_operation_;
    append_blanks(opened.text, 0, data_begin_);
    size_t at = data_begin_;
    for (const auto& [place, declarations] : declarations_) {
      opened.text.append(text_, at, place - at).append(declarations);
      at = place;
    }
    opened.text.append(text_, at, data_end_ - at);
    append_blanks(opened.text, data_end_, text_.size());
    return opened;
  }

 private:
  [[noreturn]] void refuse(const XmlTag& tag, const std::string& reason) const { refuse_at(tag.begin, reason); }

  [[noreturn]] void refuse_at(size_t place, const std::string& reason) const {
    const auto line = std::count(text_.begin(), text_.begin() + static_cast<std::ptrdiff_t>(place), '\n') + 1;
    throw Error(ErrorKind::kMalformedMessage, "the request (line " + std::to_string(line) + "): " + reason,
                {.path = {}, .file = {}, .line = static_cast<unsigned>(line)});
  }

  void append_blanks(std::string& text, size_t begin, size_t end) const {
    std::transform(text_.begin() + static_cast<std::ptrdiff_t>(begin), text_.begin() + static_cast<std::ptrdiff_t>(end),
                   std::back_inserter(text), [](char character) { return character == '\n' ? '\n' : ' '; });
  }

  // The next tag inside of an element: a child's, or the element's own end.
  XmlTag next_in(const XmlTag& element) {
    XmlTag tag;
    if (!tags_.next(tag)) {
      refuse(element, "<" + shortened(element.name) + "> has no end");
    }
    last_end_ = tag.end;
    return tag;
  }

  // Around the data there are comments and processing instructions at most: a text there was meant for something.
  void check_blank(size_t begin, size_t end) const {
    const std::string_view text = std::string_view(text_).substr(0, end);
    while ((begin = std::min(text.find_first_not_of(kBlanks, begin), end)) < end) {
      const bool is_comment = text.substr(begin).starts_with("<!--");
      if (!is_comment && !text.substr(begin).starts_with("<?")) {
        const std::string_view stray = text.substr(begin, text.find('<', begin + 1) - begin);
        refuse_at(begin, "the text '" + shortened(stray.substr(0, stray.find_last_not_of(kBlanks) + 1)) +
                             "' stands where only elements may");
      }
      const std::string_view close = is_comment ? "-->" : "?>";
      const size_t found = text.find(close, begin);
      begin = found == std::string_view::npos ? end : found + close.size();
    }
  }

  void check_end(const XmlTag& element, const XmlTag& end) const {
    if (end.name != element.name) {
      refuse(end, "</" + shortened(end.name) + "> stands where <" + shortened(element.name) + "> should end");
    }
  }

  void take(const XmlTag& element, const Namespaces& around, std::string_view above) {
    const Namespaces known = with_declarations(around, element);
    const std::string_view name = netconf_name(element, known);
    if (name == "config" && above != "rpc") {
      take_config(element, known);
    } else if (above == "edit-config") {
      take_option(element, name);
    } else if (name == "edit-config" || above.empty()) {
      take_children(element, known, name);
    } else {
      refuse(element, "<" + shortened(element.name) + "> is not <edit-config>, the only operation that is taken here");
    }
  }

  void take_children(const XmlTag& element, const Namespaces& known, std::string_view name) {
    if (element.kind == XmlTag::Kind::kEmpty) {
      return;
    }
    XmlTag child = next_in(element);
    size_t after = element.end;
    for (; child.kind != XmlTag::Kind::kEnd; child = next_in(element)) {
      check_blank(after, child.begin);
      take(child, known, name);
      after = last_end_;
    }
    check_blank(after, child.begin);
    check_end(element, child);
  }

  // The data; each of its top elements takes over the namespaces that are declared around it.
  void take_config(const XmlTag& element, const Namespaces& known) {
    if (data_end_ != 0) {
      refuse(element, "<" + shortened(element.name) + "> stands there twice");
    }
    data_begin_ = data_end_ = element.end;
    for (size_t depth = element.kind == XmlTag::Kind::kStart ? 1 : 0; depth > 0;) {
      const size_t after = last_end_;
      const XmlTag tag = next_in(element);
      if (depth == 1) {
        check_blank(after, tag.begin);
      }
      if (tag.kind == XmlTag::Kind::kEnd) {
        data_end_ = tag.begin;
        if (--depth == 0) {
          check_end(element, tag);
        }
        continue;
      }
      if (depth == 1) {
        declarations_.emplace_back(tag.begin + 1 + tag.name.size(), missing_declarations(tag, known));
      }
      depth += tag.kind == XmlTag::Kind::kStart ? 1 : 0;
    }
  }

  static std::string missing_declarations(const XmlTag& tag, const Namespaces& known) {
    const Namespaces own = with_declarations({}, tag);
    std::string text;
    for (const auto& [prefix, uri] : known) {
      if (own.count(prefix) == 0) {
        text.append(prefix.empty() ? " xmlns" : " xmlns:").append(prefix).append("=\"").append(uri).append("\"");
      }
    }
    return text;
  }

  // <target>, <default-operation> and the like: the text or the name of the element in it.
  void take_option(const XmlTag& element, std::string_view name) {
    std::string value;
    size_t at = element.end;
    for (size_t depth = element.kind == XmlTag::Kind::kStart ? 1 : 0; depth > 0;) {
      const XmlTag tag = next_in(element);
      value.append(text_, at, tag.begin - at);
      at = tag.end;
      if (tag.kind == XmlTag::Kind::kEnd) {
        --depth;
      } else {
        value.append(tag.name.substr(tag.name.find(':') + 1));
        depth += tag.kind == XmlTag::Kind::kStart ? 1 : 0;
      }
    }
    std::erase_if(value, [](char character) { return kBlanks.find(character) != std::string_view::npos; });
    judge_option(element, name, value);
  }

  void judge_option(const XmlTag& element, std::string_view name, const std::string& value) {
    static const std::vector<Option> kOptions = {{"target", {"running"}},
                                                 {"default-operation", {"merge", "replace", "none"}},
                                                 {"test-option", {"test-then-set", "set"}},
                                                 {"error-option", {"stop-on-error", "rollback-on-error"}}};
    const auto option =
        std::find_if(kOptions.begin(), kOptions.end(), [name](const Option& known) { return known.name == name; });
    if (option == kOptions.end()) {
      refuse(element, "<" + shortened(element.name) + "> is not understood in an edit");
    }
    if (std::find(option->values.begin(), option->values.end(), value) == option->values.end()) {
      refuse(element, "<" + shortened(element.name) + "> says '" + shortened(value) + "', which is not supported here");
    }
    if (name == "default-operation") {
      default_operation_ = value;
    }
  }

  const std::string& text_;
  XmlTags tags_;
  size_t last_end_ = 0;  // of the last tag
  size_t data_begin_ = 0;
  size_t data_end_ = 0;                                       // 0: no data was found
  std::vector<std::pair<size_t, std::string>> declarations_;  // by the place where they are to be put in
  std::string default_operation_;
};

}  // namespace

std::optional<OpenedEdit> open_edit_envelope(const std::string& text) {
  Envelope envelope(text);
  return envelope.find() ? std::optional(envelope.open()) : std::nullopt;
}

}  // namespace oclacp::host
