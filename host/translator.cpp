#include "host/translator.h"

#include <cstring>
#include <optional>
#include <utility>

#include "host/datastore/creation_check.h"
#include "host/datastore/edit_application.h"
#include "host/datastore/installed_device.h"
#include "host/framework/edit_tree.h"
#include "host/framework/ignored_nodes.h"
#include "host/framework/read_paths.h"
#include "host/refusal.h"
#include "host/translator_parts.h"
#include "host/walk.h"
#include "host/yang/edit_printer.h"
#include "host/yang/request_parser.h"
#include "host/yang/request_path.h"

namespace oclacp::host {
namespace {

// Whether a node names something below it, beyond the keys that say which entry it is.
bool names_more(const yfw_datatree& node) {
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
    if (has_operation[index] || names_more(node)) {
      continue;
    }
    if (!names_entry(&node)) {
      node.operation = YFW_OPERATION_DELETE;
    } else if (!lysc_is_key(info_of(&node).schema) && parent->child_count == 1) {
      refuse_delete_of_name(&node);
    }
  }
}

// The module looks for the interface of a deleted entry among the elements of the data store, by a part of the entry's
// name. It finds a name with slashes only when the name is in the form of an element, too.
void name_as_data_store_does(RequestTree& tree, InstalledDevice& device) {
  for (yfw_datatree& node : tree.nodes()) {
    if (node.value != nullptr && lysc_is_key(info_of(&node).schema) && std::strchr(node.value, '/') != nullptr &&
        yfw_map_is_request_delete(info_of(&node).parent) != 0 && device.configuration().has_lacp(node.value)) {
      node.value = device.configuration().element_of(node.value);
    }
  }
}

void check_strictly(RequestTree& tree) {
  const yfw_datatree* ignored = find_ignored_node(tree);
  if (ignored != nullptr) {
    throw Refusal(node_path(ignored) + ": would be ignored");
  }
  for (const yfw_datatree& node : tree.nodes()) {
    if (node.value == nullptr || names_entry(&node) || yfw_map_is_request_delete(&node) != 0) {
      continue;
    }
    const yfw_datatree* entry = info_of(info_of(&node).parent).parent;
    if (entry != nullptr && key_value(entry) != nullptr && std::strchr(key_value(entry), '.') != nullptr) {
      throw Refusal(node_path(entry) + ": is a sub-interface, whose LACP would not be read back");
    }
  }
}

void walk(const Module& module, RequestTree& tree, EditScript& script, const TranslateOptions& options) {
  module.require_offer();
  walk_request(module.request_walker(), tree, operation_code(options.kind), script, {options.debug_log, options.trace});
  if (options.is_strict && options.kind == RequestKind::kEdit) {
    check_strictly(tree);
  }
}

}  // namespace

Translator::Translator(const SchemaDirectories& schemas, const std::string& module_file)
    : parts_(std::make_unique<Parts>(schemas, module_file)) {}

Translator::~Translator() = default;

const ly_ctx* Translator::native_context() const {
  return parts_->schemas.native();
}

const ly_ctx* Translator::openconfig_context() const {
  return parts_->schemas.request();
}

namespace {

// An edit from its text to what it comes to natively; the later are made of the earlier.
struct TranslatedEdit {
  TranslatedEdit(ParsedRequest parsed, const Module& module, NativePaths& paths, const Device& device,
                 const TranslateOptions& options)
      : request(std::move(parsed)), installed(device), script(paths, true) {
    apply_default(options.operation, request.tree);
    name_as_data_store_does(request.tree, installed);
    walk(module, request.tree, script, options);
    native.emplace(script);
  }

  ParsedRequest request;
  InstalledDevice installed;  // some of the request's names are its
  EditScript script;
  std::optional<EditTree> native;
};

}  // namespace

Translation Translator::translate(const std::string& request, const Device& device, const TranslateOptions& options) {
  Translation translation;
  if (options.kind == RequestKind::kEdit) {
    const TranslatedEdit edit(parse_request(parts_->schemas.request(), request), parts_->module, parts_->native_paths,
                              device, options);
    translation.dropped_entries = edit.native->dropped_entries();
    translation.text = print_edit(native_context(), *edit.native, libyang_format(options.format, edit.request.format));
    return translation;
  }
  ParsedRequest parsed = parse_request(parts_->schemas.request(), request);
  if (parsed.tree.operations() != 0) {
    throw Refusal(node_path(parsed.tree.top()) + ": a read carries no edit operations");
  }
  const InstalledDevice installed(device);
  EditScript script(parts_->native_paths, false);
  walk(parts_->module, parsed.tree, script, options);
  for (const std::string& path : list_read_paths(script)) {
    translation.text.append(path).append("\n");
  }
  return translation;
}

EditPlan Translator::plan_edit(const std::string& request, const Device& device, const TranslateOptions& options) {
  return plan(parse_request(parts_->schemas.request(), request), device, options);
}

EditPlan Translator::plan_delete(const std::string& path, const Device& device, const TranslateOptions& options) {
  return plan(parse_delete_path(parts_->schemas.request(), path), device, options);
}

EditPlan Translator::plan(ParsedRequest request, const Device& device, const TranslateOptions& options) {
  TranslatedEdit edit(std::move(request), parts_->module, parts_->native_paths, device, options);
  check_creations(edit.request.tree, edit.installed);
  EditPlan plan;
  plan.running = apply_edit(native_context(), *edit.native, device);
  plan.first_change = find_first_change(native_context(), device.running(), plan.running.get());
  plan.dropped_entries = edit.native->dropped_entries();
  if (options.is_dry_run) {
    const LYD_FORMAT format = libyang_format(options.format, edit.request.format);
    plan.native_edit = print_edit(native_context(), *edit.native, format);
    const TreePtr difference = find_difference(native_context(), device.running(), plan.running.get());
    plan.difference = print_tree(native_context(), difference.get(), format);
  }
  return plan;
}

const char* version() {
  return OCLACP_VERSION;
}

}  // namespace oclacp::host
