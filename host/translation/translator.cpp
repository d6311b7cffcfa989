#include "host/translation/translator.h"

#include <cstring>
#include <optional>
#include <utility>

#include "host/base/error.h"
#include "host/devices/apply_edit.h"
#include "host/services/current_device.h"
#include "host/translation/creation_check.h"
#include "host/translation/loaded_mapping.h"
#include "host/translation/module_quirks.h"
#include "host/translation/read_back.h"
#include "host/translation/run_walker.h"
#include "host/trees/edit_printer.h"
#include "host/trees/edit_tree.h"
#include "host/trees/node.h"
#include "host/trees/path_request.h"
#include "host/trees/request_parser.h"
#include "host/trees/unvisited_nodes.h"
#include "host/yang/tree_diff.h"
#include "host/yang/tree_printer.h"

namespace oclacp::host {
namespace {

// Whether a node names something below it, beyond the keys that say which entry it is.
bool has_non_key_children(const yfw_datatree& node) {
  for (unsigned index = 0; index < node.child_count; ++index) {
    if (!lysc_is_key(info_of(&node.children[index]).schema)) {
      return true;
    }
  }
  return false;
}

void apply_default(DefaultOperation operation, RequestTree& tree) {
  if (operation == DefaultOperation::kReplace && tree.top()->operation == YFW_OPERATION_NONE) {
    tree.top()->operation = YFW_OPERATION_REPLACE;
  }
  if (operation != DefaultOperation::kDelete) {
    return;
  }
  // Parents come before their children, so that one look upwards tells what is inside of something with an operation.
  std::vector<bool> has_operation(tree.nodes().size());
  for (size_t index = 0; index < tree.nodes().size(); ++index) {
    yfw_datatree& node = tree.nodes()[index];
    const yfw_datatree* parent = info_of(&node).parent;
    const bool is_inside = parent != nullptr && has_operation[static_cast<size_t>(parent - tree.top())];
    has_operation[index] = is_inside || node.operation != YFW_OPERATION_NONE;
    if (has_operation[index] || has_non_key_children(node)) {
      continue;
    }
    if (!is_key_or_key_target(&node)) {
      node.operation = YFW_OPERATION_DELETE;
    } else if (!lysc_is_key(info_of(&node).schema) && parent->child_count == 1) {
      refuse_delete_of_name(&node);
    }
  }
}

void check_strictly(RequestTree& tree) {
  const yfw_datatree* ignored = find_unvisited_node(tree);
  if (ignored != nullptr) {
    throw node_error(ErrorKind::kOperationNotSupported, node_path(ignored), "would be ignored");
  }
  for (const yfw_datatree& node : tree.nodes()) {
    if (node.value == nullptr || is_key_or_key_target(&node) || is_deleted(&node)) {
      continue;
    }
    const yfw_datatree* entry = info_of(info_of(&node).parent).parent;
    if (entry != nullptr && key_value(entry) != nullptr && std::strchr(key_value(entry), '.') != nullptr) {
      throw node_error(ErrorKind::kOperationNotSupported, node_path(entry),
                       "is a sub-interface, whose LACP would not be read back");
    }
  }
}

}  // namespace

Translator::Translator(const SchemaDirectories& schemas, const std::vector<std::string>& libraries)
    : mapping_(std::make_unique<LoadedMapping>(schemas, libraries)) {}

Translator::~Translator() = default;

const ly_ctx* Translator::native_context() const {
  return mapping_->schemas.native();
}

const ly_ctx* Translator::openconfig_context() const {
  return mapping_->schemas.request();
}

namespace {

ParsedRequest parse_edit(const ly_ctx* context, const std::string& text, const EditOptions& options) {
  return options.at.empty() ? parse_request(context, text) : parse_resource(context, options.at, text);
}

// What the request itself says comes first.
DefaultOperation default_operation(const ParsedRequest& request, const EditOptions& options) {
  if (request.default_operation == "none") {
    throw Error(ErrorKind::kOperationNotSupported, "the request: the default operation 'none' is not supported");
  }
  return request.default_operation == "replace" ? DefaultOperation::kReplace : options.operation;
}

// An edit from its text to its native result; the later are built from the earlier.
struct TranslatedEdit {
  TranslatedEdit(ParsedRequest parsed, LoadedMapping& mapping, const DeviceSnapshot& device, const EditOptions& options)
      : request(std::move(parsed)),
        module(mapping.module_for(request.tree)),
        maps_interfaces(host::maps_interfaces(module)),
        installed(device),
        log(mapping.native.index, true) {
    apply_default(default_operation(request, options), request.tree);
    check_nothing_added_below_deletes(request.tree);
    std::optional<AbsentNodes> absent;
    if (maps_interfaces) {
      absent.emplace(request.tree, installed);
      use_entry_form_keys(request.tree, installed);
    }
    module.require_offer();
    walk_request(mapping.request_walker(request.tree), request.tree, YFW_REQUEST_EDIT, log, options.records);
    if (options.is_strict) {
      check_strictly(request.tree);
    }
    if (absent) {
      absent->check_deleted();
      absent->drop_additions(log);
    }
    native.emplace(log);
  }

  ParsedRequest request;
  const MappingModule& module;
  bool maps_interfaces;
  CurrentDevice installed;  // some of the request's names are its
  OutputLog log;
  std::optional<EditTree> native;
};

std::string print(LoadedMapping& mapping, const TranslatedEdit& edit, const EditOptions& options) {
  return print_edit(mapping.native, *edit.native, libyang_format(options.format.value_or(edit.request.format)));
}

}  // namespace

Translation Translator::translate_edit(const std::string& request, const DeviceSnapshot& device,
                                       const EditOptions& options) {
  TranslatedEdit edit(parse_edit(mapping_->schemas.request(), request, options), *mapping_, device, options);
  check_creations_set_something(edit.request.tree);
  return {print(*mapping_, edit, options), edit.native->dropped_entries()};
}

EditPlan Translator::plan_edit(const std::string& request, const DeviceSnapshot& device, const PlanOptions& options) {
  return plan(read_edit(request, options), device, options);
}

EditPlan Translator::plan_delete(const std::vector<std::string>& paths, const DeviceSnapshot& device,
                                 const PlanOptions& options) {
  return plan(read_delete(paths, options), device, options);
}

void FreeRequest::operator()(ParsedRequest* request) const {
  delete request;
}

ParsedRequestPtr Translator::read_edit(const std::string& request, const EditOptions& options) const {
  return ParsedRequestPtr(new ParsedRequest(parse_edit(mapping_->schemas.request(), request, options)));
}

ParsedRequestPtr Translator::read_delete(const std::vector<std::string>& paths, const PlanOptions& options) const {
  const AbsentNode absent = options.ignores_absent ? AbsentNode::kIsFine : AbsentNode::kIsRefused;
  return ParsedRequestPtr(new ParsedRequest(parse_delete_paths(mapping_->schemas.request(), paths, absent)));
}

EditPlan Translator::plan(ParsedRequestPtr request, const DeviceSnapshot& device, const PlanOptions& options) {
  TranslatedEdit edit(std::move(*request), *mapping_, device, options);
  EditPlan plan;
  if (edit.maps_interfaces) {
    check_creations(edit.request.tree, edit.installed);
  }
  check_creations_set_something(edit.request.tree);
  if (edit.maps_interfaces) {
    plan.warnings = find_entries_without_settings(edit.request.tree, edit.installed);
  }
  plan.running = apply_edit(native_context(), *edit.native, device);
  plan.first_change = find_first_change(native_context(), device.running(), plan.running.get());
  plan.dropped_entries = edit.native->dropped_entries();
  if (plan.changes_something()) {
    const std::vector<std::string> unreadable = read_back(*mapping_, edit.log, device, plan.running.get());
    plan.warnings.insert(plan.warnings.end(), unreadable.begin(), unreadable.end());
  }
  if (options.is_strict && !plan.warnings.empty()) {
    throw Error(ErrorKind::kOperationNotSupported, plan.warnings.front());
  }
  if (options.is_dry_run) {
    plan.native_edit = print(*mapping_, edit, options);
    const TreePtr difference = find_difference(native_context(), device.running(), plan.running.get());
    plan.difference =
        print_tree(native_context(), difference.get(), libyang_format(options.format.value_or(edit.request.format)));
  }
  return plan;
}

const char* version() {
  return OCLACP_VERSION;
}

}  // namespace oclacp::host
