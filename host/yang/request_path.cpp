#include "host/yang/request_path.h"

#include <string_view>
#include <utility>
#include <vector>

#include "host/refusal.h"
#include "host/yang/schemas.h"

namespace oclacp::host {
namespace {

constexpr const char* kTopModule = "openconfig-lacp";
constexpr std::string_view kBlanks = " \t\r\n";

class PathParser {
 public:
  PathParser(const ly_ctx* context, std::string_view path) : context_(context), path_(path), module_(kTopModule) {}

  TreePtr parse() {
    const size_t end = path_.find_last_not_of('/') + 1;
    if (end == 0) {
      refuse("names no node");
    }
    TreePtr top;
    lyd_node* node = nullptr;
    while (at_ < end) {
      node = take_step(node);
      if (top == nullptr) {
        top.reset(node);
      }
    }
    last_ = node;
    return top;
  }

  // The node that the path leads to, once it is parsed.
  [[nodiscard]] lyd_node* last() const { return last_; }
  // Whether it is one that a predicate has named, and given its value.
  [[nodiscard]] bool ends_at_predicate() const { return ends_at_predicate_; }

 private:
  [[noreturn]] void refuse(const std::string& reason) const {
    throw Refusal("the path '" + std::string(path_) + "': " + reason);
  }

  void expect(char character) {
    if (at_ == path_.size() || path_[at_] != character) {
      refuse(std::string("'") + character + "' is missing behind '" + std::string(path_.substr(0, at_)) + "'");
    }
    ++at_;
  }

  void skip_blanks() { at_ = std::min(path_.find_first_not_of(kBlanks, at_), path_.size()); }

  // A node as libyang keeps one that it has not judged; the request tree does.
  lyd_node* make(lyd_node* above, const std::string& name, const std::string* value) const {
    lyd_node* made = nullptr;
    if (lyd_new_opaq(above, context_, name.c_str(), value == nullptr ? nullptr : value->c_str(), nullptr,
                     module_.c_str(), &made) != LY_SUCCESS) {
      refuse("'" + name + "' is no name of a node");
    }
    if (value == nullptr) {
      reinterpret_cast<lyd_node_opaq*>(made)->hints = LYD_VALHINT_EMPTY;
    }
    return made;
  }

  // A step may lead to a child that a predicate has named.
  static lyd_node* find_child(const lyd_node* above, const std::string& name) {
    lyd_node* child = lyd_child(above);
    while (child != nullptr && name != reinterpret_cast<lyd_node_opaq*>(child)->name.name) {
      child = child->next;
    }
    return child;
  }

  std::string take_name() {
    const size_t begin = at_;
    at_ = std::min(path_.find_first_of("/[]=: \t\r\n", at_), path_.size());
    if (at_ == begin) {
      refuse("the name of a node is missing behind '" + std::string(path_.substr(0, at_)) + "'");
    }
    return std::string(path_.substr(begin, at_ - begin));
  }

  // "/name" or "/module:name", with its predicates.
  lyd_node* take_step(lyd_node* above) {
    expect('/');
    std::string name = take_name();
    if (at_ < path_.size() && path_[at_] == ':') {
      ++at_;
      module_ = std::exchange(name, take_name());
    }
    std::vector<std::pair<std::string, std::string>> children;
    std::string own_value;
    bool has_value = false;
    while (at_ < path_.size() && path_[at_] == '[') {
      auto [child, value] = take_predicate();
      if (child == ".") {
        own_value = value;
        has_value = true;
      } else {
        children.emplace_back(std::move(child), std::move(value));
      }
    }
    lyd_node* node = has_value ? nullptr : find_child(above, name);
    ends_at_predicate_ = node != nullptr;
    if (node == nullptr) {
      node = make(above, name, has_value ? &own_value : nullptr);
    }
    for (const auto& [child, value] : children) {
      make(node, child, &value);
    }
    return node;
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

  const ly_ctx* context_;
  std::string_view path_;
  std::string module_;
  size_t at_ = 0;
  lyd_node* last_ = nullptr;
  bool ends_at_predicate_ = false;
};

}  // namespace

RequestTree parse_path(const ly_ctx* context, const std::string& path) {
  PathParser parser(context, path);
  TreePtr data = parser.parse();
  // Asked for like this it would mean all of its entry.
  if (parser.ends_at_predicate()) {
    throw Refusal("the path '" + path + "': leads to a node that is given its value already");
  }
  RequestTree tree(context, std::move(data));
  require_served_top(tree);
  return tree;
}

ParsedRequest parse_delete_path(const ly_ctx* context, const std::string& path) {
  PathParser parser(context, path);
  TreePtr data = parser.parse();
  if (lyd_new_attr(parser.last(), operation_module(context)->name, "ietf-netconf:operation", "delete", nullptr) !=
      LY_SUCCESS) {
    throw Refusal(last_complaint(context, "the path '" + path + "'"));
  }
  RequestTree tree(context, std::move(data));
  require_served_top(tree);
  for (const yfw_datatree& node : tree.nodes()) {
    if (node.value != nullptr && !lysc_is_key(info_of(&node).schema)) {
      throw Refusal("the path '" + path + "': only list keys may be given values in a delete");
    }
  }
  return {LYD_JSON, std::move(tree)};
}

}  // namespace oclacp::host
