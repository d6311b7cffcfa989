#include "host/yang/libyang.h"

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

std::string print_tree(const ly_ctx* context, const lyd_node* tree, LYD_FORMAT format) {
  char* printed = nullptr;
  if (lyd_print_mem(&printed, tree, format, LYD_PRINT_WITHSIBLINGS) != LY_SUCCESS) {
    throw Refusal(last_complaint(context, "the data"));
  }
  const std::unique_ptr<char, decltype(&std::free)> owner(printed, &std::free);
  return printed == nullptr ? "" : printed;
}

}  // namespace oclacp::host
