// Runs scenarios on the built module and compares what it did with what the scenario's folder says.
//
//     golden_runner [--update] MODULE FOLDER...
//
// A folder holds `request` (the scenario), `calls` (every platform call, in order) and `output` (the paths that were
// added, the walker's status and the error tag). With --update the latter two are written anew; the build target
// `golden_update` does that for all folders.
#include <cstddef>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "support/call_log.h"
#include "support/invocation.h"
#include "support/left_behind.h"
#include "support/module.h"
#include "support/platform.h"
#include "support/scenario.h"

namespace {

using Lines = std::vector<std::string>;

Lines read_lines(const std::string& file) {
  std::ifstream stream(file);
  Lines lines;
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

bool write_lines(const std::string& file, const Lines& lines) {
  std::ofstream stream(file);
  for (const std::string& line : lines) stream << line << '\n';
  return stream.good();
}

// Tells the first difference; what follows it is seldom worth reading.
bool same(const std::string& file, const Lines& actual) {
  const Lines expected = read_lines(file);
  for (std::size_t i = 0; i < expected.size() || i < actual.size(); ++i) {
    const std::string want = i < expected.size() ? expected[i] : "(nothing)";
    const std::string have = i < actual.size() ? actual[i] : "(nothing)";
    if (want == have) continue;
    std::cout << file << ":" << i + 1 << ":\n  expected: " << want << "\n  actual:   " << have << "\n";
    return false;
  }
  return true;
}

bool run_case(const support::Module& module, const std::string& folder, bool update) {
  const support::Scenario scenario = support::read_scenario(folder + "/request");
  const yfw_map_walker walk = module.entry_walker(scenario.root);
  support::Platform platform;
  scenario.apply(platform);
  support::Request request(scenario.root);
  const cerrno status = walk(platform.ctx(), request.root(), platform.output());

  const Lines calls = support::call_log(platform.calls());
  Lines output = support::output_table(platform.additions());
  output.push_back("status " + support::shown_status(status));
  output.push_back("error tag " + (platform.state().error_tag == nullptr ? "none" : platform.error_tag()));

  bool right = true;
  for (const std::string& complaint : support::left_behind(platform, request)) {
    std::cout << folder << ": " << complaint << "\n";
    right = false;
  }
  if (update) return write_lines(folder + "/calls", calls) && write_lines(folder + "/output", output) && right;
  right = same(folder + "/output", output) && right;
  return same(folder + "/calls", calls) && right;
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<std::string> arguments(argv + 1, argv + argc);
  const bool update = !arguments.empty() && arguments[0] == "--update";
  if (update) arguments.erase(arguments.begin());
  if (arguments.size() < 2) {
    std::cerr << "usage: golden_runner [--update] MODULE FOLDER...\n";
    return 2;
  }
  bool right = true;
  for (std::size_t i = 1; i < arguments.size(); ++i) {
    const support::Module module(arguments[0]);
    right = run_case(module, arguments[i], update) && right;
  }
  return right ? 0 : 1;
}
