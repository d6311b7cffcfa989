// The program oclacp.
//
// Exit status: 0 done, 1 refused or failed (one sentence on the standard error), 2 usage.
#include <CLI/CLI.hpp>
#include <csignal>
#include <exception>
#include <iostream>
#include <string>

#include "cli/edit.h"
#include "cli/explain.h"
#include "cli/get.h"
#include "cli/records_command.h"
#include "cli/translate.h"
#include "host/translation/translator.h"

namespace oclacp::cli {
namespace {

enum ExitStatus { kDone = 0, kFailed = 1, kUsage = 2 };

int run(int argc, char** argv) {
  CLI::App app("openconfig-lacp on top of native bundle and LACP models", "oclacp");
  app.set_version_flag("--version", std::string("oclacp ") + host::version());
  app.require_subcommand(1);
  define_translate(app);
  define_edit(app);
  define_delete(app);
  define_get(app);
  define_explain(app);
  define_coverage(app);
  define_records(app);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kDone : kUsage;
  }
  return kDone;
}

}  // namespace
}  // namespace oclacp::cli

int main(int argc, char** argv) {
  // A file that grows beyond the process's limit is a failed write, which is told like any other.
  static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
  try {
    return oclacp::cli::run(argc, argv);
  } catch (const std::exception& failure) {
    std::cerr << "oclacp: " << failure.what() << '\n';
    return oclacp::cli::kFailed;
  }
}
