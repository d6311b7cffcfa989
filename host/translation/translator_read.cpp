// The translator's way back: from native data to OpenConfig.
#include <algorithm>
#include <deque>
#include <optional>
#include <utility>

#include "host/services/current_device.h"
#include "host/translation/loaded_mapping.h"
#include "host/translation/module_quirks.h"
#include "host/translation/native_reader.h"
#include "host/translation/translator.h"
#include "host/translation/unmapped_leaves.h"
#include "host/trees/path_request.h"
#include "host/trees/read_paths.h"
#include "host/trees/subtree_filter.h"
#include "host/yang/native_parser.h"
#include "host/yang/path_parser.h"
#include "host/yang/schema_nodes.h"

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

uint32_t operation_code(Content content) {
  return content == Content::kConfig ? YFW_REQUEST_READ_CONFIG : YFW_REQUEST_READ_STATE;
}

// What a request asks for, on both sides.
struct ReadRequest {
  ReadRequest(LoadedMapping& mapping, RequestTree parsed, Content content, const RecordSinks& records)
      : request(std::move(parsed)), module(mapping.module_for(request)), asked(mapping.native.index, false) {
    module.require_offer();
    name_contents_of_bare_entries(request);
    wanted = make_entry_filter(request.top());
    walk_request(mapping.request_walker(request), request, operation_code(content), asked, records);
  }

  RequestTree request;
  const MappingModule& module;
  OutputLog asked;
  EntryFilter wanted;
};

// Each is for one top node.
using ReadRequests = std::deque<ReadRequest>;

ReadRequests read_requests(LoadedMapping& mapping, const std::vector<std::string>& paths, Content content,
                           const RecordSinks& records) {
  const ly_ctx* context = mapping.schemas.request();
  std::vector<std::pair<const lysc_node*, std::vector<std::string>>> paths_by_top;
  for (const std::string& path : paths) {
    const lysc_node* top = find_step(context, nullptr, parse_path_steps(path).front());
    const auto found = std::find_if(paths_by_top.begin(), paths_by_top.end(),
                                    [top](const auto& others) { return others.first == top; });
    (found == paths_by_top.end() ? paths_by_top.emplace_back(top, std::vector<std::string>()) : *found)
        .second.push_back(path);
  }
  ReadRequests requests;
  for (const auto& [top, of_top] : paths_by_top) {
    requests.emplace_back(mapping, parse_paths(context, of_top), content, records);
  }
  return requests;
}

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

std::vector<std::string> Translator::translate_read(const std::string& request, const DeviceSnapshot& device,
                                                    Content content, const RecordSinks& records) {
  ParsedRequest parsed = parse_request(mapping_->schemas.request(), request);
  if (parsed.tree.operations() != 0) {
    throw node_error(ErrorKind::kUnknownAttribute, node_path(parsed.tree.top()), "a read carries no edit operations");
  }
  const CurrentDevice installed(device);
  return list_read_paths(ReadRequest(*mapping_, std::move(parsed.tree), content, records).asked);
}

// Pieces are read once more when they turn out to be unusable, so that what is recorded for people is never read in
// pieces.
Answer Translator::get(const DeviceSnapshot& device, const std::vector<std::string>& paths,
                       const ReadOptions& options) {
  const CurrentDevice installed(device);
  ReadRequests requests = read_requests(*mapping_, paths, options.content, options.records);
  const auto on_failure = options.keeps_going ? NativeReader::OnFailure::kLeaveOut : NativeReader::OnFailure::kStop;
  const auto read = [&](bool is_in_pieces) {
    NativeReader reader(mapping_->openconfig, operation_code(options.content), options.records, on_failure);
    std::optional<Answer> answer;
    for (const ReadRequest& request : requests) {
      reader.use(request.module, request.wanted);
      if (!read_device(reader, NativeSelection(request.asked), device, is_in_pieces)) {
        return answer;
      }
    }
    reader.finish(answer.emplace());
    return answer;
  };
  std::optional<Answer> answer = read(!options.records.are_used());
  if (!answer) {
    answer = read(false);
  }
  std::vector<const yfw_datatree*> tops;
  for (ReadRequest& request : requests) {
    tops.push_back(request.request.top());
  }
  apply_subtree_filter(answer->data, tops, mapping_->openconfig.values);
  return std::move(*answer);
}

std::string Translator::list_unmapped(const DeviceSnapshot& device, const std::vector<std::string>& paths) {
  const CurrentDevice installed(device);
  std::string text;
  for (const ReadRequest& request : read_requests(*mapping_, paths, Content::kConfig, {})) {
    const NativeSelection selection(request.asked);
    for (const NativeSelection::Node* selected : selection.tops()) {
      const yfw_map_walker walker = request.module.native_walker(selected->schema->module->ns, selected->schema->name);
      const lyd_node* data = find_data(device, selected->schema);
      if (walker == nullptr || data == nullptr) {
        continue;
      }
      for (const std::string& line : find_unmapped(data, *selected, walker, mapping_->openconfig.index)) {
        text.append(line).append("\n");
      }
    }
  }
  return text;
}

namespace {

// Reads all that a document holds. False when it has to be read whole, and by another reader then.
bool read_input(NativeReader& reader, const LoadedMapping& mapping, const EntryFilter& all, const NativeDocument& input,
                const DeviceSnapshot* device) {
  const lyd_node* rest = input.without_lists();
  if (rest == nullptr) {
    return false;
  }
  const InputSnapshot input_device(rest);
  const CurrentDevice installed(device == nullptr ? input_device : *device);
  for (const MappingModule& module : mapping.modules) {
    if (!module.is_offered()) {
      return false;
    }
    reader.use(module, all);
    for (const lyd_node* top = rest; top != nullptr; top = top->next) {
      if (!reader.read_in_pieces(input, top->schema, nullptr)) {
        return false;
      }
    }
  }
  return true;
}

}  // namespace

Answer Translator::to_openconfig(const std::string& native, const DeviceSnapshot* device, Content content,
                                 const RecordSinks& records) {
  const bool takes_state = content != Content::kConfig;
  const EntryFilter all;
  NativeReader reader(mapping_->openconfig, operation_code(content), records);
  Answer answer;
  const LYD_FORMAT format = inspect_native(mapping_->schemas.native(), native);
  answer.input_format = format_of(format);
  if (format == LYD_JSON && takes_state && !records.are_used()) {
    NativeReader piecewise(mapping_->openconfig, operation_code(content), records);
    const NativeDocument input(mapping_->schemas.native(), native, "", LYD_VALIDATE_PRESENT, DataKind::kNative);
    if (read_input(piecewise, *mapping_, all, input, device)) {
      piecewise.finish(answer);
      return answer;
    }
  }
  const TreePtr data = parse_native(mapping_->schemas.native(), native, format, takes_state);
  const InputSnapshot input_device(data.get());
  const CurrentDevice installed(device == nullptr ? input_device : *device);
  for (const MappingModule& module : mapping_->modules) {
    module.require_offer();
    reader.use(module, all);
    for (const lyd_node* top = data.get(); top != nullptr; top = top->next) {
      reader.read(top, nullptr);
    }
  }
  reader.finish(answer);
  return answer;
}

}  // namespace oclacp::host
