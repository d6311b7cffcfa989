// A path as people write it, taken apart; no schema is asked.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace oclacp::host {

// "/name" or "/module:name", with its predicates.
struct PathStep {
  std::string module;  // empty when none is named
  std::string name;
  // What "[name='text']" and "[.='text']" say, in their order; no text is empty.
  std::vector<std::pair<std::string, std::string>> predicates;
};

// Takes apart an absolute path of at least one step, such as "/lacp/interfaces/interface[name='Bundle-Ether1']/config";
// slashes at its end are passed over. Throws Error for what is no path.
std::vector<PathStep> parse_path_steps(const std::string& path);

}  // namespace oclacp::host
