#include "support/platform.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "support/invocation.h"

namespace support {
namespace {

Platform* current_platform = nullptr;
thread_local unsigned depth = 0;

std::set<std::string> tags_in(const yfw_datatree& node) {
  std::set<std::string> tags;
  if ((node.flags & YFW_FLAG_SUBTREE) == 0 || node.children == nullptr) return tags;
  for (unsigned int i = 0; i < node.child_count; ++i) tags.insert(shown(&node.children[i]));
  return tags;
}

}  // namespace

std::string Call::text() const {
  std::string text = function;
  if (!arguments.empty()) text += " " + arguments;
  if (!answer.empty()) text += " -> " + answer;
  return text;
}

Platform::Platform() : outer_(std::exchange(current_platform, this)) {
  state_.descriptor = &descriptor_;
  descriptor_.operation = YFW_REQUEST_EDIT;
  context_.request = &state_;
  // Opaque to the module; what matters is that each is handed back where it belongs.
  context_.error_log = reinterpret_cast<yfw_log_stream*>(&context_.error_log);
  context_.trace_log = reinterpret_cast<yfw_log_stream*>(&context_.trace_log);
  context_.trace_buffer = reinterpret_cast<yfw_trace_buffer*>(&context_.trace_buffer);
  context_.trace_enabled = 1;
  yfw_intf_mgbl_connid = nullptr;
}

Platform::~Platform() {
  current_platform = outer_;
  for (const void* copy : seen_.copies) std::free(const_cast<void*>(copy));
}

Platform& Platform::current() {
  if (current_platform == nullptr) std::abort();
  return *current_platform;
}

void Platform::add_physical(const std::string& entry_name) {
  interfaces[entry_name] = Interface{};
}

void Platform::add_virtual(const std::string& entry_name) {
  interfaces[entry_name] = Interface{.attribute = IMC_ATTRIBUTE_VIRTUAL};
}

void Platform::script(std::string function, unsigned nth, std::uint32_t answer, std::string containing) {
  rules_.push_back({std::move(function), nth, answer, std::move(containing)});
}

void Platform::before(std::string function, unsigned nth, std::function<void()> action) {
  actions_.push_back({std::move(function), nth, std::move(action)});
}

void Platform::inject_fault(unsigned nth, cerrno answer) {
  fault_at_ = nth;
  fault_answer_ = answer;
}

std::optional<std::uint32_t> Platform::scripted(const Call& call, bool fallible) {
  for (Action& action : actions_) {
    if (action.function == call.function && ++action.matched == action.nth) action.run();
  }
  if (fallible && ++fallible_calls_ == fault_at_) {
    const std::string handler = seen_.records.empty() ? "" : seen_.records.back().handler;
    fault_ = Fault{.call = call,
                   .handler = handler,
                   .whole_subtree = state_.whole_subtree,
                   .replace_flags = state_.replace_flags,
                   .store_is_open = !seen_.connections.empty(),
                   .named = seen_.hierarchy.empty() ? std::set<std::string>{} : tags_in(*seen_.hierarchy.back().first),
                   .records = trace().size(),
                   .error_paths = count("yfw_oc_error_path")};
    return fault_answer_;
  }
  for (Rule& rule : rules_) {
    if (rule.function != call.function || call.arguments.find(rule.containing) == std::string::npos) continue;
    if (++rule.matched == rule.nth || rule.nth == 0) return rule.answer;
  }
  return std::nullopt;
}

std::string Platform::error_tag() const {
  return state_.error_tag == nullptr ? "" : state_.error_tag;
}

unsigned Platform::count(std::string_view function, std::string_view arguments) const {
  return static_cast<unsigned>(std::count_if(seen_.calls.begin(), seen_.calls.end(), [&](const Call& call) {
    return call.function == function && call.arguments.find(arguments) != std::string::npos;
  }));
}

std::vector<std::string> Platform::trace() const {
  std::vector<std::string> lines;
  for (const Record& record : seen_.records) {
    if (record.sink == Record::Sink::kTraceBuffer) {
      lines.push_back(record.level + " " + record.handler + ": " + record.text);
    }
  }
  return lines;
}

unsigned Platform::traced(std::string_view handler, std::string_view text) const {
  return static_cast<unsigned>(std::count_if(seen_.records.begin(), seen_.records.end(), [&](const Record& record) {
    return record.sink == Record::Sink::kTraceBuffer && record.handler == handler && record.text == text;
  }));
}

bool inside_platform() {
  return depth != 0;
}

std::uint32_t effective_operation(const yfw_datatree* node) {
  for (; node != nullptr; node = static_cast<const yfw_datatree*>(node->framework)) {
    if (node->operation != YFW_OPERATION_NONE) return node->operation;
  }
  return YFW_OPERATION_NONE;
}

bool deletes(const yfw_datatree* node) {
  const std::uint32_t operation = effective_operation(node);
  return operation == YFW_OPERATION_DELETE || operation == YFW_OPERATION_REMOVE;
}

Invocation::Invocation(const char* function) : platform_(Platform::current()) {
  ++depth;
  call_.function = function;
}

Invocation::~Invocation() {
  platform_.seen_.calls.push_back(std::move(call_));
  --depth;
}

void Invocation::arguments(std::initializer_list<std::string> texts) {
  for (const std::string& text : texts) {
    if (!call_.arguments.empty()) call_.arguments += ' ';
    call_.arguments += text;
  }
}

void Invocation::require(bool right, const char* what) {
  if (!right) platform_.seen_.misuses.push_back(call_.text() + ": " + what);
}

}  // namespace support
