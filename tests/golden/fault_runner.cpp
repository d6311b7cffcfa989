// Runs a scenario again and again on the built module; in each run one platform call fails: the first, the second, and
// so on until a run is clean. After each run the walker's status has to be the one that this failure leads to, every
// handler has to have recorded its end, and nothing may be left behind.
//
//     fault_runner MODULE FOLDER
#include <algorithm>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/invocation.h"
#include "support/left_behind.h"
#include "support/module.h"
#include "support/platform.h"
#include "support/scenario.h"

namespace {

using support::Fault;
using support::Scenario;

// What a failing call answers: nothing that the module or the recording platform answers by itself.
constexpr cerrno kInjected = 0x0badc0de;

bool has(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

bool is_one_of(const std::string& function, std::initializer_list<const char*> functions) {
  return std::any_of(functions.begin(), functions.end(), [&](const char* one) { return function == one; });
}

bool has_virtual_interface(const Scenario& scenario) {
  return std::any_of(scenario.facts.begin(), scenario.facts.end(),
                     [](const Scenario::Fact& fact) { return fact.name == "virtual"; });
}

// The operation of the first deleted entry of a tree, or none.
std::uint32_t deleted_entry_operation(const support::Node& node) {
  if (node.tag == "interface" && node.operation != YFW_OPERATION_NONE) return node.operation;
  for (const support::Node& child : node.children) {
    if (const std::uint32_t operation = deleted_entry_operation(child); operation != YFW_OPERATION_NONE) {
      return operation;
    }
  }
  return YFW_OPERATION_NONE;
}

// A data store that cannot be asked knows no LACP configuration.
cerrno status_of_unanswered_deletion(const Scenario& scenario) {
  return deleted_entry_operation(scenario.root) == YFW_OPERATION_DELETE ? YFW_NOTHING_TO_DELETE : YFW_OK;
}

// Of what an interface key adds, only the last addition counts.
cerrno status_of_failed_addition(const Fault& fault, const Scenario& scenario, cerrno clean) {
  const std::string& arguments = fault.call.arguments;
  const bool of_key = has(arguments, "list=1");
  if (of_key && has(arguments, "/interface-name\"")) return clean;
  const bool edit = !has(arguments, "source=null");
  if (of_key && has(arguments, "/active\"") && edit && has_virtual_interface(scenario)) return clean;
  return kInjected;
}

// The walker's status after a fault, given its status without one.
cerrno expected_status(const Fault& fault, const Scenario& scenario, cerrno clean) {
  const std::string& function = fault.call.function;
  // An expansion ignores the results of what it calls.
  if (fault.whole_subtree != 0) return clean;
  if (is_one_of(function, {"yfw_strdup", "yfw_strncpy_s", "imc_interface_find", "imc_s_interface_get_flags",
                           "imc_ifname_parse", "imc_display_namestring", "sysdb_list_free", "_sysdb_unbind"})) {
    return clean;
  }
  if (is_one_of(function, {"access", "_sysdb_bind", "sysdb_find", "sysdb_list_next"})) {
    return fault.replace_flags != 0 ? clean : status_of_unanswered_deletion(scenario);
  }
  if (function == "yfw_strcmp_s" && fault.call.arguments.ends_with(" \"SLOW\"")) return YFW_UNSUPPORTED_INTERVAL;
  if (function == "yfw_map_datatree_add_path_flagged") return status_of_failed_addition(fault, scenario, clean);
  return kInjected;
}

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

// A handler leaves without an end when its string operation failed, and the list walker when the deletion told it to
// skip the entry.
bool may_lack_end(const std::string& handler, const support::Platform& platform) {
  const std::optional<Fault>& fault = platform.fault();
  if (fault && is_one_of(fault->call.function, {"yfw_strcmp_s", "yfw_strcpy_s"}) &&
      fault->call.arguments.starts_with("\"" + handler + "\"")) {
    return true;
  }
  return handler == "ymap_oq_oclacp_openconfiglacp_lvla_lacp_interfaces_interface" &&
         platform.traced("oclacp_to_qd_bundle_lacp_config_delete", "End") != 0;
}

struct Run {
  support::Platform platform;
  cerrno status = YFW_OK;
  std::vector<std::string> complaints;
};

// Carries out the scenario, the `nth` call that can fail failing; with 0 none does.
void carry_out(Run& run, const std::string& module_file, const Scenario& scenario, unsigned nth) {
  const support::Module module(module_file);
  scenario.apply(run.platform);
  run.platform.inject_fault(nth, kInjected);
  support::Request request(scenario.root);
  run.status = module.function(support::kEntryWalker)(run.platform.ctx(), request.root(), run.platform.output());

  const std::optional<Fault>& fault = run.platform.fault();
  const bool in_deletion = fault && fault->call.function == "yfw_map_datatree_add_path_flagged" && fault->store_is_open;
  run.complaints =
      support::left_behind(run.platform, request, in_deletion ? support::Store::kLeftOpen : support::Store::kReleased);
  for (const std::string& handler : unended(run.platform)) {
    if (!may_lack_end(handler, run.platform)) run.complaints.push_back("no end is recorded by " + handler);
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
  bool right = true;
  for (unsigned nth = 0;; ++nth) {
    Run run;
    carry_out(run, module, scenario, nth);
    const std::optional<Fault>& fault = run.platform.fault();
    if (nth == 0) clean = run.status;
    const cerrno expected = fault ? expected_status(*fault, scenario, clean) : clean;
    if (run.status != expected) {
      run.complaints.push_back("status " + support::shown_status(run.status) + " instead of " +
                               support::shown_status(expected));
    }
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
