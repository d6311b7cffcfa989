#include "cli/explain.h"

#include <memory>
#include <string>

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
  std::string module = default_module();
  std::string published_schemas;
  std::string path;
  host::CoverageFormat format = host::CoverageFormat::kTable;
};

host::Explainer make_explainer(const ExplainArguments& arguments) {
  return {{shipped_schemas(), arguments.published_schemas}, arguments.module};
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
  add_locations(*command, arguments->published_schemas, arguments->module);
  command->callback([arguments] { print(make_explainer(*arguments).explain(arguments->path)); });
}

void define_coverage(CLI::App& app) {
  const auto arguments = std::make_shared<ExplainArguments>();
  CLI::App* command = app.add_subcommand("coverage", "Tell which leaves of openconfig-lacp the mapping serves");
  add_choice(*command, "--format", arguments->format, kFormats,
             "What is printed: a table (the default), JSON, a page, or the YANG module that deviates what is not "
             "served");
  add_locations(*command, arguments->published_schemas, arguments->module);
  command->callback([arguments] { print(make_explainer(*arguments).coverage(arguments->format)); });
}

}  // namespace oclacp::cli
