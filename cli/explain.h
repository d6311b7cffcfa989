// The commands that tell what the mapping does.
#pragma once

#include <CLI/CLI.hpp>

namespace oclacp::cli {

// oclacp explain: what the mapping does with a node, in both directions.
void define_explain(CLI::App& app);

// oclacp coverage: what of openconfig-lacp it serves.
void define_coverage(CLI::App& app);

}  // namespace oclacp::cli
