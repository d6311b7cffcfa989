// What a read comes to.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/base/error.h"
#include "host/trees/answer_data.h"
#include "host/yang/format.h"

namespace oclacp::host {

// OpenConfig data built from native data.
struct Answer {
  AnswerData data;                      // lives no longer than the translator
  std::vector<Error> failures;          // why entries were left out; a sentence each, in the form of an Error
  size_t dropped_leaves = 0;            // left out because the module named no list entry for them
  std::vector<std::string> valueless;   // leaves that were left out because what the device says there has no form
  Format input_format = Format::kJson;  // of the native data that was translated
};

}  // namespace oclacp::host
