// The command that shows the records.
#pragma once

#include <CLI/CLI.hpp>

namespace oclacp::cli {

// oclacp records: the typed records that the mapping module registers.
void define_records(CLI::App& app);

}  // namespace oclacp::cli
