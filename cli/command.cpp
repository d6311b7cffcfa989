#include "cli/command.h"

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <utility>

#include "cli/locations.h"
#include "host/base/printable_text.h"
#include "host/present/answer_writer.h"
#include "host/present/trace_tree.h"
#include "host/yang/tree_printer.h"

namespace oclacp::cli {
namespace {

const Choices<host::DefaultOperation> kOperations = {{"merge", host::DefaultOperation::kMerge},
                                                     {"replace", host::DefaultOperation::kReplace},
                                                     {"delete", host::DefaultOperation::kDelete}};
const Choices<host::Format> kFormats = {{"json", host::Format::kJson}, {"xml", host::Format::kXml}};

}  // namespace

void add_request(CLI::App& command, std::string& file) {
  command.add_option("FILE", file, "The request, JSON (RFC 7951) or XML; - for the standard input")->required();
}

CLI::Option* add_operation(CLI::App& command, host::EditOptions& options) {
  return add_choice(command, "--operation", options.operation, kOperations,
                    "What happens to nodes without an operation of their own: merge (the default), replace the whole, "
                    "or delete what is named");
}

CLI::Option* add_format(CLI::App& command, host::EditOptions& options, const std::string& help) {
  return add_choice(command, "--format", options.format, kFormats, help);
}

CLI::Option* add_strict(CLI::App& command, host::EditOptions& options) {
  return command.add_flag("--strict", options.is_strict,
                          "Refuse an edit of which a node would be ignored, or that there would be a warning about");
}

CLI::Option* add_device(CLI::App& command, TranslationArguments& arguments) {
  return command
      .add_option("-d", arguments.device,
                  "The device: a folder with platform.json, running.json and operational.json; linux for the bonds of "
                  "this machine, linux:NETNS for those of a named network namespace")
      ->type_name("DEVICE");
}

void add_modules(CLI::App& command, std::vector<std::string>& modules) {
  command
      .add_option(
          "--module", modules,
          "A mapping module with its manifest beside it, instead of the one that serves openconfig-lacp; may be "
          "given several times")
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
      ->allow_extra_args(false)  // what follows a file is a path of the command
      ->type_name("FILE");
}

std::vector<std::string> modules_or_default(const std::vector<std::string>& modules) {
  return modules.empty() ? std::vector{default_module()} : modules;
}

void add_locations(CLI::App& command, std::string& published_schemas, std::vector<std::string>& modules) {
  command.add_option("--yang-dir", published_schemas, "Take the published models and what they import from here")
      ->type_name("DIR");
  add_modules(command, modules);
}

void add_debug_options(CLI::App& command, TranslationArguments& arguments) {
  command.add_flag("--trace", arguments.shows_trace, "Show the handlers that ran, on the standard error");
  command.add_flag("-v", arguments.shows_log, "Show the debug log, on the standard error");
  add_locations(command, arguments.published_schemas, arguments.modules);
}

std::unique_ptr<host::Translator> make_translator(const TranslationArguments& arguments) {
  const host::SchemaDirectories schemas = {shipped_schemas(), arguments.published_schemas};
  return std::make_unique<host::Translator>(schemas, modules_or_default(arguments.modules));
}

host::RecordSinks Records::sinks() {
  return {.debug_log = arguments_.shows_log ? &log_ : nullptr, .trace = arguments_.shows_trace ? &trace_ : nullptr};
}

Records::~Records() {
  for (const std::string& line : host::draw_trace(trace_)) {
    std::cerr << host::printable(line) << '\n';
  }
}

host::Error about_file(const std::string& file, const host::Error& error) {
  const std::string_view sentence = error.what();
  for (const std::string_view subject : {"the request", "the native data"}) {
    if (file != "-" && sentence.starts_with(subject)) {
      host::ErrorPlace place = error.place();
      place.file = file;
      return {error.kind(), file + std::string(sentence.substr(subject.size())), std::move(place)};
    }
  }
  return error;
}

void tell(std::string_view sentence) {
  std::cerr << "oclacp: " << host::printable(sentence) << '\n';
}

void warn(const std::vector<std::string>& sentences) {
  for (const std::string& sentence : sentences) {
    tell("warning: " + sentence);
  }
}

void warn_unkeyed_entries(size_t entries) {
  if (entries != 0) {
    tell("left out " + std::to_string(entries) + " native list entries that have no keys");
  }
}

void warn_omitted_leaves(const host::Answer& answer) {
  if (answer.dropped_leaves != 0) {
    tell("omitted " + std::to_string(answer.dropped_leaves) + (answer.dropped_leaves == 1 ? " leaf" : " leaves") +
         ": the native entry has no OpenConfig list entry (e.g. sub-interface bundles)");
  }
  constexpr size_t kNamed = 10;
  for (size_t leaf = 0; leaf < std::min(kNamed, answer.valueless.size()); ++leaf) {
    tell(answer.valueless[leaf] + ": omitted: the native value has no OpenConfig equivalent");
  }
  if (answer.valueless.size() > kNamed) {
    tell("left out " + std::to_string(answer.valueless.size() - kNamed) + " more leaves for the same reason");
  }
}

void print(const std::string& text) {
  if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size() || std::fflush(stdout) != 0) {
    throw host::Error(host::ErrorKind::kOperationFailed, "the result cannot be written to the standard output");
  }
}

void print(const host::Answer& answer, host::Format format) {
  host::write_answer(stdout, answer.data, host::libyang_format(format));
}

}  // namespace oclacp::cli
