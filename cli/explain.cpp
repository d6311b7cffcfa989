#include "cli/explain.h"

#include <memory>
#include <string>
#include <vector>

#include "cli/command.h"
#include "cli/locations.h"
#include "host/explain/explainer.h"

namespace oclacp::cli {
namespace {

const Choices<host::CoverageFormat> kFormats = {{"json", host::CoverageFormat::kJson},
                                                {"markdown", host::CoverageFormat::kMarkdown},
                                                {"table", host::CoverageFormat::kTable},
                                                {"yang", host::CoverageFormat::kYang}};

struct ExplainArguments {
  std::vector<std::string> modules;
  std::string published_schemas;
  std::string path;
  std::string model;
  host::CoverageFormat format = host::CoverageFormat::kTable;
};

host::Explainer make_explainer(const ExplainArguments& arguments) {
  return {{shipped_schemas(), arguments.published_schemas}, modules_or_default(arguments.modules)};
}

}  // namespace

void define_explain(CLI::App& app) {
  const auto arguments = std::make_shared<ExplainArguments>();
  CLI::App* command =
      app.add_subcommand("explain", "Tell what the mapping does with a node of either side, in both directions");
  command
      ->add_option("PATH", arguments->path,
                   "The node, such as /lacp/interfaces/interface/config/interval or a native one; prefixes and "
                   "predicates may be left out. A container or list shows a line for each leaf in it")
      ->required();
  add_locations(*command, arguments->published_schemas, arguments->modules);
  command->callback([arguments] { print(make_explainer(*arguments).explain(arguments->path)); });
}

void define_coverage(CLI::App& app) {
  const auto arguments = std::make_shared<ExplainArguments>();
  CLI::App* command = app.add_subcommand("coverage", "Tell which leaves of a published model the mapping serves");
  command->add_option("--model", arguments->model, "The published model; that of the first module by default")
      ->type_name("NAME");
  add_choice(*command, "--format", arguments->format, kFormats,
             "What is printed: a table (the default), JSON, a page, or the YANG module that deviates what is not "
             "served");
  add_locations(*command, arguments->published_schemas, arguments->modules);
  command->callback([arguments] { print(make_explainer(*arguments).coverage(arguments->model, arguments->format)); });
}

}  // namespace oclacp::cli
