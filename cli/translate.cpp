#include "cli/translate.h"

#include <memory>
#include <string>

#include "cli/command.h"
#include "host/datastore/directory_device.h"
#include "host/text_file.h"
#include "host/yang/request_text.h"

namespace oclacp::cli {
namespace {

const Words<host::RequestKind> kReads = {{"config", host::RequestKind::kReadConfig},
                                         {"all", host::RequestKind::kReadState}};

struct TranslateArguments : TranslationArguments {
  std::string file;
};

void translate(TranslateArguments& arguments) {
  const std::unique_ptr<host::Translator> translator = make_translator(arguments);
  std::unique_ptr<host::Device> device = std::make_unique<host::EmptyDevice>();
  if (!arguments.device.empty()) {
    device = std::make_unique<host::DirectoryDevice>(translator->native_context(), arguments.device);
  }
  const std::string request = host::read_text_file(arguments.file, host::kMaxRequestBytes);
  host::Translation translation;
  {
    const Records records(arguments);
    translation = translator->translate(request, *device, arguments.options);
  }
  tell_dropped(translation.dropped_entries);
  print(translation.text);
}

}  // namespace

void define_translate(CLI::App& app) {
  const auto arguments = std::make_shared<TranslateArguments>();
  CLI::App* command = app.add_subcommand("translate", "Translate a request, without a device or with one as it stands");
  add_request(*command, arguments->file);
  command->add_option("--to", "What to translate to")
      ->required()
      ->type_name("native")
      ->check(CLI::IsMember({"native"}).description(""));
  CLI::Option* operation = add_operation(*command, *arguments);
  CLI::Option* format =
      add_format(*command, *arguments, "The format of the native edit; that of the request by default");
  CLI::Option* strict = add_strict(*command, *arguments);
  add_choice(*command, "--read", arguments->options.kind, kReads,
             "Take the request for a read, of configuration or of configuration and state, and print the native paths "
             "that it asks for")
      ->excludes(operation)
      ->excludes(format)
      ->excludes(strict);
  add_device(*command, *arguments);
  add_workings(*command, *arguments);
  command->callback([arguments] { translate(*arguments); });
}

}  // namespace oclacp::cli
