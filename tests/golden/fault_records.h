// What a walk has to have recorded when one platform call in it failed.
#pragma once

#include <string>
#include <vector>

#include "support/platform.h"
#include "support/scenario.h"

namespace golden {

// What a walk told: the records of its trace, as Platform::trace() gives them, and how often it marked the error path.
struct Told {
  std::vector<std::string> records;
  unsigned error_paths = 0;
};

Told told(const support::Platform& platform);

// What is wrong with the records after a fault, a sentence each. `status` is the one that the fault leads to; `clean`
// and `clean_status` are of the walk without one.
std::vector<std::string> wrong_records(const support::Platform& platform, const support::Scenario& scenario,
                                       cerrno status, const Told& clean, cerrno clean_status);

}  // namespace golden
