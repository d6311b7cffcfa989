#include "host/yang/document_check.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "host/base/error.h"
#include "host/base/printable_text.h"
#include "host/yang/document_nodes.h"
#include "host/yang/escapes.h"
#include "host/yang/path_text.h"

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
    refuse_at(position, kind, subject_, reason, "");
  }

  // The same about a node that is named once too often: the current one, or with `child` one in it.
  [[noreturn]] void refuse_again(size_t position, const DocumentNodes& nodes, const lysc_node* child = nullptr) const {
    std::string path = nodes.path();
    if (child != nullptr) {
      append_step(path, *child, nodes.current() == nullptr ? nullptr : nodes.current()->module);
    }
    refuse_at(position, ErrorKind::kBadElement, path, "named twice", path);
  }

  void enter(size_t position) {
    if (++depth_ > kMaxRequestDepth) {
      refuse(position, "nested deeper than " + std::to_string(kMaxRequestDepth) + " levels", ErrorKind::kTooBig);
    }
  }

  // libyang would name the node that carries it, and no operation that there is.
  void check_operation(size_t position, std::string_view operation) const {
    static constexpr std::array<std::string_view, 5> kOperations = {"merge", "replace", "create", "delete", "remove"};
    if (std::find(kOperations.begin(), kOperations.end(), operation) == kOperations.end()) {
      refuse(position, "operation '" + shortened(operation) + "' is none of merge, replace, create, delete, remove",
             ErrorKind::kBadAttribute);
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
  [[noreturn]] void refuse_at(size_t position, ErrorKind kind, const std::string& subject, const std::string& reason,
                              const std::string& path) const {
    const auto before = text_.substr(0, std::min(position, text_.size()));
    const auto line = std::count(before.begin(), before.end(), '\n') + 1;
    throw Error(kind, subject + " (line " + std::to_string(line) + "): " + reason,
                {.path = path, .file = {}, .line = static_cast<unsigned>(line)});
  }

  std::string_view text_;
  std::string subject_;
};

// Which characters of a JSON text matter outside of strings.
constexpr std::array<bool, 256> kMatters = [] {
  std::array<bool, 256> matters{};
  for (const char character : {'"', '{', '}', '[', ']'}) {
    matters[static_cast<unsigned char>(character)] = true;
  }
  return matters;
}();

// Brackets and strings of a JSON text; everything else is libyang's to judge.
class JsonScanner : Scanner {
 public:
  // `nodes`: with null no node is looked for.
  JsonScanner(std::string_view text, std::string subject, DocumentNodes* nodes)
      : Scanner(text, std::move(subject)), nodes_(nodes) {}

  // The brackets of the outer levels.
  std::vector<JsonBrackets> scan() {
    size_t position = 0;
    while (position < text().size()) {
      position = step(position);
      if (done_ && skip_blanks(position) < text().size()) {
        refuse(skip_blanks(position), "text after the end of the document");
      }
    }
    if (depth_ > 0) {
      refuse(text().size(), "the document ends early");
    }
    return std::move(outer_);
  }

 private:
  // Takes the token at `position` and returns where the next one may begin.
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
    open_node(text()[position] == '[');
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
    if (brackets_.back().is_node) {
      nodes_->leave();
    }
    brackets_.pop_back();
    done_ = --depth_ == 0;
  }

  // An object is the node that the member in front of it, or of the array around it, names.
  void open_node(bool is_array) {
    const lysc_node* named = std::exchange(named_, nullptr);
    if (!brackets_.empty() && brackets_.back().is_array) {
      named = brackets_.back().items;
    }
    const bool is_node = nodes_ != nullptr && !is_array && !brackets_.empty();
    if (is_node) {
      nodes_->enter(named);
    }
    brackets_.push_back({.is_array = is_array, .is_node = is_node, .items = named, .metadata_names = {}});
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
            "attribute '" + shortened(content) + "' is not understood, only '" + std::string(kJsonOperation) + "' is",
            ErrorKind::kUnknownAttribute);
      }
      std::string buffer;
      check_operation(position, unescape_json(scalar_at(skip_blanks(colon + 1)), buffer));
    } else if (!content.empty() && content.front() == '@') {
      // libyang keeps the operations of both, or complains of a leaf that is missing.
      if (depth_ != 0 && !brackets_.back().metadata_names.insert(content).second) {
        refuse(position, "'" + shortened(content) + "' is named twice", ErrorKind::kBadAttribute);
      }
      metadata_depth_ = depth_ + 1;
      const size_t object = skip_blanks(colon + 1);
      if (object == text().size() || text()[object] != '{') {
        refuse(position, "'" + shortened(content) + "' is not followed by an object of attributes");
      }
      named_ = nullptr;
    } else if (nodes_ != nullptr) {
      take_name(content, position, colon + 1);
    }
    return colon + 1;
  }

  void take_name(std::string_view written, size_t position, size_t value) {
    std::string buffer;
    named_ = nodes_->find_json_child(unescape_json(written, buffer));
    if (named_ == nullptr) {
      return;
    }
    if (!nodes_->add(named_)) {
      refuse_again(position, *nodes_, named_);
    }
    if (lysc_is_key(named_) && !nodes_->set_key(named_, unescape_json(scalar_at(skip_blanks(value)), buffer))) {
      refuse_again(position, *nodes_);
    }
  }

  // A value that is no object or array, without its quotes.
  [[nodiscard]] std::string_view scalar_at(size_t position) const {
    if (position < text().size() && text()[position] == '"') {
      return text().substr(position + 1, end_of_string(position) - position - 2);
    }
    return text().substr(position, text().find_first_of(",]} \t\r\n", position) - position);
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

  // One that is open around the position.
  struct Bracket {
    bool is_array;
    bool is_node;            // an object that nodes_ has entered
    const lysc_node* items;  // of an array: what its objects are; null when the schemas do not have it
    std::unordered_set<std::string_view> metadata_names;
  };

  DocumentNodes* nodes_;
  const lysc_node* named_ = nullptr;  // by the last member's name
  std::vector<JsonBrackets> outer_;
  std::array<size_t, kOuterLevels> open_{};  // those that are open, in outer_
  unsigned metadata_depth_ = 0;              // depth inside an object of attributes; 0 outside
  std::vector<Bracket> brackets_;
  bool done_ = false;
};

// Tags and attributes of an XML text; everything else is libyang's to judge.
class XmlScanner : Scanner {
 public:
  XmlScanner(std::string_view text, std::string subject, DocumentNodes& nodes)
      : Scanner(text, std::move(subject)), nodes_(nodes) {}

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
    // libyang reads none; what it would define makes small documents large.
    if (rest.starts_with("<!DOCTYPE")) {
      refuse(begin, "holds a document type declaration, which is not accepted");
    }
    if (rest.starts_with("</")) {
      if (depth_ > 0) {
        leave_element(begin);
      }
      return behind(">", begin);
    }
    return take_start_tag(begin);
  }

  size_t take_start_tag(size_t begin) {
    enter(begin);
    attributes_.clear();
    size_t position = text().find_first_of(" \t\r\n/>", begin);
    const std::string_view name = text().substr(begin + 1, position - begin - 1);
    while (true) {
      position = position == std::string_view::npos ? text().size() : skip_blanks(position);
      if (position == text().size()) {
        refuse(begin, "a tag without an end");
      }
      if (text()[position] == '>' || text()[position] == '/') {
        enter_element(name, begin, position + 1);
        if (text()[position] == '/') {
          leave_element(position + 1);
        }
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
    const std::string_view name = text().substr(begin, name_end - begin);
    judge(name, begin);
    const size_t end = text().find(text()[quote], quote + 1);
    if (name.starts_with("xmlns")) {
      declare(name.substr(std::min(name.size(), kDeclaration.size())), text().substr(quote + 1, end - quote - 1));
    }
    if (end == std::string_view::npos) {
      return end;
    }
    if (name.ends_with(":operation")) {
      std::string buffer;
      check_operation(begin, unescape_xml(text().substr(quote + 1, end - quote - 1), buffer));
    }
    return end + 1;
  }

  // Namespaces hold from the element that declares them to its end.
  void declare(std::string_view prefix, std::string_view written) {
    std::string buffer;
    const std::string ns(unescape_xml(written, buffer));
    modules_[prefix].push_back(ly_ctx_get_module_implemented_ns(nodes_.context(), ns.c_str()));
    declared_.emplace_back(depth_, prefix);
  }

  [[nodiscard]] const lys_module* find_module(std::string_view prefix) const {
    const auto found = modules_.find(prefix);
    return found == modules_.end() || found->second.empty() ? nullptr : found->second.back();
  }

  // `begin`: of the tag; `content`: what is after it.
  void enter_element(std::string_view name, size_t begin, size_t content) {
    const size_t colon = name.find(':');
    const bool has_prefix = colon != std::string_view::npos;
    const lys_module* module = find_module(has_prefix ? name.substr(0, colon) : "");
    const lysc_node* schema = nodes_.find_child(module, has_prefix ? name.substr(colon + 1) : name);
    if (schema != nullptr && schema->nodetype != LYS_LIST && !nodes_.add(schema)) {
      refuse_again(begin, nodes_, schema);
    }
    nodes_.enter(schema);
    contents_.push_back(content);
  }

  void leave_element(size_t end) {
    const lysc_node* schema = nodes_.current();
    nodes_.leave();
    const size_t content = contents_.back();
    contents_.pop_back();
    if (schema != nullptr && lysc_is_key(schema)) {
      take_key(schema, text().substr(content, end - std::min(content, end)), content);
    }
    for (; !declared_.empty() && declared_.back().first == depth_; declared_.pop_back()) {
      modules_[declared_.back().second].pop_back();
    }
    --depth_;
  }

  // libyang takes comments after a value, and none in front of it.
  void take_key(const lysc_node* key, std::string_view content, size_t position) {
    std::string buffer;
    if (!content.starts_with('<') && !nodes_.set_key(key, unescape_xml(content.substr(0, content.find('<')), buffer))) {
      refuse_again(position, nodes_);
    }
  }

  void judge(std::string_view name, size_t position) {
    if (!attributes_.insert(name).second) {
      refuse(position, "attribute '" + shortened(name) + "' is named twice", ErrorKind::kBadAttribute);
    }
    if (name == "xmlns" || name.starts_with("xmlns:")) {
      return;
    }
    if (!name.ends_with(":operation")) {
      refuse(position,
             "attribute '" + shortened(name) +
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

  static constexpr std::string_view kDeclaration = "xmlns:";

  DocumentNodes& nodes_;
  size_t operations_ = 0;
  std::unordered_set<std::string_view> attributes_;  // of the tag
  std::vector<size_t> contents_;                     // where that of each open element begins
  std::unordered_map<std::string_view, std::vector<const lys_module*>> modules_;  // by prefix, the innermost last
  std::vector<std::pair<unsigned, std::string_view>> declared_;  // the prefixes, by their elements' depth
};

// Programs of some systems save texts so; a document of RFC 7951 or RFC 7950 is in UTF-8 (RFC 8259, 8.1).
void check_encoding(std::string_view text, const std::string& subject) {
  using namespace std::string_view_literals;
  constexpr std::array kUtf16 = {"\xff\xfe"sv, "\xfe\xff"sv, "<\0"sv, "\0<"sv, "{\0"sv, "\0{"sv};
  if (std::any_of(kUtf16.begin(), kUtf16.end(), [text](std::string_view begin) { return text.starts_with(begin); })) {
    throw Error(ErrorKind::kMalformedMessage, subject + ": is encoded in UTF-16, not in UTF-8");
  }
  if (text.starts_with("\xef\xbb\xbf")) {
    throw Error(ErrorKind::kMalformedMessage, subject + ": starts with a byte order mark");
  }
}

// Where the text begins that is not blank.
size_t check_not_empty(std::string_view text, const std::string& subject) {
  check_encoding(text, subject);
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

DocumentInfo inspect_document(const ly_ctx* context, std::string_view text, const std::string& subject) {
  if (text.size() > kMaxRequestBytes) {
    throw Error(ErrorKind::kTooBig, subject + ": longer than " + std::to_string(kMaxRequestBytes >> 20) + " MiB");
  }
  const char first = text[check_not_empty(text, subject)];
  DocumentNodes nodes(context);
  if (first == '<') {
    return {LYD_XML, XmlScanner(text, subject, nodes).scan()};
  }
  JsonScanner(text, subject, &nodes).scan();
  return {LYD_JSON, 0};
}

std::vector<JsonBrackets> check_json_document(std::string_view text, const std::string& subject) {
  check_not_empty(text, subject);
  // Most are plain.
  std::optional<std::vector<JsonBrackets>> plain = find_plain_brackets(text, kMaxRequestDepth);
  return plain ? std::move(*plain) : JsonScanner(text, subject, nullptr).scan();
}

}  // namespace oclacp::host
