// A path as people and tools write it, taken apart; no schema is asked.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace oclacp::host {

// No path to a node of any model comes near it.
inline constexpr std::size_t kMaxPathBytes = 8192;

// "/name" or "/module:name", with its predicates.
struct PathStep {
  std::string module;  // empty when none is named
  std::string name;
  // What "[name='text']", "[module:name='text']" and "[.='text']" say, in their order and without modules; no text is
  // empty. "[name=*]" says nothing.
  std::vector<std::pair<std::string, std::string>> predicates;

  bool operator==(const PathStep&) const = default;
};

// Takes apart a path of at least one step, such as "/lacp/interfaces/interface[name='Bundle-Ether1']/config". The slash
// at the front may be missing; slashes at the end are skipped. A value stands in quotes of either kind, as in XPath, or
// without them up to the bracket, where a backslash takes away the meaning of the character after it, as in the paths
// of gNMI tools. Linear in the path. Throws Error for what is not a path.
std::vector<PathStep> parse_path_steps(const std::string& path);

}  // namespace oclacp::host
