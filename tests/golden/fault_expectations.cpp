#include "golden/fault_expectations.h"

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <string_view>

namespace golden {
namespace {

using support::Fault;
using support::Scenario;

bool has(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

bool starts_with(const std::string& text, std::string_view start) {
  return text.compare(0, start.size(), start) == 0;
}

bool ends_with(const std::string& text, std::string_view end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
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

cerrno status_of_request(const Fault& fault, const Scenario& scenario, cerrno clean) {
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
  if (function == "yfw_strcmp_s" && ends_with(fault.call.arguments, " \"SLOW\"")) return YFW_UNSUPPORTED_INTERVAL;
  if (function == "yfw_map_datatree_add_path_flagged") return status_of_failed_addition(fault, scenario, clean);
  return kInjected;
}

// Additions whose status is not kept: those of the port state, and the first of two.
bool is_unheeded_addition(const std::string& arguments, const Scenario& scenario) {
  constexpr std::string_view kMember = "\"/lacp/interfaces/interface/members/member/";
  if (starts_with(arguments, kMember) && (ends_with(arguments, "list=0 last=1") || has(arguments, "/lacp-errors\""))) {
    return true;
  }
  if (has(arguments, "\"/lacp/interfaces/interface/members/member/interface\"")) return true;
  return has(arguments, "\"/lacp/interfaces/interface/name\"") && scenario.operation == YFW_REQUEST_READ_STATE;
}

// The converter of the period refuses what it cannot compare with its two numbers of milliseconds.
cerrno status_of_failed_comparison(const std::string& arguments) {
  const bool of_milliseconds = ends_with(arguments, " \"1000\"") || ends_with(arguments, " \"30000\"");
  return of_milliseconds ? YFW_UNSUPPORTED_INTERVAL : kInjected;
}

// The name of an entry is missing before the look-up's status counts; the mode that it is told is not looked at.
cerrno status_of_failed_look_up(const Fault& fault, cerrno clean) {
  if (has(fault.call.arguments, "\"applied-lacp-mode\"")) return clean;
  return fault.handler == "ymap_qo_oclacp_talvobrinqdifmgrcfg_list_lvla_interfaceconfigurations_interfaceconfiguration"
             ? YFW_UNSUPPORTED_NODE
             : kInjected;
}

// The lists of the configuration: an entry without its keys is refused before the failure counts.
bool lacks_its_keys(const Fault& fault) {
  if (ends_with(fault.call.arguments, "/mtus/mtu\"")) return fault.named.count("owner") == 0;
  if (!ends_with(fault.call.arguments, "/interface-configuration\"")) return false;
  return fault.named.count("active") + fault.named.count("interface-name") == 0;
}

cerrno status_of_native_data(const Fault& fault, const Scenario& scenario, cerrno clean) {
  const std::string& function = fault.call.function;
  if (function == "yfw_map_update_current_list_node") return lacks_its_keys(fault) ? YFW_MALFORMED_TREE : kInjected;
  if (function == "yfw_strdup") return clean;
  if (function == "yfw_map_get_node_info") return status_of_failed_look_up(fault, clean);
  if (function == "yfw_strcmp_s") return status_of_failed_comparison(fault.call.arguments);
  if (function != "yfw_map_datatree_add_path_flagged") return kInjected;
  return is_unheeded_addition(fault.call.arguments, scenario) ? clean : kInjected;
}

bool has_preconfigured_entry(const support::Node& root) {
  return std::any_of(root.children.begin(), root.children.end(),
                     [](const support::Node& entry) { return entry.children[0].value == "pre"; });
}

// A list walker leaves without an end when its handler tells it to skip the entry: a deletion does, and the handler of
// pre-configuration.
bool may_skip_entries(const std::string& handler, const Scenario& scenario, const support::Platform& platform) {
  if (handler == "ymap_oq_oclacp_openconfiglacp_lvla_lacp_interfaces_interface") {
    return platform.traced("oclacp_to_qd_bundle_lacp_config_delete", "End") != 0;
  }
  return handler == "ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration" &&
         has_preconfigured_entry(scenario.root);
}

// A handler whose string operation failed leaves without an end, and so does a converter that cannot read the name of
// its interface or bundle.
bool failed_without_end(const std::string& handler, const Fault& fault) {
  if (is_one_of(fault.call.function, {"yfw_strcmp_s", "yfw_strcpy_s"})) {
    return starts_with(fault.call.arguments, "\"" + handler + "\"");
  }
  return fault.call.function == "yfw_map_get_node_info" && fault.handler == handler && starts_with(handler, "qd2oc_");
}

}  // namespace

cerrno expected_status(const Fault& fault, const Scenario& scenario, cerrno clean) {
  const bool is_native = !scenario.root.ns.empty();
  return is_native ? status_of_native_data(fault, scenario, clean) : status_of_request(fault, scenario, clean);
}

bool may_lack_end(const std::string& handler, const Scenario& scenario, const support::Platform& platform) {
  const std::optional<Fault>& fault = platform.fault();
  return (fault && failed_without_end(handler, *fault)) || may_skip_entries(handler, scenario, platform);
}

}  // namespace golden
