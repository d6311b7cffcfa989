// The terminal that the standard output may be.
#pragma once

#include "host/present/text_table.h"

namespace oclacp::cli {

// Whether the standard output is a terminal.
bool is_terminal();

// How tables are printed: 80 columns wide, and in colours only on a terminal whose user has not set NO_COLOR.
host::TableLayout table_layout();

}  // namespace oclacp::cli
