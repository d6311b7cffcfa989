#include "host/devices/linux/bond_plan.h"

#include <net/if.h>

#include <cstring>
#include <unordered_set>

#include "host/base/error.h"
#include "host/devices/linux/native_bonds.h"
#include "host/yang/data_nodes.h"

namespace oclacp::host {
namespace {

[[noreturn]] void refuse(const lyd_node* node, const std::string& reason) {
  throw node_error(ErrorKind::kOperationNotSupported, data_path(node), reason);
}

std::string_view name_of(const lyd_node* node) {
  return node->schema->name;
}

// Why LACP of an interface cannot be set; empty when it can.
std::string describe_obstacle(const LinkSnapshot& links, const std::string& name) {
  const Link* link = links.find(name);
  if (link == nullptr) {
    return "there is no interface " + name + ", and no bond is made";
  }
  if (!link->bond) {
    return name + " is not a bond";
  }
  if (!link->is_lacp_bond()) {
    return name + " is not in mode 802.3ad, and its mode is not changed";
  }
  return is_served(*link) ? "" : name + " is not served because of its name";
}

void read_mode(const lyd_node* leaf, BondSettings& settings) {
  const std::string_view mode = lyd_get_value(leaf);
  if (mode == "on") {
    refuse(leaf, "LACP cannot be turned off in mode 802.3ad");
  }
  settings.is_active = mode == "active";
}

void read_period(const lyd_node* leaf, BondSettings& settings) {
  const std::string_view period = lyd_get_value(leaf);
  if (period != "true" && period != "30000") {
    refuse(leaf, "a bond has the short period, true, or the long one of 30000 milliseconds");
  }
  settings.is_fast = period == "true";
}

void read_priority(const lyd_node* leaf, BondSettings& settings) {
  settings.system_priority = reinterpret_cast<const lyd_node_term*>(leaf)->value.uint16;
  if (settings.system_priority == 0) {
    refuse(leaf, "a bond has a system priority from 1 to 65535");
  }
}

void read_address(const lyd_node* leaf, BondSettings& settings) {
  settings.system = parse_mac_address(lyd_get_value(leaf)).value_or(MacAddress());
  if (settings.system.is_multicast()) {
    refuse(leaf, "a system is not identified by the address of a group");
  }
}

BondSettings read_settings(const lyd_node* lacp) {
  BondSettings settings;
  for (const lyd_node* leaf = lyd_child(lacp); leaf != nullptr; leaf = leaf->next) {
    const std::string_view name = name_of(leaf);
    if (!is_explicit(leaf)) {
      continue;
    }
    if (name == "mode") {
      read_mode(leaf, settings);
    } else if (name == "period") {
      read_period(leaf, settings);
    } else if (name == "system-priority") {
      read_priority(leaf, settings);
    } else if (name == "system-mac") {
      read_address(leaf, settings);
    } else {
      refuse(leaf, "bonds have no such setting");
    }
  }
  return settings;
}

// The node to complain about when a change interrupts.
const lyd_node* interrupting_node(const lyd_node* lacp, const BondChange& change) {
  const bool is_mode = change.before.is_active != change.after.is_active;
  const lyd_node* leaf = child_named(lacp, is_mode ? "mode" : "period");
  return leaf == nullptr ? lacp : leaf;
}

BondChange read_entry(const LinkSnapshot& links, const lyd_node* entry) {
  const lyd_node* active = lyd_child(entry);
  const std::string name = lyd_get_value(active->next);
  if (std::strcmp(lyd_get_value(active), "act") != 0) {
    refuse(entry, "a bond is there, so its configuration is of the class act");
  }
  if (const std::string obstacle = describe_obstacle(links, name); !obstacle.empty()) {
    refuse(entry, obstacle);
  }
  const lyd_node* lacp = nullptr;
  for (const lyd_node* child = active->next->next; child != nullptr; child = child->next) {
    if (!is_explicit(child) || name_of(child) == "interface-virtual") {
      continue;
    }
    if (name_of(child) != "lacp") {
      refuse(child, "bonds have no such setting");
    }
    lacp = child;
  }
  if (lacp == nullptr) {
    refuse(entry, "LACP cannot be turned off in mode 802.3ad; settings go back to the kernel's own one by one");
  }
  const Link* link = links.find(name);
  return {link->index, name, (link->flags & IFF_UP) != 0, settings_of(*link->bond), read_settings(lacp)};
}

const lyd_node* find_entries(const lyd_node* running) {
  const lyd_node* entries = nullptr;
  for (const lyd_node* top = running; top != nullptr; top = top->next) {
    if (!is_explicit(top)) {
      continue;
    }
    if (name_of(top) != "interface-configurations") {
      refuse(top, "a Linux kernel has no settings for all of its bonds; set them by bond");
    }
    entries = lyd_child(top);
  }
  return entries;
}

}  // namespace

std::vector<BondChange> plan_changes(const LinkSnapshot& links, const lyd_node* running, bool may_interrupt) {
  std::unordered_set<std::string> configured;
  std::vector<BondChange> changes;
  for (const lyd_node* entry = find_entries(running); entry != nullptr; entry = entry->next) {
    BondChange change = read_entry(links, entry);
    configured.insert(change.name);
    if (change.interrupts() && !may_interrupt) {
      refuse(interrupting_node(child_named(entry, "lacp"), change),
             "takes the links of " + change.name + " down for a moment, which may-interrupt allows");
    }
    if (!(change.before == change.after)) {
      changes.push_back(std::move(change));
    }
  }
  for (const Link& link : links.links) {
    if (link.is_lacp_bond() && is_served(link) && !configured.contains(link.name)) {
      throw Error(ErrorKind::kOperationNotSupported,
                  link.name + ": LACP cannot be turned off in mode 802.3ad, so the entry cannot be deleted");
    }
  }
  return changes;
}

}  // namespace oclacp::host
