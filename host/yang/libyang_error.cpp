#include "host/yang/libyang_error.h"

#include <charconv>
#include <string_view>

namespace oclacp::host {
namespace {

// The part of `where` in quotes behind `label`; empty when there is none.
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

LibyangError last_libyang_error(const ly_ctx* context) {
  const char* message = ly_errmsg(context);
  std::string reason = message == nullptr ? "unusable" : message;
  if (reason.ends_with('.')) {
    reason.pop_back();
  }
  // libyang's place is "Schema location "/a:b", data location "/a:b", line number 3." with any part missing.
  const char* place = ly_errpath(context);
  const std::string_view where = place == nullptr ? "" : place;
  std::string_view path = quoted_after(where, "ata location \"");
  if (path.empty()) {
    path = quoted_after(where, "chema location \"");
  }
  return {kind_of(context, reason), std::string(path), line_in(where), std::move(reason)};
}

Error libyang_error(const ly_ctx* context, const std::string& subject, const std::string& prefix) {
  const LibyangError error = last_libyang_error(context);
  return {error.kind, prefix + error.sentence(subject), {.path = error.path, .file = {}, .line = error.line}};
}

}  // namespace oclacp::host
