#include "host/translator.h"

#include <optional>

#include "host/datastore/edit_application.h"
#include "host/datastore/installed_device.h"
#include "host/framework/edit_tree.h"
#include "host/framework/ignored_nodes.h"
#include "host/framework/read_paths.h"
#include "host/refusal.h"
#include "host/translator_parts.h"
#include "host/walk.h"
#include "host/yang/delete_request.h"
#include "host/yang/edit_printer.h"
#include "host/yang/request_parser.h"

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

void walk(const Module& module, RequestTree& tree, EditScript& script, const TranslateOptions& options) {
  module.require_offer();
  walk_request(module.request_walker(), tree, operation_code(options.kind), script, {options.debug_log, options.trace});
  const bool is_edit = options.kind == RequestKind::kEdit;
  const yfw_datatree* ignored = options.is_strict && is_edit ? find_ignored_node(tree) : nullptr;
  if (ignored != nullptr) {
    throw Refusal(node_path(ignored) + ": would be ignored");
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
  TranslatedEdit(const ly_ctx* context, const Module& module, NativePaths& paths, const std::string& text,
                 const Device& device, const TranslateOptions& options)
      : request(parse_request(context, text)), script(paths, true) {
    apply_default(options.operation, request.tree);
    const InstalledDevice installed(device);
    walk(module, request.tree, script, options);
    native.emplace(script);
  }

  ParsedRequest request;
  EditScript script;
  std::optional<EditTree> native;
};

}  // namespace

Translation Translator::translate(const std::string& request, const Device& device, const TranslateOptions& options) {
  Translation translation;
  if (options.kind == RequestKind::kEdit) {
    const TranslatedEdit edit(parts_->schemas.request(), parts_->module, parts_->native_paths, request, device,
                              options);
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
  const TranslatedEdit edit(parts_->schemas.request(), parts_->module, parts_->native_paths, request, device, options);
  EditPlan plan;
  plan.running = apply_edit(native_context(), *edit.native, device);
  plan.difference = find_difference(native_context(), device.running(), plan.running.get());
  plan.format = libyang_format(options.format, edit.request.format);
  plan.dropped_entries = edit.native->dropped_entries();
  return plan;
}

std::string Translator::delete_request(const std::string& path) const {
  return make_delete_request(parts_->schemas.request(), path);
}

const char* version() {
  return OCLACP_VERSION;
}

}  // namespace oclacp::host
