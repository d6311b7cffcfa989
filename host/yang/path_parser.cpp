#include "host/yang/path_parser.h"

#include <algorithm>
#include <string_view>

#include "host/base/error.h"
#include "host/base/printable_text.h"

namespace oclacp::host {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kAnyValue = "*";

class PathParser {
 public:
  explicit PathParser(std::string_view path) : path_(path) {}

  std::vector<PathStep> parse() {
    const size_t end = path_.find_last_not_of('/') + 1;
    if (end == 0) {
      refuse("names no node");
    }
    std::vector<PathStep> steps;
    if (path_.front() == '/') {
      ++at_;
    }
    steps.push_back(take_step());
    while (at_ < end) {
      expect('/');
      steps.push_back(take_step());
    }
    return steps;
  }

 private:
  [[noreturn]] void refuse(const std::string& reason) const {
    throw Error(ErrorKind::kBadElement, "the path '" + shortened(path_) + "': " + reason);
  }

  void expect(char character) {
    if (at_ == path_.size() || path_[at_] != character) {
      refuse(std::string("'") + character + "' is missing after '" + shortened(path_.substr(0, at_)) + "'");
    }
    ++at_;
  }

  void skip_blanks() { at_ = std::min(path_.find_first_not_of(kBlanks, at_), path_.size()); }

  std::string take_name() {
    const size_t begin = at_;
    at_ = std::min(path_.find_first_of("/[]=: \t\r\n", at_), path_.size());
    if (at_ == begin) {
      refuse("the name of a node is missing after '" + shortened(path_.substr(0, at_)) + "'");
    }
    return std::string(path_.substr(begin, at_ - begin));
  }

  PathStep take_step() {
    PathStep step;
    step.name = take_name();
    if (at_ < path_.size() && path_[at_] == ':') {
      ++at_;
      step.module = std::exchange(step.name, take_name());
    }
    while (at_ < path_.size() && path_[at_] == '[') {
      take_predicate(step);
    }
    return step;
  }

  void take_predicate(PathStep& step) {
    expect('[');
    skip_blanks();
    std::string name = take_name();
    if (at_ < path_.size() && path_[at_] == ':') {
      ++at_;
      name = take_name();
    }
    skip_blanks();
    expect('=');
    skip_blanks();
    const bool is_quoted = at_ < path_.size() && (path_[at_] == '"' || path_[at_] == '\'');
    const size_t begin = at_;
    std::string value = is_quoted ? take_quoted() : take_bare();
    if (value.empty()) {
      refuse("'" + shortened(name) + "' is given no value");
    }
    // An escaped asterisk is one.
    if (path_.substr(begin, at_ - begin) != kAnyValue) {
      step.predicates.emplace_back(std::move(name), std::move(value));
    }
    expect(']');
  }

  std::string take_quoted() {
    const char quote = path_[at_++];
    const size_t end = path_.find(quote, at_);
    if (end == std::string_view::npos) {
      refuse("a text in quotes has no end");
    }
    std::string value(path_.substr(at_, end - at_));
    at_ = end + 1;
    skip_blanks();
    return value;
  }

  std::string take_bare() {
    std::string value;
    while (at_ < path_.size() && path_[at_] != ']') {
      at_ += path_[at_] == '\\' && at_ + 1 < path_.size() ? 1 : 0;
      value.push_back(path_[at_++]);
    }
    return value;
  }

  std::string_view path_;
  size_t at_ = 0;
};

}  // namespace

std::vector<PathStep> parse_path_steps(const std::string& path) {
  if (path.size() > kMaxPathBytes) {
    throw Error(ErrorKind::kTooBig, "the path '" + path.substr(0, 32) + "...': has " + std::to_string(path.size()) +
                                        " bytes, more than the " + std::to_string(kMaxPathBytes) + " that are taken");
  }
  return PathParser(path).parse();
}

}  // namespace oclacp::host
