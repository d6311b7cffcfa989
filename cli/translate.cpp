#include "cli/translate.h"

#include <memory>
#include <string>

#include "cli/command.h"
#include "host/devices/open_device.h"
#include "host/files/read_file.h"
#include "host/yang/document_check.h"

namespace oclacp::cli {
namespace {

const Choices<host::RequestKind> kReads = {{"config", host::RequestKind::kReadConfig},
                                           {"all", host::RequestKind::kReadState}};

struct TranslateArguments : TranslationArguments {
  std::string file;
  bool goes_to_openconfig = false;
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
                             const std::string& native, TranslateArguments& arguments) {
  host::ToOpenconfigOptions options;
  if (arguments.options.kind == host::RequestKind::kReadState) {
    options.kind = host::RequestKind::kReadState;
  }
  host::Answer answer;
  {
    const Records records(arguments);
    options.debug_log = arguments.options.debug_log;
    options.trace = arguments.options.trace;
    answer = translator.to_openconfig(native, device, options);
  }
  warn_omitted_leaves(answer);
  print(answer, host::libyang_format(arguments.options.format, answer.input_format));
}

void translate(TranslateArguments& arguments) {
  const std::unique_ptr<host::Translator> translator = make_translator(arguments);
  const std::shared_ptr<const host::DeviceSnapshot> device = read_device(*translator, arguments);
  const std::string request = host::read_text_file(arguments.file, host::kMaxRequestBytes);
  if (arguments.goes_to_openconfig) {
    translate_to_openconfig(*translator, device.get(), request, arguments);
    return;
  }
  const host::EmptySnapshot nothing;
  const host::DeviceSnapshot& asked = device == nullptr ? static_cast<const host::DeviceSnapshot&>(nothing) : *device;
  host::Translation translation;
  {
    const Records records(arguments);
    translation = translator->translate(request, asked, arguments.options);
  }
  warn_unkeyed_entries(translation.dropped_entries);
  print(translation.text);
}

}  // namespace

void define_translate(CLI::App& app) {
  const auto arguments = std::make_shared<TranslateArguments>();
  CLI::App* command =
      app.add_subcommand("translate", "Translate a request or native data, without a device or with one as it stands");
  add_request(*command, arguments->file);
  add_choice(*command, "--to", arguments->goes_to_openconfig, kTargets, "What to translate to")->required();
  CLI::Option* operation = add_operation(*command, *arguments);
  CLI::Option* format =
      add_format(*command, *arguments, "The format of the native edit; that of the request by default");
  CLI::Option* strict = add_strict(*command, *arguments);
  add_choice(*command, "--read", arguments->options.kind, kReads,
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
    translate(*arguments);
  });
}

}  // namespace oclacp::cli
