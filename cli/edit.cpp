#include "cli/edit.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "cli/command.h"
#include "host/devices/open_device.h"
#include "host/files/read_file.h"
#include "host/yang/document_check.h"

namespace oclacp::cli {
namespace {

struct EditArguments : TranslationArguments {
  std::string file;
  std::vector<std::string> paths;
  host::PlanOptions plan;
  bool expects_no_change = false;
  host::CommitOptions commit;
};

void add_edit_options(CLI::App& command, EditArguments& arguments) {
  CLI::Option* dry_run =
      command.add_flag("--dry-run", arguments.plan.is_dry_run,
                       "Print the native edit and after it what it would change, and change nothing");
  command
      .add_flag("--expect-no-change", arguments.expects_no_change,
                "Change nothing, and fail if the edit would change something")
      ->excludes(dry_run);
  command
      .add_flag("--may-interrupt", arguments.commit.may_interrupt,
                "Also make changes for which the links of a bond go down for a moment")
      ->excludes(dry_run);
  add_format(command, arguments.plan, "The format of what --dry-run prints; that of the request by default")
      ->needs(dry_run);
  add_strict(command, arguments.plan);
  add_device(command, arguments)->required();
  add_debug_options(command, arguments);
}

host::EditPlan plan(host::Translator& translator, host::ParsedRequestPtr request, const host::DeviceSnapshot& device,
                    const EditArguments& arguments) {
  Records records(arguments);
  host::PlanOptions options = arguments.plan;
  options.records = records.sinks();
  host::EditPlan plan = translator.plan(std::move(request), device, options);
  warn_unkeyed_entries(plan.dropped_entries);
  warn(plan.warnings);
  return plan;
}

// From before the device is read until it is changed it is locked, so that nobody's work is lost.
void change(host::Translator& translator, host::ParsedRequestPtr request, host::Device& device,
            const EditArguments& arguments) {
  const std::unique_ptr<host::DeviceLock> lock = device.lock({});
  const std::shared_ptr<const host::DeviceSnapshot> before = device.snapshot();
  host::EditPlan planned = plan(translator, std::move(request), *before, arguments);
  if (planned.changes_something()) {
    warn(device.commit(*lock, *before, std::move(planned.running), arguments.commit));
  }
}

void edit(host::Translator& translator, host::ParsedRequestPtr request, const EditArguments& arguments) {
  const std::unique_ptr<host::Device> device = host::open_device(translator.native_context(), arguments.device);
  if (!arguments.plan.is_dry_run && !arguments.expects_no_change) {
    change(translator, std::move(request), *device, arguments);
    return;
  }
  const host::EditPlan planned = plan(translator, std::move(request), *device->snapshot(), arguments);
  if (arguments.plan.is_dry_run) {
    print(planned.native_edit + planned.difference);
  } else if (planned.changes_something()) {
    throw host::Error(host::ErrorKind::kOperationFailed,
                      arguments.device + ": the edit would change " + planned.first_change);
  }
}

}  // namespace

void define_edit(CLI::App& app) {
  const auto arguments = std::make_shared<EditArguments>();
  CLI::App* command = app.add_subcommand("edit", "Apply a request to a device");
  add_request(*command, arguments->file);
  add_operation(*command, arguments->plan);
  command
      ->add_option("--at", arguments->plan.at,
                   "The request is a part of the tree: this node, or what is to be put into it")
      ->type_name("PATH");
  add_edit_options(*command, *arguments);
  command->callback([arguments] {
    const std::unique_ptr<host::Translator> translator = make_translator(*arguments);
    const std::string request = host::read_text_file(arguments->file, host::kMaxRequestBytes);
    edit(*translator, name_file(arguments->file, [&] { return translator->read_edit(request, arguments->plan); }),
         *arguments);
  });
}

void define_delete(CLI::App& app) {
  const auto arguments = std::make_shared<EditArguments>();
  CLI::App* command = app.add_subcommand("delete", "Delete nodes from a device");
  command
      ->add_option("PATH", arguments->paths,
                   "The nodes, such as /lacp/interfaces/interface[name='Bundle-Ether1']/config")
      ->required();
  command->add_flag("--if-present", arguments->plan.ignores_absent, "Do not complain of what is not there");
  add_edit_options(*command, *arguments);
  command->callback([arguments] {
    const std::unique_ptr<host::Translator> translator = make_translator(*arguments);
    edit(*translator, translator->read_delete(arguments->paths, arguments->plan), *arguments);
  });
}

}  // namespace oclacp::cli
