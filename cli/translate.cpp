#include "cli/translate.h"

#include <memory>
#include <optional>
#include <string>

#include "cli/command.h"
#include "host/base/printable_text.h"
#include "host/devices/open_device.h"
#include "host/files/read_file.h"
#include "host/yang/document_check.h"

namespace oclacp::cli {
namespace {

const Choices<host::Content> kContents = {{"config", host::Content::kConfig}, {"all", host::Content::kAll}};

struct TranslateArguments : TranslationArguments {
  std::string file;
  bool goes_to_openconfig = false;
  std::optional<host::Content> read;  // nothing for an edit
  host::EditOptions edit;
};

const Choices<bool> kTargets = {{"native", false}, {"openconfig", true}};

// What the device holds; null without one.
std::shared_ptr<const host::DeviceSnapshot> read_device(const host::Translator& translator,
                                                        const TranslateArguments& arguments) {
  if (arguments.device.empty()) {
    return nullptr;
  }
  return host::open_device(translator.native_context(), arguments.device)->snapshot();
}

void translate_to_openconfig(host::Translator& translator, const host::DeviceSnapshot* device,
                             const std::string& native, const TranslateArguments& arguments) {
  host::Answer answer;
  {
    Records records(arguments);
    answer = translator.to_openconfig(native, device, arguments.read.value_or(host::Content::kConfig), records.sinks());
  }
  warn_omitted_leaves(answer);
  print(answer, arguments.edit.format.value_or(answer.input_format));
}

void translate_read(host::Translator& translator, const host::DeviceSnapshot& device, const std::string& request,
                    const TranslateArguments& arguments) {
  std::string text;
  {
    Records records(arguments);
    for (const std::string& path : translator.translate_read(request, device, *arguments.read, records.sinks())) {
      text.append(host::printable(path)).append("\n");
    }
  }
  print(text);
}

void translate_edit(host::Translator& translator, const host::DeviceSnapshot& device, const std::string& request,
                    const TranslateArguments& arguments) {
  host::Translation translation;
  {
    Records records(arguments);
    host::EditOptions options = arguments.edit;
    options.records = records.sinks();
    translation = translator.translate_edit(request, device, options);
  }
  warn_unkeyed_entries(translation.dropped_entries);
  print(translation.text);
}

void translate(const TranslateArguments& arguments) {
  const std::unique_ptr<host::Translator> translator = make_translator(arguments);
  const std::shared_ptr<const host::DeviceSnapshot> device = read_device(*translator, arguments);
  const std::string request = host::read_text_file(arguments.file, host::kMaxRequestBytes);
  if (arguments.goes_to_openconfig) {
    translate_to_openconfig(*translator, device.get(), request, arguments);
    return;
  }
  const host::EmptySnapshot nothing;
  const host::DeviceSnapshot& asked = device == nullptr ? static_cast<const host::DeviceSnapshot&>(nothing) : *device;
  if (arguments.read) {
    translate_read(*translator, asked, request, arguments);
  } else {
    translate_edit(*translator, asked, request, arguments);
  }
}

}  // namespace

void define_translate(CLI::App& app) {
  const auto arguments = std::make_shared<TranslateArguments>();
  CLI::App* command =
      app.add_subcommand("translate", "Translate a request or native data, without a device or with one as it stands");
  add_request(*command, arguments->file);
  add_choice(*command, "--to", arguments->goes_to_openconfig, kTargets, "What to translate to")->required();
  CLI::Option* operation = add_operation(*command, arguments->edit);
  CLI::Option* format =
      add_format(*command, arguments->edit, "The format of the native edit; that of the request by default");
  CLI::Option* strict = add_strict(*command, arguments->edit);
  add_choice(*command, "--read", arguments->read, kContents,
             "To native: take the request for a read, of configuration or of configuration and state, and print the "
             "native paths that it asks for. To openconfig: whether the input is configuration, the default, or state "
             "too")
      ->excludes(operation)
      ->excludes(format)
      ->excludes(strict);
  add_device(*command, *arguments);
  add_debug_options(*command, *arguments);
  command->callback([arguments, operation, strict] {
    for (const CLI::Option* of_edits : {operation, strict}) {
      if (arguments->goes_to_openconfig && of_edits->count() != 0) {
        throw CLI::ExcludesError("--to openconfig", of_edits->get_name());
      }
    }
    name_file(arguments->file, [&] { translate(*arguments); });
  });
}

}  // namespace oclacp::cli
