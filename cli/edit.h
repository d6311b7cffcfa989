// The commands that change a device.
#pragma once

#include <CLI/CLI.hpp>

namespace oclacp::cli {

// oclacp edit: a request is translated and applied to a device.
void define_edit(CLI::App& app);

// oclacp delete: one node is deleted.
void define_delete(CLI::App& app);

}  // namespace oclacp::cli
