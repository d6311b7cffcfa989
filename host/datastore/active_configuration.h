// The active interface configuration of a device, as its data store shows it.
#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "host/yang/libyang.h"

namespace oclacp::host {

class ActiveConfiguration {
 public:
  // `running`: the first top node of the running configuration, null for none; outlives this.
  explicit ActiveConfiguration(const lyd_node* running);

  // The names of the configured interfaces, in the configuration's order.
  [[nodiscard]] const std::vector<std::string_view>& names() const { return names_; }

  // One for each container of an interface's configuration that holds something: the interface in entry form, a slash,
  // and the container's path with a slash behind it ("Bundle-Ether1/lacp/").
  [[nodiscard]] std::vector<std::string> items() const;

  // Whether an interface's configuration holds something of LACP.
  [[nodiscard]] bool has_lacp(std::string_view name) const { return with_lacp_.count(name) != 0; }

 private:
  std::vector<std::string_view> names_;
  std::vector<const lyd_node*> entries_;  // beside names_
  std::unordered_set<std::string_view> with_lacp_;
};

}  // namespace oclacp::host
