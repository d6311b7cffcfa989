// The command that translates without changing a device.
#pragma once

#include <CLI/CLI.hpp>

namespace oclacp::cli {

// oclacp translate.
void define_translate(CLI::App& app);

}  // namespace oclacp::cli
