// What the commands share.
#pragma once

#include <CLI/CLI.hpp>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "cli/terminal.h"
#include "host/translation/translator.h"

namespace oclacp::cli {

// What commands that translate take from the command line.
struct TranslationArguments {
  std::string device;
  std::vector<std::string> modules;
  std::string published_schemas;
  bool shows_trace = false;
  bool shows_log = false;
};

// What the choices of a choice mean.
template <typename Value>
using Choices = std::map<std::string, Value>;

// The option takes one of the choices, which are also what its help shows.
template <typename Value, typename Option>
CLI::Option* add_choice(CLI::App& command, const std::string& name, Option& value, const Choices<Value>& choices,
                        const std::string& help) {
  std::string list;
  for (const auto& [word, meaning] : choices) {
    list += (list.empty() ? "" : "|") + word;
  }
  // CLI::CheckedTransformer would take the numbers of an enumeration for its words.
  const auto choose = [&value, choices](const std::string& word) { value = choices.at(word); };
  return command.add_option_function<std::string>(name, choose, help)
      ->check(CLI::IsMember(choices).description(""))
      ->type_name(list);
}

void add_request(CLI::App& command, std::string& file);
CLI::Option* add_operation(CLI::App& command, host::EditOptions& options);
CLI::Option* add_format(CLI::App& command, host::EditOptions& options, const std::string& help);
CLI::Option* add_strict(CLI::App& command, host::EditOptions& options);
// The device.
CLI::Option* add_device(CLI::App& command, TranslationArguments& arguments);
// Where the schemas and the modules are.
void add_locations(CLI::App& command, std::string& published_schemas, std::vector<std::string>& modules);
void add_modules(CLI::App& command, std::vector<std::string>& modules);
// Those of the command line, or the one that the program comes with.
std::vector<std::string> modules_or_default(const std::vector<std::string>& modules);
// --trace, -v, and the locations.
void add_debug_options(CLI::App& command, TranslationArguments& arguments);

// An error about a request or native data as a whole, as one about the file that it was read from; any other stays.
host::Error about_file(const std::string& file, const host::Error& error);

// Does something with what was read from a file; "-" is the standard input.
template <typename Action>
auto name_file(const std::string& file, const Action& action) {
  try {
    return action();
  } catch (const host::Error& error) {
    throw about_file(file, error);
  }
}

std::unique_ptr<host::Translator> make_translator(const TranslationArguments& arguments);

// Collects what --trace and -v ask for while it lives, and then shows the trace: of a refused request too.
class Records {
 public:
  explicit Records(const TranslationArguments& arguments) : arguments_(arguments) {}
  ~Records();
  Records(const Records&) = delete;
  Records& operator=(const Records&) = delete;
  Records(Records&&) = delete;
  Records& operator=(Records&&) = delete;

  host::RecordSinks sinks();

 private:
  const TranslationArguments& arguments_;
  PrintableStream log_;
  std::vector<std::string> trace_;
};

// Shows a sentence on the standard error, after the program's name. Nothing in it acts on a terminal.
void tell(std::string_view sentence);

// Tells, on the standard error, which leaves were left out of an answer.
void warn_omitted_leaves(const host::Answer& answer);

// Shows what a device has to tell, a sentence each, on the standard error.
void warn(const std::vector<std::string>& sentences);

// Tells, on the standard error, of native list entries that were left out.
void warn_unkeyed_entries(size_t entries);

// Write a result to the standard output. Nothing that a program reads is lost without a word: throws host::Error.
void print(const std::string& text);
void print(const host::Answer& answer, host::Format format);

}  // namespace oclacp::cli
