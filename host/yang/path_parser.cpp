#include "host/yang/path_parser.h"

#include <algorithm>
#include <string_view>

#include "host/base/error.h"

namespace oclacp::host {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

class PathParser {
 public:
  explicit PathParser(std::string_view path) : path_(path) {}

  std::vector<PathStep> parse() {
    const size_t end = path_.find_last_not_of('/') + 1;
    if (end == 0) {
      refuse("names no node");
    }
    std::vector<PathStep> steps;
    while (at_ < end) {
      steps.push_back(take_step());
    }
    return steps;
  }

 private:
  [[noreturn]] void refuse(const std::string& reason) const {
    throw Error(ErrorKind::kBadElement, "the path '" + std::string(path_) + "': " + reason);
  }

  void expect(char character) {
    if (at_ == path_.size() || path_[at_] != character) {
      refuse(std::string("'") + character + "' is missing behind '" + std::string(path_.substr(0, at_)) + "'");
    }
    ++at_;
  }

  void skip_blanks() { at_ = std::min(path_.find_first_not_of(kBlanks, at_), path_.size()); }

  std::string take_name() {
    const size_t begin = at_;
    at_ = std::min(path_.find_first_of("/[]=: \t\r\n", at_), path_.size());
    if (at_ == begin) {
      refuse("the name of a node is missing behind '" + std::string(path_.substr(0, at_)) + "'");
    }
    return std::string(path_.substr(begin, at_ - begin));
  }

  PathStep take_step() {
    expect('/');
    PathStep step;
    step.name = take_name();
    if (at_ < path_.size() && path_[at_] == ':') {
      ++at_;
      step.module = std::exchange(step.name, take_name());
    }
    while (at_ < path_.size() && path_[at_] == '[') {
      step.predicates.push_back(take_predicate());
    }
    return step;
  }

  std::pair<std::string, std::string> take_predicate() {
    expect('[');
    skip_blanks();
    std::string name = take_name();
    skip_blanks();
    expect('=');
    skip_blanks();
    const char quote = at_ < path_.size() && path_[at_] == '"' ? '"' : '\'';
    expect(quote);
    const size_t end = path_.find(quote, at_);
    if (end == std::string_view::npos) {
      refuse("a text in quotes has no end");
    }
    std::string value(path_.substr(at_, end - at_));
    if (value.empty()) {
      refuse("'" + name + "' is given no value");
    }
    at_ = end + 1;
    skip_blanks();
    expect(']');
    return {std::move(name), std::move(value)};
  }

  std::string_view path_;
  size_t at_ = 0;
};

}  // namespace

std::vector<PathStep> parse_path_steps(const std::string& path) {
  return PathParser(path).parse();
}

}  // namespace oclacp::host
