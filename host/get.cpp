// The translator's way back: from native data to OpenConfig.
#include "host/datastore/installed_device.h"
#include "host/framework/prune.h"
#include "host/reading.h"
#include "host/translator_parts.h"
#include "host/unmapped.h"
#include "host/yang/answer_printer.h"
#include "host/yang/native_parser.h"
#include "host/yang/request_path.h"

namespace oclacp::host {
namespace {

// The device of a translation without one: it has LACP where the input has.
class InputDevice final : public Device {
 public:
  explicit InputDevice(const lyd_node* running) : running_(running) {}

  [[nodiscard]] uint32_t router_type() const override { return EmptyDevice().router_type(); }
  [[nodiscard]] const std::vector<Interface>& interfaces() const override { return interfaces_; }
  [[nodiscard]] const lyd_node* running() const override { return running_; }

 private:
  const lyd_node* running_;
  std::vector<Interface> interfaces_;
};

const lyd_node* find_top(const lyd_node* tops, const lysc_node* schema) {
  while (tops != nullptr && tops->schema != schema) {
    tops = tops->next;
  }
  return tops;
}

std::string print(const ly_ctx* context, const lyd_node* answer, AnswerFormat format) {
  return format == AnswerFormat::kTable
             ? print_table(context, answer)
             : print_answer(context, answer, format == AnswerFormat::kXml ? LYD_XML : LYD_JSON);
}

}  // namespace

Answer Translator::get(const Device& device, const GetOptions& options) {
  RequestTree request = parse_path(parts_->schemas.request(), options.path);
  const InstalledDevice installed(device);
  parts_->module.require_offer();
  const uint32_t operation = operation_code(RequestKind::kReadConfig);
  const RecordSinks sinks = {options.debug_log, options.trace};
  EditScript asked(parts_->native_paths, false);
  walk_request(parts_->module.request_walker(), request, operation, asked, sinks);

  Answer answer;
  Reading reading(parts_->module, parts_->openconfig_paths, operation, sinks);
  const NativeSelection selection(asked);
  for (const NativeSelection::Node* selected : selection.tops()) {
    const lyd_node* data = find_top(device.running(), selected->schema);
    if (data == nullptr) {
      continue;
    }
    if (options.keeps_going) {
      std::vector<std::string> failures = reading.read_by_entry(data, selected);
      std::move(failures.begin(), failures.end(), std::back_inserter(answer.failures));
    } else {
      reading.read(data, selected);
    }
  }
  TreePtr tree = reading.answer().take();
  prune(tree, request.top());
  answer.text = print(parts_->schemas.request(), tree.get(), options.format);
  answer.dropped_leaves = reading.answer().dropped_leaves();
  return answer;
}

std::string Translator::list_unmapped(const Device& device, const std::string& path) {
  RequestTree request = parse_path(parts_->schemas.request(), path);
  const InstalledDevice installed(device);
  parts_->module.require_offer();
  const uint32_t operation = operation_code(RequestKind::kReadConfig);
  EditScript asked(parts_->native_paths, false);
  walk_request(parts_->module.request_walker(), request, operation, asked, {});

  std::string text;
  const NativeSelection selection(asked);
  for (const NativeSelection::Node* selected : selection.tops()) {
    const yfw_map_walker walker = parts_->module.native_walker(selected->schema->module->ns, selected->schema->name);
    const lyd_node* data = find_top(device.running(), selected->schema);
    if (walker == nullptr || data == nullptr) {
      continue;
    }
    for (const std::string& line : find_unmapped(data, *selected, walker, parts_->openconfig_paths)) {
      text.append(line).append("\n");
    }
  }
  return text;
}

Answer Translator::to_openconfig(const std::string& native, const Device* device, const ToOpenconfigOptions& options) {
  const ParsedNative parsed = parse_native(parts_->schemas.native(), native, options.kind == RequestKind::kReadState);
  const InputDevice input_device(parsed.data.get());
  const InstalledDevice installed(device == nullptr ? input_device : *device);
  parts_->module.require_offer();
  const RecordSinks sinks = {options.debug_log, options.trace};
  Reading reading(parts_->module, parts_->openconfig_paths, operation_code(options.kind), sinks);
  for (const lyd_node* top = parsed.data.get(); top != nullptr; top = top->next) {
    reading.read(top, nullptr);
  }
  const TreePtr tree = reading.answer().take();
  const bool is_xml =
      options.format == Format::kXml || (options.format == Format::kAsInput && parsed.format == LYD_XML);
  return {print_answer(parts_->schemas.request(), tree.get(), is_xml ? LYD_XML : LYD_JSON),
          {},
          reading.answer().dropped_leaves()};
}

}  // namespace oclacp::host
