#include "support/call_log.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>

#include "support/invocation.h"

namespace support {
namespace {

// A call log's line and how many calls it stands for.
struct Line {
  std::string text;
  std::size_t calls = 1;
};

// The record that starts at `at`: asked for, logged, numbered and traced, with the same level and text in both sinks.
// The texts of statuses are fetched in between. Nothing when anything is different.
std::optional<Line> folded_record(const std::vector<Call>& calls, std::size_t at) {
  std::vector<const Call*> steps;
  std::size_t next = at;
  for (; next < calls.size() && steps.size() < 4; ++next) {
    if (calls[next].function != "cerr_strerror") steps.push_back(&calls[next]);
  }
  if (steps.size() != 4 || steps[0]->function != "yfw_debug_should_log" || steps[1]->function != "dt_log_filter_adv" ||
      steps[2]->function != "ret_nc_yfw_trace_index_incr" || steps[3]->function != "_lstrace") {
    return std::nullopt;
  }
  const std::string level = steps[1]->arguments.substr(0, 3);
  const std::string text = steps[1]->arguments.substr(4);
  const std::string& traced = steps[3]->arguments;
  const std::string asked = level == "ERR" ? "0" : "3";
  if (steps[0]->arguments != asked || traced.size() < text.size() + 5 || !traced.starts_with(level) ||
      !traced.ends_with(text)) {
    return std::nullopt;
  }
  const std::string handler = traced.substr(4, traced.size() - text.size() - 5);
  return Line{level + " " + handler + ": " + text.substr(1, text.size() - 2), next - at};
}

// The comparisons of one text, in the first argument, with others.
Line folded_comparisons(const std::vector<Call>& calls, std::size_t at) {
  constexpr char kFunction[] = "yfw_map_do_these_match";
  const std::string tag = calls[at].arguments.substr(0, calls[at].arguments.find("\" ") + 1);
  Line line{std::string(kFunction) + " " + tag + ":", 0};
  for (std::size_t next = at; next < calls.size(); ++next, ++line.calls) {
    const Call& call = calls[next];
    if (call.function != kFunction || !call.arguments.starts_with(tag + " ")) break;
    line.text += (call.answer == "0" ? " " : " =") + call.arguments.substr(tag.size() + 1);
  }
  return line;
}

Line next_line(const std::vector<Call>& calls, std::size_t at) {
  const std::string& function = calls[at].function;
  if (function == "yfw_debug_should_log") {
    if (auto line = folded_record(calls, at)) return *line;
  }
  if (function == "yfw_map_do_these_match" && calls[at].arguments.front() == '"') return folded_comparisons(calls, at);
  return {calls[at].text()};
}

// Who has started and not ended. A handler that leaves without an End record is dropped when a handler around it ends,
// or when it took its own node, the first that it entered, off the hierarchy: after that it has little to do before the
// End that it then owes.
class Indent {
 public:
  [[nodiscard]] std::size_t depth() const { return running_.size(); }

  void before(const std::string& line) {
    if (line.starts_with("yfw_remove_from_output_list_ctx")) return;
    const bool ends = records(line, ": End");
    if (left_ && !(ends && handler_of(line) == running_.back())) running_.pop_back();
    left_ = false;
    if (ends) drop_to(handler_of(line));
  }

  void after(const std::string& line) {
    if (records(line, ": Start")) running_.push_back(handler_of(line));
    if (line.starts_with("yfw_map_add_to_node_hierarchy ")) entered_.push_back(running_.size());
    if (line.starts_with("yfw_map_remove_from_node_hierarchy ") && !entered_.empty()) {
      const std::size_t depth = entered_.back();
      entered_.pop_back();
      running_.resize(std::min(running_.size(), depth));
      left_ = !running_.empty() && (entered_.empty() || entered_.back() != depth);
    }
  }

 private:
  static bool records(const std::string& line, std::string_view text) {
    return line.starts_with("TRC ") && line.ends_with(text);
  }
  static std::string handler_of(const std::string& line) { return line.substr(4, line.rfind(": ") - 4); }

  void drop_to(const std::string& handler) {
    const auto found = std::find(running_.rbegin(), running_.rend(), handler);
    if (found != running_.rend()) running_.erase(found.base() - 1, running_.end());
  }

  std::vector<std::string> running_;
  std::vector<std::size_t> entered_;
  bool left_ = false;
};

const char* operation_name(const Addition& addition) {
  if (!addition.key.empty()) return "entry";
  if (addition.source == nullptr) return addition.ns == kOpenconfigLacp ? "report" : "read";
  switch (addition.operation) {
    case YFW_OPERATION_NONE:
      return "merge";
    case YFW_OPERATION_REPLACE:
      return "replace";
    case YFW_OPERATION_CREATE:
      return "create";
    case YFW_OPERATION_DELETE:
      return "delete";
    case YFW_OPERATION_REMOVE:
      return "remove";
    default:
      return "unknown";
  }
}

}  // namespace

std::vector<std::string> call_log(const std::vector<Call>& calls) {
  std::vector<std::string> lines;
  Indent indent;
  for (std::size_t at = 0; at < calls.size();) {
    const Line line = next_line(calls, at);
    indent.before(line.text);
    lines.push_back(std::string(2 * indent.depth(), ' ') + line.text);
    indent.after(line.text);
    at += line.calls;
  }
  return lines;
}

std::vector<std::string> output_table(const std::vector<Addition>& additions) {
  std::vector<std::string> lines;
  for (const Addition& addition : additions) {
    std::string line = std::string(operation_name(addition)) + " " + addition.path;
    if (!addition.key.empty()) line += "[" + addition.key + "]";
    line += addition.value ? " = " + shown(addition.value->c_str()) : "";
    line += "  (" + shown_namespace(addition.ns.c_str());
    if (addition.list_flag != 0) line += ", list " + std::to_string(addition.list_flag);
    if (addition.last_flag != 0) line += ", last " + std::to_string(addition.last_flag);
    if (addition.word != 0) line += ", extra word";
    lines.push_back(line + ")");
  }
  return lines;
}

}  // namespace support
