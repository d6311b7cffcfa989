// Texts as documents write them, and what they stand for.
#pragma once

#include <string>
#include <string_view>

namespace oclacp::host {

// What the inside of a JSON string (RFC 8259, 7), or the content of an XML element or attribute (XML 1.0, 4.1), stands
// for. A text without escapes is returned as it is, and any other in `buffer`, which outlives the result. What is not
// an escape of the format stays as written: whether it may stand there is libyang's to judge.
std::string_view unescape_json(std::string_view written, std::string& buffer);
std::string_view unescape_xml(std::string_view written, std::string& buffer);

}  // namespace oclacp::host
