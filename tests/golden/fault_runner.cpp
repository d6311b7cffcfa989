// Runs a scenario again and again on the built module; in each run one platform call fails: the first, the second, and
// so on until a run is clean. After each run the walker's status has to be the one that this failure leads to, the
// records have to tell of it (the failed call's own, the ends of every handler, the error path as often as it is to be
// marked), and nothing may be left behind.
//
//     fault_runner MODULE FOLDER
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "golden/fault_expectations.h"
#include "golden/fault_records.h"
#include "support/invocation.h"
#include "support/left_behind.h"
#include "support/module.h"
#include "support/platform.h"
#include "support/scenario.h"

namespace {

using support::Fault;
using support::Scenario;

// The handlers that recorded a start and no end.
std::vector<std::string> unended(const support::Platform& platform) {
  std::vector<std::string> running;
  std::vector<std::string> left;
  for (const support::Record& record : platform.seen().records) {
    if (record.sink != support::Record::Sink::kTraceBuffer) continue;
    if (record.text == "Start") running.push_back(record.handler);
    if (record.text != "End") continue;
    while (!running.empty() && running.back() != record.handler) {
      left.push_back(running.back());
      running.pop_back();
    }
    if (running.empty()) {
      left.push_back(record.handler + " (an end without a start)");
    } else {
      running.pop_back();
    }
  }
  left.insert(left.end(), running.begin(), running.end());
  return left;
}

struct Run {
  std::optional<support::Platform> platform;  // made when the module has registered
  cerrno status = YFW_OK;
  std::vector<std::string> complaints;
};

// Carries out the scenario, the `nth` call that can fail failing; with 0 none does.
void carry_out(Run& run, const std::string& module_file, const Scenario& scenario, unsigned nth) {
  const support::Module module(module_file);
  const yfw_map_walker walk = module.entry_walker(scenario.root);
  run.platform.emplace();
  support::Platform& platform = *run.platform;
  scenario.apply(platform);
  platform.inject_fault(nth, golden::kInjected);
  support::Request request(scenario.root);
  run.status = walk(platform.ctx(), request.root(), platform.output());

  const std::optional<Fault>& fault = platform.fault();
  const bool in_deletion = fault && fault->call.function == "yfw_map_datatree_add_path_flagged" && fault->store_is_open;
  run.complaints =
      support::left_behind(platform, request, in_deletion ? support::Store::kLeftOpen : support::Store::kReleased);
  for (const std::string& handler : unended(platform)) {
    if (!golden::may_lack_end(handler, scenario, platform)) {
      run.complaints.push_back("no end is recorded by " + handler);
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: fault_runner MODULE FOLDER\n";
    return 2;
  }
  const std::string module = argv[1];
  const Scenario scenario = support::read_scenario(std::string(argv[2]) + "/request");
  cerrno clean = YFW_OK;
  golden::Told told_clean;
  bool right = true;
  for (unsigned nth = 0;; ++nth) {
    Run run;
    carry_out(run, module, scenario, nth);
    const std::optional<Fault>& fault = run.platform->fault();
    if (nth == 0) {
      clean = run.status;
      told_clean = golden::told(*run.platform);
    }
    const cerrno expected = fault ? golden::expected_status(*fault, scenario, clean) : clean;
    if (run.status != expected) {
      run.complaints.push_back("status " + support::shown_status(run.status) + " instead of " +
                               support::shown_status(expected));
    }
    const std::vector<std::string> wrong = golden::wrong_records(*run.platform, scenario, expected, told_clean, clean);
    run.complaints.insert(run.complaints.end(), wrong.begin(), wrong.end());
    for (const std::string& complaint : run.complaints) {
      std::cout << "call " << nth << " (" << (fault ? fault->call.text() : "none") << "): " << complaint << "\n";
      right = false;
    }
    if (nth != 0 && !fault) {
      std::cout << nth - 1 << " calls failed, one a run\n";
      return right ? 0 : 1;
    }
  }
}
