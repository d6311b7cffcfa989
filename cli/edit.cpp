#include "cli/edit.h"

#include <memory>
#include <string>

#include "cli/command.h"
#include "host/datastore/directory_device.h"
#include "host/datastore/editable_directory.h"
#include "host/text_file.h"
#include "host/yang/request_text.h"

namespace oclacp::cli {
namespace {

struct EditArguments : TranslationArguments {
  std::string file;
  std::string path;
  bool is_dry_run = false;
  bool expects_no_change = false;
};

void add_edit_options(CLI::App& command, EditArguments& arguments) {
  CLI::Option* dry_run =
      command.add_flag("--dry-run", arguments.is_dry_run,
                       "Print the native edit and behind it what it would change, and change nothing");
  command
      .add_flag("--expect-no-change", arguments.expects_no_change,
                "Change nothing, and fail if the edit would change something")
      ->excludes(dry_run);
  add_format(command, arguments, "The format of what --dry-run prints; that of the request by default")->needs(dry_run);
  add_strict(command, arguments);
  add_device(command, arguments)->required();
  add_workings(command, arguments);
}

host::EditPlan plan(host::Translator& translator, const host::Device& device, const std::string& request,
                    EditArguments& arguments) {
  const Records records(arguments);
  host::EditPlan plan = translator.plan_edit(request, device, arguments.options);
  tell_dropped(plan.dropped_entries);
  return plan;
}

void edit(host::Translator& translator, const std::string& request, EditArguments& arguments) {
  if (!arguments.is_dry_run && !arguments.expects_no_change) {
    host::EditableDirectory directory(translator.native_context(), arguments.device);
    const host::EditPlan planned = plan(translator, directory.device(), request, arguments);
    if (planned.changes_something()) {
      directory.commit(planned.running.get());
    }
    return;
  }
  const host::DirectoryDevice device(translator.native_context(), arguments.device);
  const host::EditPlan planned = plan(translator, device, request, arguments);
  if (arguments.is_dry_run) {
    print(translator.translate(request, device, arguments.options).text + planned.print_difference());
  } else if (planned.changes_something()) {
    throw host::Refusal(arguments.device + ": the edit would change " + planned.first_change());
  }
}

}  // namespace

void define_edit(CLI::App& app) {
  const auto arguments = std::make_shared<EditArguments>();
  CLI::App* command = app.add_subcommand("edit", "Apply a request to a device");
  add_request(*command, arguments->file);
  add_operation(*command, *arguments);
  add_edit_options(*command, *arguments);
  command->callback([arguments] {
    const std::unique_ptr<host::Translator> translator = make_translator(*arguments);
    edit(*translator, host::read_text_file(arguments->file, host::kMaxRequestBytes), *arguments);
  });
}

void define_delete(CLI::App& app) {
  const auto arguments = std::make_shared<EditArguments>();
  CLI::App* command = app.add_subcommand("delete", "Delete a node from a device");
  command
      ->add_option("PATH", arguments->path, "The node, such as /lacp/interfaces/interface[name='Bundle-Ether1']/config")
      ->required();
  add_edit_options(*command, *arguments);
  command->callback([arguments] {
    const std::unique_ptr<host::Translator> translator = make_translator(*arguments);
    edit(*translator, translator->delete_request(arguments->path), *arguments);
  });
}

}  // namespace oclacp::cli
