// Values of leaves: whether a type takes a text, and what a document shows of it.
#pragma once

#include <libyang/libyang.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace oclacp::host {

// How a document writes a value.
enum class ValueForm : uint8_t {
  kText,       // a JSON string
  kBare,       // JSON without quotes: numbers of up to 32 bits and booleans (RFC 7951, 6)
  kEmpty,      // type empty: [null], and an empty element
  kQualified,  // a JSON string; in XML its names have prefixes, which the element declares
};

// A value that a type takes.
struct CheckedValue {
  ValueForm form = ValueForm::kText;
  std::string_view text;       // the canonical form; what JSON shows
  std::string_view xml_names;  // kQualified only: the declarations, a blank in front of each
  std::string_view xml_text;   // kQualified only: the value as XML shows it
};

// Checks values by the type plugins of libyang. What they answered is kept for a bounded number of values, and plain
// values of plain types are judged without them.
class ValueCheck {
 public:
  ValueCheck();

  // Null when the type of `leaf` does not take `text`; reason() says why then. The answer holds until the next call,
  // and as long as `text`. A reference's value is taken when its target may have it.
  const CheckedValue* check(const lysc_node* leaf, std::string_view text);

  // libyang's words, without the full stop.
  [[nodiscard]] const std::string& reason() const { return reason_; }

 private:
  struct Memo {
    const lysc_node* leaf = nullptr;
    std::string text;
    std::string canonical;
    std::string xml_names;
    std::string xml_text;
    CheckedValue value;
  };

  bool ask_libyang(Memo& memo);

  std::vector<Memo> memos_;  // by a hash of the leaf and the text
  CheckedValue plain_;
  std::string reason_;
};

}  // namespace oclacp::host
