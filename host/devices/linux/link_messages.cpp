#include "host/devices/linux/link_messages.h"

#include <linux/if_bonding.h>
#include <linux/if_link.h>
#include <linux/rtnetlink.h>

#include "host/devices/linux/netlink_attributes.h"

namespace oclacp::host {
namespace {

static_assert(kBondModeLacp == BOND_MODE_8023AD);

BondAttributes read_bond(const nlattr& data) {
  BondAttributes bond;
  for_each_attribute(data, [&](const nlattr& attribute) {
    switch (mnl_attr_get_type(&attribute)) {
      case IFLA_BOND_MODE:
        bond.mode = read_number<std::uint8_t>(attribute);
        break;
      case IFLA_BOND_AD_LACP_RATE:
        bond.lacp_rate = read_number<std::uint8_t>(attribute);
        break;
      case IFLA_BOND_AD_LACP_ACTIVE:
        bond.lacp_active = read_number<std::uint8_t>(attribute);
        break;
      case IFLA_BOND_AD_ACTOR_SYS_PRIO:
        bond.actor_system_priority = read_number<std::uint16_t>(attribute);
        break;
      case IFLA_BOND_AD_ACTOR_SYSTEM:
        bond.actor_system = read_mac_address(attribute);
        break;
      default:
        break;
    }
  });
  return bond;
}

BondPortAttributes read_bond_port(const nlattr& data) {
  BondPortAttributes port;
  for_each_attribute(data, [&](const nlattr& attribute) {
    switch (mnl_attr_get_type(&attribute)) {
      case IFLA_BOND_SLAVE_AD_ACTOR_OPER_PORT_STATE:
        port.actor_state = read_number<std::uint8_t>(attribute);
        break;
      case IFLA_BOND_SLAVE_AD_PARTNER_OPER_PORT_STATE:
        port.partner_state = read_number<std::uint16_t>(attribute);
        break;
      default:
        break;
    }
  });
  return port;
}

// The data of a kind mean nothing without the kind, which may stand after them.
void read_link_info(const nlattr& info, Link& link) {
  std::string port_kind;
  const nlattr* data = nullptr;
  const nlattr* port_data = nullptr;
  for_each_attribute(info, [&](const nlattr& attribute) {
    switch (mnl_attr_get_type(&attribute)) {
      case IFLA_INFO_KIND:
        link.kind = read_string(attribute);
        break;
      case IFLA_INFO_DATA:
        data = &attribute;
        break;
      case IFLA_INFO_SLAVE_KIND:
        port_kind = read_string(attribute);
        break;
      case IFLA_INFO_SLAVE_DATA:
        port_data = &attribute;
        break;
      default:
        break;
    }
  });
  if (link.kind == "bond") {
    link.bond = data == nullptr ? BondAttributes() : read_bond(*data);
  }
  if (port_kind == "bond") {
    link.bond_port = port_data == nullptr ? BondPortAttributes() : read_bond_port(*port_data);
  }
}

LacpStatistics read_lacp_counters(const nlattr& counters) {
  LacpStatistics statistics;
  for_each_attribute(counters, [&](const nlattr& attribute) {
    const std::optional<std::uint64_t> number = read_number<std::uint64_t>(attribute);
    switch (mnl_attr_get_type(&attribute)) {
      case BOND_3AD_STAT_LACPDU_RX:
        statistics.received = number;
        break;
      case BOND_3AD_STAT_LACPDU_TX:
        statistics.transmitted = number;
        break;
      case BOND_3AD_STAT_LACPDU_UNKNOWN_RX:
        statistics.unknown_received = number;
        break;
      case BOND_3AD_STAT_LACPDU_ILLEGAL_RX:
        statistics.illegal_received = number;
        break;
      default:
        break;
    }
  });
  return statistics;
}

// Calls `visit` with the attributes of one type among those inside of another.
template <typename Visit>
void descend(const nlattr& nest, std::uint16_t type, Visit visit) {
  for_each_attribute(nest, [&](const nlattr& attribute) {
    if (mnl_attr_get_type(&attribute) == type) {
      visit(attribute);
    }
  });
}

// The header that follows the netlink header; null when the message is of another type or too short for one.
template <typename Header>
const Header* header_of(const nlmsghdr& message, std::uint16_t type) {
  return message.nlmsg_type == type && mnl_nlmsg_get_payload_len(&message) >= sizeof(Header)
             ? static_cast<const Header*>(mnl_nlmsg_get_payload(&message))
             : nullptr;
}

}  // namespace

std::optional<Link> parse_link(const nlmsghdr& message) {
  const auto* header = header_of<ifinfomsg>(message, RTM_NEWLINK);
  if (header == nullptr) {
    return std::nullopt;
  }
  Link link;
  link.index = header->ifi_index;
  link.hardware_type = header->ifi_type;
  link.flags = header->ifi_flags;
  bool is_lower_elsewhere = false;
  for_each_attribute(message, sizeof(*header), [&](const nlattr& attribute) {
    switch (mnl_attr_get_type(&attribute)) {
      case IFLA_IFNAME:
        link.name = read_string(attribute);
        break;
      case IFLA_MASTER:
        link.controller = read_number<int>(attribute).value_or(0);
        break;
      case IFLA_LINK:
        link.lower = read_number<int>(attribute).value_or(0);
        break;
      case IFLA_LINK_NETNSID:
        is_lower_elsewhere = true;
        break;
      case IFLA_ADDRESS:
        link.address = read_mac_address(attribute);
        break;
      case IFLA_LINKINFO:
        read_link_info(attribute, link);
        break;
      default:
        break;
    }
  });
  if (is_lower_elsewhere) {
    link.lower = 0;
  }
  return link.name.empty() ? std::nullopt : std::optional(std::move(link));
}

std::optional<LacpStatistics> parse_lacp_statistics(const nlmsghdr& message) {
  const auto* header = header_of<if_stats_msg>(message, RTM_NEWSTATS);
  if (header == nullptr) {
    return std::nullopt;
  }
  std::optional<LacpStatistics> statistics;
  for_each_attribute(message, sizeof(*header), [&](const nlattr& attribute) {
    if (mnl_attr_get_type(&attribute) != IFLA_STATS_LINK_XSTATS_SLAVE) {
      return;
    }
    descend(attribute, LINK_XSTATS_TYPE_BOND, [&](const nlattr& bond) {
      descend(bond, BOND_XSTATS_3AD, [&](const nlattr& counters) { statistics = read_lacp_counters(counters); });
    });
  });
  if (statistics) {
    statistics->index = static_cast<int>(header->ifindex);
  }
  return statistics;
}

}  // namespace oclacp::host
