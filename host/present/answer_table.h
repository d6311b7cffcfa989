// An answer for people.
#pragma once

#include <string>

#include "host/base/export.h"
#include "host/present/text_table.h"
#include "host/trees/answer_data.h"

namespace oclacp::host {

// What was read some time before, to tell how fast counters grow.
struct EarlierAnswer {
  AnswerNode top;
  double seconds;  // between the two, more than 0
};

// Prints /lacp in tables. Of configuration alone: the settings of the system, a line each, and a row for each interface
// with its settings in columns. With state: for the system and each bundle what is configured beside what is in use,
// and for the bundle's members their LACP state, both ends of the link and the counters; with an earlier answer also
// what each counter gained per second since. What the answer does not hold is shown as "-", a table without any of it
// not at all. `answer` is the top node, or none; `context` is that of the OpenConfig side.
OCLACP_HOST_API std::string answer_table(const ly_ctx* context, AnswerNode answer, const TableLayout& layout,
                                         const EarlierAnswer* earlier = nullptr);

}  // namespace oclacp::host
