// The active interface configuration of a device, as its data store shows it.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "host/yang/libyang_ptr.h"

namespace oclacp::host {

class ActiveConfiguration {
 public:
  // `running`: the first top node of the running configuration, null for none; outlives this.
  explicit ActiveConfiguration(const lyd_node* running);
  ~ActiveConfiguration() = default;
  ActiveConfiguration(const ActiveConfiguration&) = delete;
  ActiveConfiguration& operator=(const ActiveConfiguration&) = delete;
  ActiveConfiguration(ActiveConfiguration&&) = delete;
  ActiveConfiguration& operator=(ActiveConfiguration&&) = delete;

  // One for each container of an interface's configuration that holds something: the interface's element, a slash, and
  // the container's path with a slash after it ("Bundle-Ether1/lacp/"). The longest elements come first: a mapping may
  // look for an interface by a part of its name, and finds Bundle-Ether10 before Bundle-Ether1 then.
  [[nodiscard]] std::vector<std::string> items() const;

  // An interface's element of a data-store path: its name in entry form. Where several names have one form, all but one
  // get an underscore more, so that each element is one interface's. Null for an interface that is not configured.
  [[nodiscard]] const char* element_of(std::string_view name) const;
  // The elements and the names that they stand for.
  [[nodiscard]] const std::unordered_map<std::string, std::string_view>& elements() const { return names_by_element_; }

  // Whether an interface's configuration holds something of LACP; whether that of any does.
  [[nodiscard]] bool has_lacp(std::string_view name) const { return with_lacp_.count(name) != 0; }
  [[nodiscard]] bool has_lacp() const { return !with_lacp_.empty(); }

 private:
  void name_element(std::string_view name);

  std::vector<std::string_view> names_;   // of the configured interfaces, in the configuration's order
  std::vector<const lyd_node*> entries_;  // beside names_
  std::unordered_set<std::string_view> with_lacp_;
  std::unordered_map<std::string, std::string_view> names_by_element_;
  std::unordered_map<std::string_view, const char*> elements_by_name_;  // keys of names_by_element_
};

}  // namespace oclacp::host
