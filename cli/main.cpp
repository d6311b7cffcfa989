// The program oclacp.
//
// Exit status: 0 done, 1 refused or failed (one sentence on the standard error), 2 usage.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "cli/locations.h"
#include "cli/records_command.h"
#include "host/datastore/directory_device.h"
#include "host/log/trace_tree.h"
#include "host/text_file.h"
#include "host/translator.h"
#include "host/yang/request_text.h"

namespace oclacp::cli {
namespace {

enum ExitStatus { kDone = 0, kFailed = 1, kUsage = 2 };

struct Arguments {
  std::string file;
  std::string device;
  std::string module;
  std::string published_schemas;
  bool shows_trace = false;
  bool shows_log = false;
  host::TranslateOptions options;
};

// CLI11's mappings from words to values.
const std::map<std::string, host::DefaultOperation> kOperations = {{"merge", host::DefaultOperation::kMerge},
                                                                   {"replace", host::DefaultOperation::kReplace},
                                                                   {"delete", host::DefaultOperation::kDelete}};
const std::map<std::string, host::RequestKind> kReads = {{"config", host::RequestKind::kReadConfig},
                                                         {"all", host::RequestKind::kReadState}};
const std::map<std::string, host::Format> kFormats = {{"json", host::Format::kJson}, {"xml", host::Format::kXml}};

// The option takes one of the words, which are also what its help shows.
template <typename Value>
CLI::Option* add_choice(CLI::App& command, const std::string& name, Value& value,
                        const std::map<std::string, Value>& words, const std::string& help) {
  std::string list;
  for (const auto& [word, meaning] : words) {
    list += (list.empty() ? "" : "|") + word;
  }
  return command.add_option(name, value, help)
      ->transform(CLI::CheckedTransformer(words).description(""))
      ->type_name(list);
}

void define_translate(CLI::App& command, Arguments& arguments) {
  command.add_option("FILE", arguments.file, "The request, JSON (RFC 7951) or XML; - for the standard input")
      ->required();
  command.add_option("--to", "What to translate to")
      ->required()
      ->type_name("native")
      ->check(CLI::IsMember({"native"}).description(""));
  CLI::Option* operation =
      add_choice(command, "--operation", arguments.options.operation, kOperations,
                 "What happens to nodes without an operation of their own: merge (the default), replace the whole, "
                 "or delete what is named");
  CLI::Option* format = add_choice(command, "--format", arguments.options.format, kFormats,
                                   "The format of the native edit; that of the request by default");
  add_choice(command, "--read", arguments.options.kind, kReads,
             "Take the request for a read, of configuration or of configuration and state, and print the native paths "
             "that it asks for")
      ->excludes(operation)
      ->excludes(format);
  command.add_flag("--trace", arguments.shows_trace, "Show the handlers that ran, on the standard error");
  command.add_flag("-v", arguments.shows_log, "Show the debug log, on the standard error");
  command.add_option("-d", arguments.device, "The device: a folder with platform.json and running.json")
      ->type_name("DIR");
  command.add_option("--yang-dir", arguments.published_schemas, "Take openconfig-lacp and what it imports from here")
      ->type_name("DIR");
  command.add_option("--module", arguments.module, "The mapping module")->type_name("FILE");
}

// Nothing that a program reads is lost without a word.
void print(const std::string& text) {
  if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size() || std::fflush(stdout) != 0) {
    throw host::Refusal("the result cannot be written to the standard output");
  }
}

void translate(Arguments& arguments) {
  const host::SchemaDirectories schemas = {shipped_schemas(), arguments.published_schemas};
  host::Translator translator(schemas, arguments.module.empty() ? default_module() : arguments.module);
  std::unique_ptr<host::Device> device = std::make_unique<host::EmptyDevice>();
  if (!arguments.device.empty()) {
    device = std::make_unique<host::DirectoryDevice>(translator.native_context(), arguments.device);
  }
  const std::string request = host::read_text_file(arguments.file, host::kMaxRequestBytes);
  if (arguments.shows_log) {
    arguments.options.debug_log = &std::cerr;
  }
  std::vector<std::string> trace;
  if (arguments.shows_trace) {
    arguments.options.trace = &trace;
  }
  // A refused request has a trace too.
  const auto show_trace = [&trace] {
    for (const std::string& line : host::draw_trace(trace)) {
      std::cerr << line << '\n';
    }
  };
  try {
    const host::Translation translation = translator.translate(request, *device, arguments.options);
    show_trace();
    if (translation.dropped_entries != 0) {
      std::cerr << "oclacp: left out " << translation.dropped_entries << " native list entries that have no keys\n";
    }
    print(translation.text);
  } catch (const host::Refusal&) {
    show_trace();
    throw;
  }
}

int run(int argc, char** argv) {
  Arguments arguments;
  CLI::App app("openconfig-lacp on top of native bundle and LACP models", "oclacp");
  app.set_version_flag("--version", std::string("oclacp ") + host::version());
  app.require_subcommand(1);
  CLI::App* command = app.add_subcommand("translate", "Translate a request, without a device or with one as it stands");
  define_translate(*command, arguments);
  RecordsCommand records(app);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kDone : kUsage;
  }
  if (records.is_chosen()) {
    print(records.run());
  } else {
    translate(arguments);
  }
  return kDone;
}

}  // namespace
}  // namespace oclacp::cli

int main(int argc, char** argv) {
  try {
    return oclacp::cli::run(argc, argv);
  } catch (const std::exception& failure) {
    std::cerr << "oclacp: " << failure.what() << '\n';
    return oclacp::cli::kFailed;
  }
}
