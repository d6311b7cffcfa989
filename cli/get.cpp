#include "cli/get.h"

#include <iostream>
#include <memory>
#include <string>

#include "cli/command.h"
#include "host/datastore/directory_device.h"

namespace oclacp::cli {
namespace {

const Words<host::AnswerFormat> kFormats = {
    {"json", host::AnswerFormat::kJson}, {"xml", host::AnswerFormat::kXml}, {"table", host::AnswerFormat::kTable}};

struct GetArguments : TranslationArguments {
  host::GetOptions get;
  bool reads_config = false;  // which is all that there is to read
  bool lists_unmapped = false;
};

void get(GetArguments& arguments) {
  const std::unique_ptr<host::Translator> translator = make_translator(arguments);
  const host::DirectoryDevice device(translator->native_context(), arguments.device);
  if (arguments.lists_unmapped) {
    print(translator->list_unmapped(device, arguments.get.path));
    return;
  }
  host::Answer answer;
  {
    const Records records(arguments);
    arguments.get.debug_log = arguments.options.debug_log;
    arguments.get.trace = arguments.options.trace;
    answer = translator->get(device, arguments.get);
  }
  tell_dropped_leaves(answer.dropped_leaves);
  print(answer.text);
  for (const std::string& failure : answer.failures) {
    std::cerr << "oclacp: " << failure << '\n';
  }
  if (!answer.failures.empty()) {
    throw host::Refusal(arguments.device + ": " + std::to_string(answer.failures.size()) + " left out of the answer");
  }
}

}  // namespace

void define_get(CLI::App& app) {
  const auto arguments = std::make_shared<GetArguments>();
  CLI::App* command = app.add_subcommand("get", "Read the configuration of a device");
  command->add_option(
      "PATH", arguments->get.path,
      "What to read, such as /lacp/interfaces/interface[name='Bundle-Ether1']/config; /lacp by default");
  command->add_flag("--config", arguments->reads_config, "Read configuration, as without it");
  CLI::Option* format =
      add_choice(*command, "--format", arguments->get.format, kFormats, "The format of the answer; json by default");
  CLI::Option* keep_going =
      command->add_flag("--keep-going", arguments->get.keeps_going,
                        "Leave out interfaces that have no OpenConfig form, and fail only after the others");
  command
      ->add_flag("--unmapped", arguments->lists_unmapped,
                 "List the native configuration of the interfaces that OpenConfig has no form for")
      ->excludes(format)
      ->excludes(keep_going);
  add_device(*command, *arguments)->required();
  add_workings(*command, *arguments);
  command->callback([arguments] { get(*arguments); });
}

}  // namespace oclacp::cli
