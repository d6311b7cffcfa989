#include "host/devices/linux/native_bonds.h"

#include <linux/if_arp.h>

#include <algorithm>
#include <chrono>
#include <unordered_set>

#include "host/base/error.h"
#include "host/devices/linux/bond_settings.h"
#include "host/yang/libyang_error.h"

namespace oclacp::host {
namespace {

std::vector<const Link*> served_bonds(const LinkSnapshot& snapshot) {
  std::vector<const Link*> bonds;
  for (const Link& link : snapshot.links) {
    if (link.is_lacp_bond() && is_served(link)) {
      bonds.push_back(&link);
    }
  }
  return bonds;
}

// Puts native data together. Every value comes from the kernel in a form that the models take, so that a failure is one
// of memory.
class NativeData {
 public:
  explicit NativeData(const ly_ctx* native) : native_(native) {}

  lyd_node* add_top(const char* module, const char* name) {
    lyd_node* node = nullptr;
    check(lyd_new_inner(nullptr, ly_ctx_get_module_implemented(native_, module), name, 0, &node));
    top_.reset(node);
    return node;
  }
  // `module`: null for that of the parent.
  lyd_node* add(lyd_node* parent, const char* name, const char* module = nullptr) {
    const lys_module* of = module == nullptr ? nullptr : ly_ctx_get_module_implemented(native_, module);
    lyd_node* node = nullptr;
    check(lyd_new_inner(parent, of, name, 0, &node));
    return node;
  }
  template <typename... Keys>
  lyd_node* add_entry(lyd_node* parent, const char* name, Keys... keys) {
    lyd_node* node = nullptr;
    check(lyd_new_list(parent, nullptr, name, 0, &node, keys...));
    return node;
  }
  void set(lyd_node* parent, const char* name, const char* value) {
    check(lyd_new_term(parent, nullptr, name, value, 0, nullptr));
  }
  void set(lyd_node* parent, const char* name, const std::optional<MacAddress>& value) {
    if (value) {
      set(parent, name, to_text(*value).c_str());
    }
  }
  template <typename Number>
  void set(lyd_node* parent, const char* name, const std::optional<Number>& value) {
    if (value) {
      set(parent, name, std::to_string(*value).c_str());
    }
  }

  TreePtr take_valid(uint32_t validation) {
    lyd_node* tree = top_.release();
    const LY_ERR status = lyd_validate_all(&tree, native_, validation, nullptr);
    top_.reset(tree);
    check(status);
    return std::move(top_);
  }

 private:
  void check(LY_ERR status) const {
    if (status != LY_SUCCESS) {
      throw libyang_error(native_, "the bonds of this machine");
    }
  }

  const ly_ctx* native_;
  TreePtr top_;
};

void add_configuration(NativeData& data, lyd_node* interfaces, const Link& bond) {
  const BondSettings settings = settings_of(*bond.bond);
  lyd_node* entry = data.add_entry(interfaces, "interface-configuration", "act", bond.name.c_str());
  data.set(entry, "interface-virtual", "");
  lyd_node* lacp = data.add(entry, "lacp", "Talvo-Brin-QD-bundlemgr-cfg");
  data.set(lacp, "mode", settings.is_active ? "active" : "passive");
  data.set(lacp, "period", settings.is_fast ? "true" : "30000");
  if (settings.system_priority != BondSettings::kDefaultSystemPriority) {
    data.set(lacp, "system-priority", std::optional(settings.system_priority));
  }
  if (!settings.system.is_zero()) {
    data.set(lacp, "system-mac", std::optional(settings.system));
  }
}

// The identifier in use. Until a bond has had a port, the kernel shows zeros for it and what it is going to be stands
// in the settings.
void add_system(NativeData& data, lyd_node* bundle, const Link& bond, const BondingText& text) {
  std::optional<MacAddress> address = text.system;
  if (!address || address->is_zero()) {
    address = bond.bond->actor_system;
  }
  if (address && address->is_zero()) {
    address = bond.address;
  }
  std::optional<std::uint16_t> priority = text.system_priority;
  if (!priority || *priority == 0) {
    priority = bond.bond->actor_system_priority;
  }
  if (!address && !priority) {
    return;
  }
  lyd_node* system = data.add(bundle, "bundle-system-id");
  if (address) {
    data.set(data.add(system, "system-mac-addr"), "macaddr", address);
  }
  data.set(system, "system-prio", priority);
}

void add_statistics(NativeData& data, lyd_node* counters, const LacpStatistics& statistics) {
  data.set(counters, "lacpd-us-received", statistics.received);
  data.set(counters, "lacpd-us-transmitted", statistics.transmitted);
  // Packets that are not valid LACPDUs are either; one counter alone would be too low a number.
  if (statistics.illegal_received && statistics.unknown_received) {
    data.set(counters, "illegal-packets-received",
             std::optional(*statistics.illegal_received + *statistics.unknown_received));
  }
}

void add_events(NativeData& data, lyd_node* counters, const MemberEvents& events) {
  if (events.last_change) {
    const auto time = events.last_change->time_since_epoch();
    data.set(counters, "last-change",
             std::optional(std::chrono::duration_cast<std::chrono::nanoseconds>(time).count()));
  }
  data.set(counters, "lacp-timeout-transitions", std::optional(events.timeouts));
}

void add_counters(NativeData& data, lyd_node* member, int port, const LinkSnapshot& snapshot,
                  const MemberEventsByPort& seen) {
  const auto statistics = snapshot.statistics.find(port);
  const auto events = seen.find(port);
  if (statistics == snapshot.statistics.end() && events == seen.end()) {
    return;
  }
  lyd_node* counters = data.add(member, "counters");
  if (statistics != snapshot.statistics.end()) {
    add_statistics(data, counters, statistics->second);
  }
  if (events != seen.end()) {
    add_events(data, counters, events->second);
  }
}

void add_link_data(NativeData& data, lyd_node* member, const Link& port, const BondingText& text) {
  const auto found =
      std::find_if(text.ports.begin(), text.ports.end(), [&](const auto& other) { return other.name == port.name; });
  const BondingText::Port ends = found == text.ports.end() ? BondingText::Port() : *found;
  lyd_node* link = data.add(member, "link-data");
  data.set(link, "actor-system-mac-address", ends.actor.system);
  data.set(link, "actor-operational-key", ends.actor.key);
  data.set(link, "partner-system-mac-address", ends.partner.system);
  data.set(link, "partner-operational-key", ends.partner.key);
  data.set(link, "actor-port-id", ends.actor.port_number);
  data.set(link, "partner-port-id", ends.partner.port_number);
  data.set(link, "actor-port-state", port.bond_port->actor_state);
}

void add_state(NativeData& data, lyd_node* bundles, const Link& bond, const LinkSnapshot& snapshot,
               const std::vector<const Link*>& ports, const MemberEventsByPort& seen) {
  const auto found = snapshot.texts.find(bond.index);
  const BondingText text = found == snapshot.texts.end() ? BondingText() : found->second;
  lyd_node* bundle = data.add_entry(bundles, "bundle", bond.name.c_str());
  lyd_node* of_bundle = data.add(bundle, "data");
  add_system(data, of_bundle, bond, text);
  data.set(of_bundle, "applied-lacp-mode", settings_of(*bond.bond).is_active ? "bmd-mode-active" : "bmd-mode-passive");
  if (ports.empty()) {
    return;
  }
  lyd_node* members = data.add(bundle, "members");
  for (const Link* port : ports) {
    lyd_node* member = data.add_entry(members, "member", port->name.c_str());
    add_counters(data, member, port->index, snapshot, seen);
    add_link_data(data, member, *port, text);
  }
}

// RFC 3629, 4.
bool is_utf8(std::string_view text) {
  while (!text.empty()) {
    const auto first = static_cast<unsigned char>(text[0]);
    const std::size_t size = first < 0x80   ? 1
                             : first < 0xc2 ? 0
                             : first < 0xe0 ? 2
                             : first < 0xf0 ? 3
                             : first < 0xf5 ? 4
                                            : 0;
    if (size == 0 || size > text.size()) {
      return false;
    }
    const auto second = static_cast<unsigned char>(size > 1 ? text[1] : 0);
    const bool is_overlong = (first == 0xe0 && second < 0xa0) || (first == 0xf0 && second < 0x90);
    const bool is_out_of_range = (first == 0xed && second >= 0xa0) || (first == 0xf4 && second >= 0x90);
    const bool is_continued = std::all_of(text.begin() + 1, text.begin() + static_cast<std::ptrdiff_t>(size),
                                          [](char byte) { return (byte & 0xc0) == 0x80; });
    if (is_overlong || is_out_of_range || !is_continued) {
      return false;
    }
    text.remove_prefix(size);
  }
  return true;
}

InterfaceType type_of(const Link& link, const std::unordered_set<int>& lacp_bonds) {
  if (link.is_lacp_bond()) {
    return InterfaceType::kBundle;
  }
  const bool is_hardware = link.kind.empty() && link.hardware_type != ARPHRD_LOOPBACK;
  return is_hardware || lacp_bonds.contains(link.controller) ? InterfaceType::kPhysical : InterfaceType::kVirtual;
}

}  // namespace

std::vector<Interface> list_interfaces(const LinkSnapshot& snapshot) {
  std::unordered_set<int> lacp_bonds;
  for (const Link& link : snapshot.links) {
    if (link.is_lacp_bond()) {
      lacp_bonds.insert(link.index);
    }
  }
  std::vector<Interface> interfaces;
  for (const Link& link : snapshot.links) {
    interfaces.push_back({link.name, type_of(link, lacp_bonds)});
  }
  return interfaces;
}

bool is_served(const Link& bond) {
  return bond.name.find('.') == std::string::npos && is_utf8(bond.name);
}

TreePtr make_running(const ly_ctx* native, const LinkSnapshot& snapshot) {
  const std::vector<const Link*> bonds = served_bonds(snapshot);
  if (bonds.empty()) {
    return nullptr;
  }
  NativeData data(native);
  lyd_node* interfaces = data.add_top("Talvo-Brin-QD-ifmgr-cfg", "interface-configurations");
  for (const Link* bond : bonds) {
    add_configuration(data, interfaces, *bond);
  }
  return data.take_valid(LYD_VALIDATE_NO_STATE);
}

TreePtr make_operational(const ly_ctx* native, const LinkSnapshot& snapshot, const MemberEventsByPort& seen) {
  const std::vector<const Link*> bonds = served_bonds(snapshot);
  if (bonds.empty()) {
    return nullptr;
  }
  std::unordered_map<int, std::vector<const Link*>> ports;
  for (const Link& link : snapshot.links) {
    if (link.bond_port && is_utf8(link.name)) {
      ports[link.controller].push_back(&link);
    }
  }
  NativeData data(native);
  lyd_node* bundles = data.add(data.add_top("Talvo-Brin-QD-bundlemgr-oper", "lacp-bundles"), "bundles");
  for (const Link* bond : bonds) {
    add_state(data, bundles, *bond, snapshot, ports[bond->index], seen);
  }
  return data.take_valid(LYD_VALIDATE_PRESENT);
}

bool is_withheld(const LinkSnapshot& snapshot) {
  const std::vector<const Link*> bonds = served_bonds(snapshot);
  return std::any_of(bonds.begin(), bonds.end(),
                     [](const Link* bond) { return !bond->bond->actor_system_priority || !bond->bond->actor_system; });
}

std::vector<std::string> warnings_about(const LinkSnapshot& snapshot) {
  std::vector<std::string> warnings;
  size_t lacp_bonds = 0;
  for (const Link& link : snapshot.links) {
    lacp_bonds += link.is_lacp_bond() ? 1 : 0;
    if (link.is_lacp_bond() && !is_served(link)) {
      warnings.push_back(link.name + ": not served: " +
                         (is_utf8(link.name) ? "a name with a dot is a sub-interface's" : "its name is not UTF-8"));
    }
  }
  if (lacp_bonds == 0) {
    warnings.emplace_back("there is no bond in mode 802.3ad");
  }
  if (is_withheld(snapshot)) {
    warnings.emplace_back(
        "the kernel withholds the system priorities, system identifiers, keys and port numbers of bonds from a process "
        "without CAP_NET_ADMIN in the initial user namespace");
  } else if (!snapshot.has_texts) {
    warnings.push_back(std::string("without ") + kBondingTexts +
                       " the keys, port numbers and system identifiers of members are not known");
  }
  return warnings;
}

}  // namespace oclacp::host
