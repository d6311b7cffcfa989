#include "host/yang/libyang_error.h"

#include <charconv>
#include <string_view>

#include "host/base/printable_text.h"

namespace oclacp::host {
namespace {

// How libyang begins to tell of a value that its enumeration lacks.
constexpr std::string_view kNoName = "Invalid enumeration value \"";

// The part of `where` in quotes after `label`; empty when there is none.
std::string_view quoted_after(std::string_view where, std::string_view label) {
  const size_t found = where.find(label);
  if (found == std::string_view::npos) {
    return {};
  }
  const size_t begin = found + label.size();
  return where.substr(begin, where.find('"', begin) - begin);
}

unsigned line_in(std::string_view where) {
  constexpr std::string_view kLine = "ine number ";
  const size_t found = where.find(kLine);
  unsigned line = 0;
  if (found != std::string_view::npos) {
    std::from_chars(where.data() + found + kLine.size(), where.data() + where.size(), line);
  }
  return line;
}

ErrorKind kind_of(const ly_ctx* context, std::string_view reason) {
  if (ly_errcode(context) == LY_EMEM) {
    return ErrorKind::kOutOfMemory;
  }
  switch (ly_vecode(context)) {
    case LYVE_SYNTAX:
    case LYVE_SYNTAX_XML:
    case LYVE_SYNTAX_JSON:
      return ErrorKind::kMalformedMessage;
    case LYVE_REFERENCE:
      return reason.find("not found") == std::string_view::npos ? ErrorKind::kInvalidValue : ErrorKind::kUnknownElement;
    default:
      return ErrorKind::kInvalidValue;
  }
}

}  // namespace

std::string LibyangError::sentence(const std::string& subject) const {
  return (path.empty() ? subject : path) + (line == 0 ? "" : " (line " + std::to_string(line) + ")") + ": " + reason;
}

namespace {

// A long value that libyang quotes, without its end.
void shorten_quoted(std::string& reason) {
  const size_t first = reason.find('"');
  const size_t last = reason.rfind('"');
  if (last > first && first != std::string::npos) {
    reason.replace(first + 1, last - first - 1, shortened(reason.substr(first + 1, last - first - 1)));
  }
}

// "/a:b[c='d']/e" without its predicates.
std::string without_predicates(std::string_view path) {
  std::string bare;
  char quote = '\0';
  unsigned depth = 0;
  for (const char character : path) {
    if (quote != '\0') {
      quote = character == quote ? '\0' : quote;
    } else if (depth > 0 && (character == '\'' || character == '"')) {
      quote = character;
    } else if (character == '[') {
      ++depth;
    } else if (depth == 0) {
      bare += character;
    } else if (character == ']') {
      --depth;
    }
  }
  return bare;
}

// Null when libyang names no leaf.
const lysc_node* find_leaf(const ly_ctx* context, const std::string& path) {
  if (!path.starts_with('/')) {
    return nullptr;
  }
  const uint32_t logged = ly_log_options(0);
  const lysc_node* found = lys_find_path(context, nullptr, without_predicates(path).c_str(), 0);
  ly_log_options(logged);
  return found;
}

// Makes of libyang's complaint about an enumeration's value one that tells which there are.
void list_names(const lysc_node& leaf, std::string& reason) {
  const bool is_leaf = (leaf.nodetype & LYD_NODE_TERM) != 0;
  const lysc_type* type = is_leaf ? reinterpret_cast<const lysc_node_leaf&>(leaf).type : nullptr;
  if (type == nullptr || type->basetype != LY_TYPE_ENUM) {
    return;
  }
  std::string names;
  const lysc_type_bitenum_item* items = reinterpret_cast<const lysc_type_enum*>(type)->enums;
  for (LY_ARRAY_COUNT_TYPE index = 0; index < LY_ARRAY_COUNT(items); ++index) {
    names.append(names.empty() ? "" : ", ").append(items[index].name);
  }
  reason = "'" + reason.substr(kNoName.size(), reason.rfind('"') - kNoName.size()) + "' is none of " + names;
}

LibyangError describe(const ly_ctx* context, const char* message, const char* place) {
  // libyang's place is "Schema location "/a:b", data location "/a:b", line number 3." with any part missing, or the
  // path of a schema's node alone.
  const std::string_view where = place == nullptr ? "" : place;
  std::string_view path = quoted_after(where, "ata location \"");
  if (path.empty()) {
    path = quoted_after(where, "chema location \"");
  }
  if (path.empty() && where.starts_with('/')) {
    path = where;
  }
  const std::string said = message == nullptr ? "" : message;
  const lysc_node* leaf = said.starts_with(kNoName) ? find_leaf(context, std::string(path)) : nullptr;
  return {kind_of(context, said), std::string(path), line_in(where), value_reason(leaf, said)};
}

}  // namespace

std::string value_reason(const lysc_node* leaf, std::string message) {
  if (message.empty()) {
    return "unusable";
  }
  if (message.ends_with('.')) {
    message.pop_back();
  }
  shorten_quoted(message);
  if (leaf != nullptr && message.starts_with(kNoName)) {
    list_names(*leaf, message);
  }
  return message;
}

LibyangError last_libyang_error(const ly_ctx* context) {
  return describe(context, ly_errmsg(context), ly_errpath(context));
}

LibyangError first_libyang_error(const ly_ctx* context) {
  const ly_err_item* first = ly_err_first(context);
  return first == nullptr ? last_libyang_error(context) : describe(context, first->msg, first->path);
}

Error libyang_error(const ly_ctx* context, const std::string& subject, const std::string& prefix) {
  const LibyangError error = last_libyang_error(context);
  return {error.kind, prefix + error.sentence(subject), {.path = error.path, .file = {}, .line = error.line}};
}

}  // namespace oclacp::host
