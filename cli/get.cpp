#include "cli/get.h"

#include <charconv>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include "cli/command.h"
#include "cli/terminal.h"
#include "cli/watch.h"
#include "host/devices/open_device.h"
#include "host/present/answer_table.h"

namespace oclacp::cli {
namespace {

enum class AnswerFormat { kJson, kXml, kTable };

const Choices<AnswerFormat> kFormats = {
    {"json", AnswerFormat::kJson}, {"xml", AnswerFormat::kXml}, {"table", AnswerFormat::kTable}};

struct GetArguments : TranslationArguments {
  std::vector<std::string> paths = {"/lacp"};
  host::ReadOptions read;
  AnswerFormat format = AnswerFormat::kJson;
  bool reads_config = false;  // the same as neither
  bool reads_state = false;
  bool lists_unmapped = false;
  double watch_seconds = 0;  // 0: once
};

// Why a text is not a time to wait; empty when it is one. CLI::Range would take nan for one.
std::string check_seconds(const std::string& text) {
  double seconds = 0;
  const char* end = text.data() + text.size();
  const auto [behind, error] = std::from_chars(text.data(), end, seconds);
  return error == std::errc() && behind == end && seconds >= 0.1 && seconds <= 86400
             ? ""
             : "'" + text + "' is not a number from 0.1 to 86400";
}

host::Answer read(host::Translator& translator, const host::DeviceSnapshot& device, const GetArguments& arguments) {
  Records records(arguments);
  host::ReadOptions options = arguments.read;
  options.records = records.sinks();
  return translator.get(device, arguments.paths, options);
}

void show(const host::Translator& translator, const host::Answer& answer, AnswerFormat format) {
  if (format == AnswerFormat::kTable) {
    print(host::answer_table(translator.openconfig_context(), answer.data.top(), table_layout()));
  } else {
    print(answer, format == AnswerFormat::kXml ? host::Format::kXml : host::Format::kJson);
  }
}

void get(host::Translator& translator, const host::DeviceSnapshot& device, const GetArguments& arguments) {
  const host::Answer answer = read(translator, device, arguments);
  const std::vector<std::string> warnings = device.warnings();
  warn(warnings);
  warn_omitted_leaves(answer);
  // When it was said why there is nothing, the header of an empty table says no more.
  if (arguments.format != AnswerFormat::kTable || !answer.data.is_empty() || warnings.empty()) {
    show(translator, answer, arguments.format);
  }
  for (const host::Error& failure : answer.failures) {
    tell(failure.what());
  }
  if (!answer.failures.empty()) {
    throw host::Error(host::ErrorKind::kOperationFailed,
                      arguments.device + ": " + std::to_string(answer.failures.size()) + " left out of the answer");
  }
}

void run(GetArguments& arguments) {
  arguments.read.content = arguments.reads_state ? host::Content::kAll : host::Content::kConfig;
  const std::unique_ptr<host::Translator> translator = make_translator(arguments);
  const std::unique_ptr<host::Device> device = host::open_device(translator->native_context(), arguments.device);
  if (arguments.lists_unmapped) {
    print(translator->list_unmapped(*device->snapshot(), arguments.paths));
  } else if (arguments.watch_seconds > 0) {
    watch(*translator, arguments.watch_seconds, [&] { return read(*translator, *device->snapshot(), arguments); });
  } else {
    get(*translator, *device->snapshot(), arguments);
  }
}

}  // namespace

void define_get(CLI::App& app) {
  const auto arguments = std::make_shared<GetArguments>();
  CLI::App* command = app.add_subcommand("get", "Read a device: its configuration, or its state too");
  command->add_option(
      "PATH", arguments->paths,
      "What to read, such as /lacp/interfaces/interface[name='Bundle-Ether1']/config; /lacp by default");
  CLI::Option* config = command->add_flag("--config", arguments->reads_config, "Read configuration, as without it");
  CLI::Option* all =
      command->add_flag("--all", arguments->reads_state, "Read configuration and operational state")->excludes(config);
  CLI::Option* format =
      add_choice(*command, "--format", arguments->format, kFormats, "The format of the answer; json by default");
  CLI::Option* keep_going =
      command->add_flag("--keep-going", arguments->read.keeps_going,
                        "Leave out interfaces that have no OpenConfig form, and fail only after the others");
  command
      ->add_option("--watch", arguments->watch_seconds,
                   "Show the table again every so many seconds, with what counters gain per second, until interrupted")
      ->check([](const std::string& text) { return check_seconds(text); })
      ->type_name("SECONDS")
      ->needs(all)
      ->excludes(format)
      ->excludes(keep_going);
  CLI::Option* unmapped =
      command->add_flag("--unmapped", arguments->lists_unmapped,
                        "List what OpenConfig has no form for of the native configuration of interfaces with LACP");
  unmapped->excludes(format)->excludes(keep_going)->excludes(all);
  add_device(*command, *arguments)->required();
  add_debug_options(*command, *arguments);
  unmapped->excludes(command->get_option("--trace"))->excludes(command->get_option("-v"));
  command->callback([arguments] { run(*arguments); });
}

}  // namespace oclacp::cli
