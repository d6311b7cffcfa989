// oclacp records: the typed records that the mapping module registers.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace oclacp::cli {

class RecordsCommand {
 public:
  // Defines the command. Both live until the command line is parsed and the command has run.
  explicit RecordsCommand(CLI::App& app);

  // Whether the parsed command line names it.
  [[nodiscard]] bool is_chosen() const { return command_->parsed(); }

  // Does what the command line says, and answers what is to be printed. Throws host::Refusal.
  [[nodiscard]] std::string run() const;

 private:
  void define_decode();
  [[nodiscard]] std::string decode() const;

  CLI::App* command_;
  CLI::App* list_;
  CLI::App* show_;
  CLI::App* decode_;
  std::string module_;
  std::string name_;
  std::string file_;
  std::string format_ = "table";
  std::string device_;
};

}  // namespace oclacp::cli
