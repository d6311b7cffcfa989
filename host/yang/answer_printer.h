// An answer as text.
#pragma once

#include <string>

#include "host/yang/libyang.h"

namespace oclacp::host {

// Prints OpenConfig data as JSON (RFC 7951) or XML. `answer` is the first of the top nodes, null for an empty document.
// Throws Refusal when libyang cannot print it.
std::string print_answer(const ly_ctx* context, const lyd_node* answer, LYD_FORMAT format);

// Prints /lacp for people: the settings of the system, a line each, and a row for each interface with its settings in
// columns. Fits into 80 columns; a name that does not stands on a line of its own.
std::string print_table(const ly_ctx* context, const lyd_node* answer);

}  // namespace oclacp::host
