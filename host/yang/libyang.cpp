#include "host/yang/libyang.h"

#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "host/refusal.h"

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

}  // namespace

std::string last_complaint(const ly_ctx* context, const std::string& what) {
  const char* message = ly_errmsg(context);
  const char* place = ly_errpath(context);
  const std::string reason = message == nullptr ? "unusable" : message;
  const std::string_view where = place == nullptr ? "" : place;
  // libyang's place is "Schema location "/a:b", data location "/a:b", line number 3." with any part missing.
  std::string_view node = quoted_after(where, "ata location \"");
  if (node.empty()) {
    node = quoted_after(where, "chema location \"");
  }
  constexpr std::string_view kLine = "ine number ";
  const size_t line = where.find(kLine);
  std::string sentence = node.empty() ? what : std::string(node);
  if (line != std::string_view::npos) {
    const size_t begin = line + kLine.size();
    sentence += " (line " + std::string(where.substr(begin, where.find('.', begin) - begin)) + ")";
  }
  sentence += ": " + reason;
  if (sentence.back() == '.') {
    sentence.pop_back();
  }
  return sentence;
}

// A stream in memory: libyang's own text buffer is reallocated and its parts are allocated with every few bytes.
std::string print_tree(const ly_ctx* context, const lyd_node* tree, LYD_FORMAT format) {
  char* text = nullptr;
  size_t size = 0;
  FILE* stream = open_memstream(&text, &size);
  const LY_ERR status = stream == nullptr ? LY_EMEM : lyd_print_file(stream, tree, format, LYD_PRINT_WITHSIBLINGS);
  const bool is_closed = stream != nullptr && std::fclose(stream) == 0;
  const std::unique_ptr<char, decltype(&std::free)> owner(text, &std::free);
  if (!is_closed || status != LY_SUCCESS) {
    throw Refusal(last_complaint(context, "the data"));
  }
  return {text, size};
}

}  // namespace oclacp::host
