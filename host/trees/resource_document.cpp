#include "host/trees/resource_document.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "host/base/error.h"
#include "host/yang/document_check.h"
#include "host/yang/path_parser.h"
#include "host/yang/schema_nodes.h"
#include "host/yang/xml_tags.h"

namespace oclacp::host {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

// A node on the way to the resource.
struct Level {
  const lysc_node* schema;
  const lys_module* module_above;
  std::vector<std::pair<std::string, std::string>> keys;
};

std::vector<Level> levels_of(const ly_ctx* context, const std::string& path) {
  std::vector<Level> levels;
  const std::vector<PathStep> steps = parse_path_steps(path);
  for (const PathStep& step : steps) {
    const lysc_node* above = levels.empty() ? nullptr : levels.back().schema;
    const lysc_node* schema = find_step(context, above, step);
    if (schema == nullptr) {
      throw node_error(ErrorKind::kUnknownElement, (above == nullptr ? "" : schema_path(above)) + "/" + step.name,
                       "no such node");
    }
    levels.push_back({schema, above == nullptr ? nullptr : above->module, step.predicates});
  }
  return levels;
}

void check_keys(const Level& level) {
  for (const auto& [name, value] : level.keys) {
    const lysc_node* key = lys_find_child(level.schema, level.schema->module, name.c_str(), name.size(), 0, 0);
    if (key == nullptr || !lysc_is_key(key)) {
      throw node_error(ErrorKind::kUnknownElement, schema_path(level.schema), "'" + name + "' is not one of its keys");
    }
  }
  for (const lysc_node* key = lysc_node_child(level.schema); key != nullptr && lysc_is_key(key); key = key->next) {
    const std::string_view name = key->name;
    if (std::none_of(level.keys.begin(), level.keys.end(), [name](const auto& given) { return given.first == name; })) {
      throw node_error(ErrorKind::kMissingElement, schema_path(level.schema),
                       std::string("the path of a part of it needs the key '") + key->name + "'");
    }
  }
}

std::string json_text(std::string_view value) {
  std::string text = "\"";
  for (const char character : value) {
    if (character == '"' || character == '\\') {
      text += '\\';
    }
    text += character;
  }
  return text + "\"";
}

std::string xml_text(std::string_view value) {
  std::string text;
  for (const char character : value) {
    switch (character) {
      case '<':
        text += "&lt;";
        break;
      case '&':
        text += "&amp;";
        break;
      default:
        text += character;
    }
  }
  return text;
}

// The name of the first member, without its module; empty when there is none.
std::string_view first_member(std::string_view members) {
  const size_t begin = members.find('"');
  const size_t end = begin == std::string_view::npos ? begin : members.find('"', begin + 1);
  if (end == std::string_view::npos) {
    return "";
  }
  const std::string_view name = members.substr(begin + 1, end - begin - 1);
  return name.substr(name.find(':') + 1);
}

// Whether a document that begins with this name holds the node itself.
bool is_itself(const Level& level, std::string_view name) {
  return name == level.schema->name;
}

std::string frame_json(std::vector<Level> levels, const std::string& text) {
  check_json_document(text, "the request");
  const size_t begin = text.find_first_not_of(kBlanks);
  const size_t end = text.find_last_not_of(kBlanks);
  if (text[begin] != '{') {
    throw Error(ErrorKind::kMalformedMessage, "the request: a part of a tree is an object with the node as its member");
  }
  const std::string_view members = std::string_view(text).substr(begin + 1, end - begin - 1);
  const bool is_empty = members.find_first_not_of(kBlanks) == std::string_view::npos;
  if (is_itself(levels.back(), first_member(members))) {
    levels.pop_back();
  }
  std::string front = "{";
  std::string back = "}";
  for (const Level& level : levels) {
    const bool is_list = level.schema->nodetype == LYS_LIST;
    front.append("\"");
    if (level.schema->module != level.module_above) {
      front.append(level.schema->module->name).append(":");
    }
    front.append(level.schema->name).append(is_list ? "\":[{" : "\":{");
    back.insert(0, is_list ? "}]" : "}");
    const bool is_last = &level == &levels.back();
    for (const auto& [name, value] : level.keys) {
      const bool ends = is_last && is_empty && &name == &level.keys.back().first;
      front.append(json_text(name)).append(":").append(json_text(value)).append(ends ? "" : ",");
    }
  }
  return text.substr(0, begin) + front + std::string(members) + back + text.substr(end + 1);
}

std::string frame_xml(std::vector<Level> levels, const std::string& text) {
  XmlTag tag;
  if (!XmlTags(text).next(tag)) {
    throw Error(ErrorKind::kMalformedMessage, "the request: holds no element");
  }
  if (is_itself(levels.back(), tag.name.substr(tag.name.find(':') + 1))) {
    levels.pop_back();
  }
  std::string front;
  std::string back;
  for (const Level& level : levels) {
    const std::string name = level.schema->name;
    front.append("<").append(name);
    if (level.schema->module != level.module_above) {
      front.append(" xmlns=\"").append(level.schema->module->ns).append("\"");
    }
    front.append(">");
    for (const auto& [key, value] : level.keys) {
      front.append("<").append(key).append(">").append(xml_text(value)).append("</").append(key).append(">");
    }
    back.insert(0, "</" + name + ">");
  }
  // What stands in front of the element, such as the XML declaration, goes; its lines stay.
  std::string lines(
      static_cast<size_t>(std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(tag.begin), '\n')), '\n');
  return lines + front + text.substr(tag.begin) + back;
}

}  // namespace

std::string frame_resource(const ly_ctx* context, const std::string& path, const std::string& text) {
  const std::vector<Level> levels = levels_of(context, path);
  for (const Level& level : levels) {
    if (level.schema->nodetype == LYS_LIST) {
      check_keys(level);
    } else if (!level.keys.empty()) {
      throw node_error(ErrorKind::kUnknownElement, schema_path(level.schema), "is not a list, and has no keys");
    }
  }
  const size_t begin = text.find_first_not_of(kBlanks);
  return begin != std::string::npos && text[begin] == '<' ? frame_xml(levels, text) : frame_json(levels, text);
}

}  // namespace oclacp::host
