// A look at a request's text before libyang reads it.
#pragma once

#include <libyang/libyang.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host/yang/json_brackets.h"

namespace oclacp::host {

// The largest request, and the deepest nesting of elements or brackets. The served models need less than 20 levels;
// libyang descends by recursion, so the depth must be bounded before it starts.
inline constexpr std::size_t kMaxRequestBytes = std::size_t{32} << 20;
inline constexpr unsigned kMaxRequestDepth = 100;

// What the look found.
struct DocumentInfo {
  LYD_FORMAT format;           // XML when the first character that is not blank is '<', else JSON
  std::size_t operations = 0;  // XML: attributes called `operation` with a prefix, to be found again in the parsed tree
};

// Checks what libyang lets pass or cannot survive: size, depth, an empty or unfinished document, text after the end of
// a JSON document, attributes other than the edit operation, which libyang would drop without a word, and nodes that
// are named twice, with which it would take a time that grows with the square of their number. Linear in the text.
// `context`: of the schemas that the text is to be read with. `subject` is what an Error is about that names no node.
// Throws Error.
DocumentInfo inspect_document(const ly_ctx* context, std::string_view text, const std::string& subject = "the request");

// The same for the depth, the end and the attributes of a document that is JSON and of any size. Returns where its
// outer levels are, in the order of the text.
std::vector<JsonBrackets> check_json_document(std::string_view text, const std::string& subject);

}  // namespace oclacp::host
