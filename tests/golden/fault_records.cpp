#include "golden/fault_records.h"

#include <cstddef>
#include <optional>
#include <string_view>

#include "golden/fault_expectations.h"
#include "support/invocation.h"
#include "sysdb/sysdb.h"

namespace golden {
namespace {

using support::Fault;
using Records = std::vector<std::string>;

// The first argument of a bounded string operation: who calls it.
std::string caller_of(const std::string& arguments) {
  return arguments.substr(1, arguments.find('"', 1) - 1);
}

std::string failed_call(const std::string& caller, const std::string& call, const std::string& error) {
  return "TRC " + caller + ":  " + caller + call + " failed with error : " + error + "\n";
}

std::string refused_interval(const std::string& converter) {
  return "ERR " + converter + ": \nValue of interval other than 1s and 30s is not supported in high model";
}

// The converters that compare a value with several texts tell the failure of the last ones as a value of no use.
std::string failed_comparison(const std::string& caller, const std::string& arguments, const std::string& error) {
  for (const std::string_view last : {" \"SLOW\"", " \"1000\"", " \"30000\""}) {
    if (arguments.ends_with(last)) return refused_interval(caller);
  }
  return failed_call(caller, " yfw_strcmp_s", error);
}

// A converter tells that it cannot read its interface or bundle; a list handler does not.
std::optional<std::string> failed_look_up(const Fault& fault, const std::string& error) {
  if (!fault.handler.starts_with("qd2oc_") || fault.call.arguments.ends_with("\"applied-lacp-mode\"")) {
    return std::nullopt;
  }
  const std::string start = "TRC " + fault.handler + ": ";
  if (fault.call.arguments.starts_with("\"/lacp-bundles/")) {
    return start + " " + fault.handler + " Unable to get bundle name from lacp-bundle tree : " + error + "\n";
  }
  return start + fault.handler + ": Unable to get bundle name. Returning from here. rc " + error + "\n";
}

std::string failed_store_call(const std::string& handler, const std::string& function, const std::string& error) {
  const std::string start = "ERR " + handler + ": Unable to ";
  if (function == "sysdb_list_next") return start + "iterate the sysdb list: error:" + error;
  const char* const what = function == "sysdb_find" ? "find items in" : "bind to";
  return start + what + " Sysdb: path:" SYSDB_ACTIVE_INTERFACES ", error:" + error;
}

// The record that tells of the failed call, if one does.
std::optional<std::string> record_of(const Fault& fault) {
  const std::string& function = fault.call.function;
  const std::string& arguments = fault.call.arguments;
  const std::string error = "status " + support::shown_status(kInjected);
  if (function == "yfw_strcpy_s") {
    const std::string caller = caller_of(arguments);
    return failed_call(caller, caller == "oc2qd_cfginterval" ? "  yfw_strcpy_s" : " yfw_strcpy_s", error);
  }
  if (function == "yfw_strncpy_s") return failed_call(caller_of(arguments), " yfw_strncpy_s", error);
  if (function == "yfw_strcmp_s") return failed_comparison(caller_of(arguments), arguments, error);
  if (function == "yfw_map_get_node_info") return failed_look_up(fault, error);
  if (function == "yfw_map_check_oc_leafref") return "ERR " + fault.handler + ": leafref value check fail";
  if (function == "access") {
    return failed_store_call(fault.handler, function, "status " + support::shown_status(SYSDB_LIBRARY_MISSING));
  }
  if (function == "_sysdb_bind" || function == "sysdb_find" || function == "sysdb_list_next") {
    return failed_store_call(fault.handler, function, error);
  }
  return std::nullopt;
}

// Whether the walk goes on in a way of its own after the fault. An expansion drops what failed in it, a replace what
// its deletion could not do, and in a read an expansion may follow the error.
bool goes_its_own_way(const Fault& fault, const support::Scenario& scenario) {
  const bool reads = scenario.operation == YFW_REQUEST_READ_CONFIG || scenario.operation == YFW_REQUEST_READ_STATE;
  return fault.whole_subtree != 0 || fault.replace_flags != 0 || (reads && scenario.root.ns.empty());
}

// How often the error path is marked after a fault that ends the walk: once where a handler finds an error of its own
// in it, never for a code that is passed up.
unsigned error_paths_of(cerrno status) {
  return status == YFW_UNSUPPORTED_INTERVAL || status == YFW_NOTHING_TO_DELETE ? 1 : 0;
}

std::string shown_record(const Records& records, std::size_t at) {
  return at < records.size() ? "\"" + records[at] + "\"" : "nothing";
}

// What has to follow the fault: the record of the failed call, and then what also follows without a fault, or, where
// the fault ends the walk, nothing but the ends of the handlers that ran.
Records expected_records(const Fault& fault, bool ends_walk, const Records& found, const Records& clean) {
  Records expected;
  if (const std::optional<std::string> record = record_of(fault)) expected.push_back(*record);
  if (!ends_walk) {
    auto rest = clean.begin() + static_cast<std::ptrdiff_t>(fault.records);
    // A call that fails in any case is told of in any case.
    if (!expected.empty() && rest != clean.end() && *rest == expected[0]) ++rest;
    expected.insert(expected.end(), rest, clean.end());
    return expected;
  }
  for (std::size_t at = fault.records + expected.size(); at < found.size(); ++at) {
    expected.push_back(found[at].ends_with(": End") ? found[at] : "the end of a handler");
  }
  return expected;
}

}  // namespace

Told told(const support::Platform& platform) {
  return {platform.trace(), platform.count("yfw_oc_error_path")};
}

std::vector<std::string> wrong_records(const support::Platform& platform, const support::Scenario& scenario,
                                       cerrno status, const Told& clean, cerrno clean_status) {
  if (!platform.fault()) return {};
  const Fault& fault = *platform.fault();
  const bool ends_walk = status != clean_status;
  const Told found = told(platform);
  const Records expected = expected_records(fault, ends_walk, found.records, clean.records);
  const bool own_way = goes_its_own_way(fault, scenario);
  const std::size_t compared = own_way ? (record_of(fault) ? 1 : 0) : expected.size();
  for (std::size_t i = 0; i < compared; ++i) {
    if (shown_record(found.records, fault.records + i) == shown_record(expected, i)) continue;
    return {"recorded " + shown_record(found.records, fault.records + i) + " instead of " + shown_record(expected, i)};
  }
  if (own_way) return {};
  if (found.records.size() != fault.records + expected.size()) return {"recorded more than is expected"};
  const unsigned error_paths = ends_walk ? fault.error_paths + error_paths_of(status) : clean.error_paths;
  if (found.error_paths == error_paths) return {};
  return {"the error path is marked " + std::to_string(found.error_paths) + " times instead of " +
          std::to_string(error_paths)};
}

}  // namespace golden
