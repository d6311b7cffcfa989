// The command that reads a device.
#pragma once

#include <CLI/CLI.hpp>

namespace oclacp::cli {

// oclacp get.
void define_get(CLI::App& app);

}  // namespace oclacp::cli
