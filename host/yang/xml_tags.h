// The tags of an XML text, one after the other.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace oclacp::host {

struct XmlTag {
  enum class Kind { kStart, kEnd, kEmpty };  // kEmpty: "<a/>", which both starts and ends

  Kind kind;
  std::string_view name;                                                  // with its prefix
  std::vector<std::pair<std::string_view, std::string_view>> attributes;  // names with prefixes, values as written
  std::size_t begin;                                                      // of '<'
  std::size_t end;                                                        // after '>'
};

// Goes through a text whose markup is complete; whether its tags fit each other is not looked at. Comments, CDATA
// sections and processing instructions are skipped. Linear in the text.
class XmlTags {
 public:
  explicit XmlTags(std::string_view text) : text_(text) {}

  // The next tag; false at the end of the text, and where the markup is broken.
  bool next(XmlTag& tag);

 private:
  bool skip_to(std::string_view end);
  bool take_attributes(XmlTag& tag);

  std::string_view text_;
  std::size_t at_ = 0;
};

}  // namespace oclacp::host
