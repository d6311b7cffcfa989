// The translator's way back: from native data to OpenConfig.
#include <optional>

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
  ReadRequest(const ly_ctx* context, const MappingModule& module, SchemaIndex& native_paths,
              const std::vector<std::string>& paths, uint32_t operation, const RecordSinks& sinks)
      : request(parse_paths(context, paths)), asked(native_paths, false) {
    module.require_offer();
    name_contents_of_bare_entries(request);
    walk_request(module.request_walker(), request, operation, asked, sinks);
  }

  RequestTree request;
  OutputLog asked;
};

bool is_configuration(const lysc_node* top) {
  return (top->flags & LYS_CONFIG_W) != 0;
}

// The device's data for a native top node; null when it has none.
const lyd_node* find_data(const DeviceSnapshot& device, const lysc_node* top) {
  return find_top(is_configuration(top) ? device.running() : device.operational(), top->name);
}

// Reads what a request asks for of a device. False when its state has to be read whole, and by another reader then.
bool read_device(NativeReader& reader, const NativeSelection& selection, const DeviceSnapshot& device,
                 bool is_in_pieces) {
  for (const NativeSelection::Node* selected : selection.tops()) {
    const bool may_be_cut = is_in_pieces && !is_configuration(selected->schema);
    const NativeDocument* state = may_be_cut ? device.operational_document() : nullptr;
    if (state == nullptr) {
      reader.read(find_data(device, selected->schema), selected);
    } else if (!reader.read_in_pieces(*state, selected->schema, selected)) {
      return false;
    }
  }
  return true;
}

}  // namespace

// Pieces are read once more when they turn out to be unusable, so that what is recorded for people is never read in
// pieces.
Answer Translator::get(const DeviceSnapshot& device, const GetOptions& options) {
  const CurrentDevice installed(device);
  const uint32_t operation = operation_code(options.kind);
  const RecordSinks sinks = {options.debug_log, options.trace};
  ReadRequest read_request(parts_->schemas.request(), parts_->module, parts_->native.index, options.paths, operation,
                           sinks);
  const EntryFilter wanted = make_entry_filter(read_request.request.top());
  const NativeSelection selection(read_request.asked);
  const auto on_failure = options.keeps_going ? NativeReader::OnFailure::kLeaveOut : NativeReader::OnFailure::kStop;
  const auto read = [&](bool is_in_pieces) {
    NativeReader reader(parts_->module, parts_->openconfig, operation, wanted, sinks, on_failure);
    std::optional<Answer> answer;
    if (read_device(reader, selection, device, is_in_pieces)) {
      reader.finish(answer.emplace());
    }
    return answer;
  };
  std::optional<Answer> answer = read(!sinks.are_used());
  if (!answer) {
    answer = read(false);
  }
  apply_subtree_filter(answer->data, read_request.request.top(), parts_->openconfig.values);
  return std::move(*answer);
}

std::string Translator::list_unmapped(const DeviceSnapshot& device, const std::vector<std::string>& paths) {
  const CurrentDevice installed(device);
  const ReadRequest read_request(parts_->schemas.request(), parts_->module, parts_->native.index, paths,
                                 operation_code(RequestKind::kReadConfig), {});
  std::string text;
  const NativeSelection selection(read_request.asked);
  for (const NativeSelection::Node* selected : selection.tops()) {
    const yfw_map_walker walker = parts_->module.native_walker(selected->schema->module->ns, selected->schema->name);
    const lyd_node* data = find_data(device, selected->schema);
    if (walker == nullptr || data == nullptr) {
      continue;
    }
    for (const std::string& line : find_unmapped(data, *selected, walker, parts_->openconfig.index)) {
      text.append(line).append("\n");
    }
  }
  return text;
}

namespace {

// Reads all that a document holds. False when it has to be read whole, and by another reader then.
bool read_input(NativeReader& reader, const MappingModule& module, const NativeDocument& input,
                const DeviceSnapshot* device) {
  const lyd_node* rest = input.without_lists();
  if (rest == nullptr) {
    return false;
  }
  const InputSnapshot input_device(rest);
  const CurrentDevice installed(device == nullptr ? input_device : *device);
  if (!module.is_offered()) {
    return false;
  }
  for (const lyd_node* top = rest; top != nullptr; top = top->next) {
    if (!reader.read_in_pieces(input, top->schema, nullptr)) {
      return false;
    }
  }
  return true;
}

}  // namespace

Answer Translator::to_openconfig(const std::string& native, const DeviceSnapshot* device,
                                 const ToOpenconfigOptions& options) {
  const bool takes_state = options.kind == RequestKind::kReadState;
  const RecordSinks sinks = {options.debug_log, options.trace};
  const EntryFilter all;
  NativeReader reader(parts_->module, parts_->openconfig, operation_code(options.kind), all, sinks);
  Answer answer;
  answer.input_format = inspect_native(parts_->schemas.native(), native);
  if (answer.input_format == LYD_JSON && takes_state && !sinks.are_used()) {
    NativeReader piecewise(parts_->module, parts_->openconfig, operation_code(options.kind), all, sinks);
    const NativeDocument input(parts_->schemas.native(), native, "", LYD_VALIDATE_PRESENT, DataKind::kNative);
    if (read_input(piecewise, parts_->module, input, device)) {
      piecewise.finish(answer);
      return answer;
    }
  }
  const TreePtr data = parse_native(parts_->schemas.native(), native, answer.input_format, takes_state);
  const InputSnapshot input_device(data.get());
  const CurrentDevice installed(device == nullptr ? input_device : *device);
  parts_->module.require_offer();
  for (const lyd_node* top = data.get(); top != nullptr; top = top->next) {
    reader.read(top, nullptr);
  }
  reader.finish(answer);
  return answer;
}

}  // namespace oclacp::host
