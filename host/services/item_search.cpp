#include "host/services/item_search.h"

#include <regex.h>

namespace oclacp::host {
namespace {

// A POSIX extended regular expression that must match a whole text.
class Pattern {
 public:
  explicit Pattern(const char* text) {
    const std::string anchored = std::string("^(") + text + ")$";
    compiled_ = regcomp(&regex_, anchored.c_str(), REG_EXTENDED | REG_NOSUB) == 0;
  }
  ~Pattern() {
    if (compiled_) {
      regfree(&regex_);
    }
  }
  Pattern(const Pattern&) = delete;
  Pattern& operator=(const Pattern&) = delete;
  Pattern(Pattern&&) = delete;
  Pattern& operator=(Pattern&&) = delete;

  [[nodiscard]] bool is_usable() const { return compiled_; }
  [[nodiscard]] bool matches(const std::string& text) const {
    return regexec(&regex_, text.c_str(), 0, nullptr, 0) == 0;
  }

 private:
  regex_t regex_{};
  bool compiled_ = false;
};

}  // namespace

std::optional<FoundItems> search_items(const std::vector<std::string>& items, const std::string& pattern) {
  const Pattern compiled(pattern.c_str());
  if (!compiled.is_usable()) {
    return std::nullopt;
  }
  FoundItems found;
  for (const std::string& item : items) {
    if (compiled.matches(item)) {
      found.begins.push_back(found.texts.size());
      found.texts.append(item).push_back('\0');
    }
  }
  return found;
}

}  // namespace oclacp::host
