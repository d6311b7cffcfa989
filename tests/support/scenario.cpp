#include "support/scenario.h"

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>
#include <string_view>

#include "support/invocation.h"

namespace support {
namespace {

[[noreturn]] void refuse(const std::string& line, const char* reason) {
  std::cerr << "scenario: " << reason << ": \"" << line << "\"\n";
  std::exit(2);
}

std::vector<std::string> words_of(const std::string& line) {
  std::istringstream stream(line);
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

std::uint32_t number(const std::string& text) {
  return static_cast<std::uint32_t>(std::stoul(text, nullptr, 0));
}

// The facts and how many arguments each takes.
const std::map<std::string, std::size_t>& fact_arguments() {
  static const std::map<std::string, std::size_t> arguments = {
      {"operation", 1},      {"physical", 1}, {"virtual", 1},  {"store", 1}, {"store-library", 1},
      {"interface-lacp", 1}, {"option", 2},   {"key-gate", 2}, {"fail", 3}};
  return arguments;
}

// Namespaces by the names that call logs give them.
std::string namespace_of(const std::string& word) {
  for (const char* ns : {kOpenconfigLacp, kIfmgrCfg, kBundlemgrCfg, kBundlemgrOper}) {
    if (shown_namespace(ns) == word) return ns;
  }
  return word;
}

void set_option(yfw_request_descriptor& descriptor, const std::string& field, std::uint32_t value) {
  const std::map<std::string, std::uint8_t*> groups = {
      {"options_584", &descriptor.options_584}, {"options_5b0", &descriptor.options_5b0},
      {"options_5c8", &descriptor.options_5c8}, {"options_5d0", &descriptor.options_5d0},
      {"options_610", &descriptor.options_610}, {"options_634", &descriptor.options_634},
      {"options_638", &descriptor.options_638}, {"options_8fa", &descriptor.options_8fa}};
  if (field == "options_60c") {
    descriptor.options_60c = value;
  } else if (field == "option_mode") {
    descriptor.option_mode = value;
  } else if (groups.count(field) != 0) {
    *groups.at(field) = static_cast<std::uint8_t>(value);
  } else {
    refuse(field, "unknown option");
  }
}

void annotate(Node& node, const std::string& annotation, const std::string& line) {
  static const std::map<std::string, std::uint32_t> operations = {{"replace", YFW_OPERATION_REPLACE},
                                                                  {"create", YFW_OPERATION_CREATE},
                                                                  {"delete", YFW_OPERATION_DELETE},
                                                                  {"remove", YFW_OPERATION_REMOVE}};
  const std::vector<std::string> words = words_of(annotation);
  if (words.size() == 1 && operations.count(words[0]) != 0) {
    node.operation = operations.at(words[0]);
  } else if (words.size() == 2 && words[0] == "ns") {
    node.ns = namespace_of(words[1]);
  } else {
    refuse(line, "unknown annotation");
  }
}

// "tag [annotation] [annotation] = value"
Node parse_node(const std::string& line) {
  Node node;
  std::string head = line.substr(line.find_first_not_of(' '));
  if (const std::size_t equals = head.find(" ="); equals != std::string::npos) {
    const std::size_t value = equals + 2;
    node.value = head.size() > value && head[value] == ' ' ? head.substr(value + 1) : head.substr(value);
    head.resize(equals);
  }
  const std::size_t end = head.find(' ');
  node.tag = head.substr(0, end);
  for (std::size_t open = head.find('['); open != std::string::npos; open = head.find('[', open + 1)) {
    const std::size_t close = head.find(']', open);
    if (close == std::string::npos) refuse(line, "annotation without end");
    annotate(node, head.substr(open + 1, close - open - 1), line);
  }
  return node;
}

struct TreeLine {
  std::size_t depth;
  Node node;
};

// Takes the node at `next` and, as its children, the deeper ones after it.
Node take_tree(std::vector<TreeLine>& lines, std::size_t& next) {
  const std::size_t depth = lines[next].depth;
  Node node = std::move(lines[next++].node);
  while (next < lines.size() && lines[next].depth > depth) {
    if (lines[next].depth != depth + 1) refuse(lines[next].node.tag.value_or(""), "indented too deep");
    node.children.push_back(take_tree(lines, next));
  }
  return node;
}

}  // namespace

Scenario parse_scenario(std::istream& text) {
  Scenario scenario;
  std::vector<TreeLine> tree;
  for (std::string line; std::getline(text, line);) {
    const std::size_t indent = line.find_first_not_of(' ');
    if (indent == std::string::npos || line[indent] == '#') continue;
    const std::vector<std::string> words = words_of(line);
    const auto fact = fact_arguments().find(words[0]);
    if (indent == 0 && fact != fact_arguments().end()) {
      if (words.size() != fact->second + 1) refuse(line, "wrong number of arguments");
      scenario.facts.push_back({words[0], {words.begin() + 1, words.end()}});
      if (words[0] == "operation") scenario.operation = number(words[1]);
      continue;
    }
    if (indent % 2 != 0) refuse(line, "indented by an odd number of blanks");
    if ((indent == 0) != tree.empty()) refuse(line, "a scenario has one root");
    tree.push_back({indent / 2, parse_node(line)});
  }
  if (tree.empty()) refuse("", "no tree");
  std::size_t next = 0;
  scenario.root = take_tree(tree, next);
  return scenario;
}

Scenario read_scenario(const std::string& file) {
  std::ifstream stream(file);
  if (!stream) refuse(file, "cannot be read");
  return parse_scenario(stream);
}

void Scenario::apply(Platform& platform) const {
  platform.set_operation(operation);
  for (const auto& [name, arguments] : facts) {
    if (name == "physical") {
      platform.add_physical(arguments[0]);
    } else if (name == "virtual") {
      platform.add_virtual(arguments[0]);
    } else if (name == "store") {
      platform.store_items.push_back(arguments[0]);
    } else if (name == "store-library") {
      platform.store_library_present = arguments[0] != "missing";
    } else if (name == "interface-lacp") {
      platform.lacp_interfaces.insert(arguments[0]);
    } else if (name == "option") {
      set_option(platform.descriptor(), arguments[0], number(arguments[1]));
    } else if (name == "key-gate") {
      platform.state().key_gate = {.word = number(arguments[0]),
                                   .level = static_cast<std::uint8_t>(number(arguments[1]))};
    } else if (name == "fail") {
      platform.script(arguments[0], number(arguments[1]), number(arguments[2]));
    }
  }
}

}  // namespace support
