#include "host/yang/path_text.h"

namespace oclacp::host {
namespace {

void append_quoted(std::string& text, std::string_view value) {
  const char quote = value.find('\'') == std::string_view::npos ? '\'' : '"';
  text.append(1, quote).append(value).append(1, quote);
}

}  // namespace

void append_predicate(std::string& path, std::string_view key, std::string_view value) {
  path.append("[").append(key).append("=");
  if (!has_both_quotes(value)) {
    append_quoted(path, value);
  } else {
    path.append("concat(");
    while (!value.empty()) {
      // The longest piece with one sort of quotes.
      const char other = value[value.find_first_of("'\"")] == '"' ? '\'' : '"';
      const std::string_view piece = value.substr(0, value.find(other));
      append_quoted(path, piece);
      value.remove_prefix(piece.size());
      path.append(value.empty() ? ")" : ", ");
      if (!has_both_quotes(value) && !value.empty()) {
        append_quoted(path, value);
        path.append(")");
        break;
      }
    }
  }
  path.append("]");
}

}  // namespace oclacp::host
