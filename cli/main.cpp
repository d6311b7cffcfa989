// The program oclacp.
//
// Exit status: 0 done, 2 usage; else, with one sentence on the standard error, that of the error's kind
// (host/base/error.cpp): 1, but 3 when data exists that must not, 4 when data is missing, 5 when something is busy.
#include <CLI/CLI.hpp>
#include <csignal>
#include <exception>
#include <iostream>
#include <new>
#include <string>

#include "cli/command.h"
#include "cli/edit.h"
#include "cli/explain.h"
#include "cli/get.h"
#include "cli/records_command.h"
#include "cli/translate.h"
#include "host/translation/translator.h"

namespace oclacp::cli {
namespace {

enum ExitStatus { kDone = 0, kUsage = 2 };

int report(host::ErrorKind kind, const char* sentence) {
  tell(sentence);
  return host::error_report(kind).exit_status;
}

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
    // It quotes the command line.
    PrintableStream shown;
    return app.exit(error, std::cout, shown) == 0 ? kDone : kUsage;
  }
  return kDone;
}

}  // namespace
}  // namespace oclacp::cli

int main(int argc, char** argv) {
  // A file that grows beyond the process's limit is a failed write, which is reported like any other.
  static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
  using namespace oclacp;
  try {
    return cli::run(argc, argv);
  } catch (const host::Error& error) {
    return cli::report(error.kind(), error.what());
  } catch (const std::bad_alloc&) {
    return cli::report(host::ErrorKind::kOutOfMemory, "out of memory");
  } catch (const std::exception& error) {
    return cli::report(host::ErrorKind::kInternal, error.what());
  }
}
