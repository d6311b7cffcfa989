// The translator's way back: from native data to OpenConfig.
#include "host/services/current_device.h"
#include "host/translation/loaded_mapping.h"
#include "host/translation/module_quirks.h"
#include "host/translation/native_reader.h"
#include "host/translation/unmapped_leaves.h"
#include "host/trees/path_request.h"
#include "host/trees/subtree_filter.h"
#include "host/yang/native_parser.h"

namespace oclacp::host {
namespace {

const lyd_node* find_top(const lyd_node* tops, std::string_view name) {
  while (tops != nullptr && name != tops->schema->name) {
    tops = tops->next;
  }
  return tops;
}

// The device of a translation without one: it has LACP where the input has, and everywhere when the input is state
// without the configuration of interfaces.
class InputSnapshot final : public EmptySnapshot {
 public:
  explicit InputSnapshot(const lyd_node* input) : EmptySnapshot(input) {}

  [[nodiscard]] bool assumes_lacp() const override {
    return lyd_child(find_top(running(), "interface-configurations")) == nullptr;
  }
};

// What a path asks for, on both sides.
struct ReadRequest {
  ReadRequest(const ly_ctx* context, const MappingModule& module, SchemaIndex& native_paths, const std::string& path,
              uint32_t operation, const RecordSinks& sinks)
      : request(parse_path(context, path)), asked(native_paths, false) {
    module.require_offer();
    name_contents_of_bare_entries(request);
    walk_request(module.request_walker(), request, operation, asked, sinks);
  }

  RequestTree request;
  OutputLog asked;
};

// The device's data for a native top node; null when it has none.
const lyd_node* find_data(const DeviceSnapshot& device, const lysc_node* top) {
  return find_top((top->flags & LYS_CONFIG_W) != 0 ? device.running() : device.operational(), top->name);
}

}  // namespace

Answer Translator::get(const DeviceSnapshot& device, const GetOptions& options) {
  const CurrentDevice installed(device);
  const uint32_t operation = operation_code(options.kind);
  const RecordSinks sinks = {options.debug_log, options.trace};
  ReadRequest read_request(parts_->schemas.request(), parts_->module, parts_->native_paths, options.path, operation,
                           sinks);
  Answer answer;
  const EntryFilter wanted = make_entry_filter(read_request.request.top());
  NativeReader reader(parts_->module, parts_->openconfig_paths, operation, wanted, sinks);
  const NativeSelection selection(read_request.asked);
  for (const NativeSelection::Node* selected : selection.tops()) {
    const lyd_node* data = find_data(device, selected->schema);
    if (data == nullptr) {
      continue;
    }
    if (options.keeps_going) {
      std::vector<std::string> failures = reader.read_by_entry(data, selected);
      std::move(failures.begin(), failures.end(), std::back_inserter(answer.failures));
    } else {
      reader.read(data, selected);
    }
  }
  reader.finish(answer);
  apply_subtree_filter(answer.data, read_request.request.top());
  return answer;
}

std::string Translator::list_unmapped(const DeviceSnapshot& device, const std::string& path) {
  const CurrentDevice installed(device);
  const ReadRequest read_request(parts_->schemas.request(), parts_->module, parts_->native_paths, path,
                                 operation_code(RequestKind::kReadConfig), {});
  std::string text;
  const NativeSelection selection(read_request.asked);
  for (const NativeSelection::Node* selected : selection.tops()) {
    const yfw_map_walker walker = parts_->module.native_walker(selected->schema->module->ns, selected->schema->name);
    const lyd_node* data = find_data(device, selected->schema);
    if (walker == nullptr || data == nullptr) {
      continue;
    }
    for (const std::string& line : find_unmapped(data, *selected, walker, parts_->openconfig_paths)) {
      text.append(line).append("\n");
    }
  }
  return text;
}

Answer Translator::to_openconfig(const std::string& native, const DeviceSnapshot* device,
                                 const ToOpenconfigOptions& options) {
  const ParsedNative parsed = parse_native(parts_->schemas.native(), native, options.kind == RequestKind::kReadState);
  const InputSnapshot input_device(parsed.data.get());
  const CurrentDevice installed(device == nullptr ? input_device : *device);
  parts_->module.require_offer();
  const RecordSinks sinks = {options.debug_log, options.trace};
  const EntryFilter all;
  NativeReader reader(parts_->module, parts_->openconfig_paths, operation_code(options.kind), all, sinks);
  for (const lyd_node* top = parsed.data.get(); top != nullptr; top = top->next) {
    reader.read(top, nullptr);
  }
  Answer answer;
  answer.input_format = parsed.format;
  reader.finish(answer);
  return answer;
}

}  // namespace oclacp::host
