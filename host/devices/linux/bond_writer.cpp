#include "host/devices/linux/bond_writer.h"

#include <linux/if_bonding.h>
#include <linux/if_link.h>
#include <linux/rtnetlink.h>

#include <algorithm>
#include <thread>
#include <unordered_set>
#include <utility>

#include "host/base/error.h"

namespace oclacp::host {
namespace {

// The states in which a port carries frames (IEEE 802.1AX).
constexpr unsigned kCarrying = LACP_STATE_SYNCHRONIZATION | LACP_STATE_COLLECTING | LACP_STATE_DISTRIBUTING;

bool carries_frames(const Link& port) {
  return port.bond_port && (port.bond_port->actor_state.value_or(0) & kCarrying) == kCarrying;
}

BondChange reversed(BondChange change) {
  std::swap(change.before, change.after);
  return change;
}

// What is stacked on an interface, directly or on something between, the lower before the higher. The kernel takes
// VLANs down and up with what they are stacked on.
std::vector<const Link*> stacked_on(const std::vector<Link>& links, int index) {
  std::vector<const Link*> stack;
  std::unordered_set<int> lowers = {index};
  for (std::size_t known = 0; known != lowers.size();) {
    known = lowers.size();
    for (const Link& link : links) {
      if (lowers.contains(link.lower) && lowers.insert(link.index).second) {
        stack.push_back(&link);
      }
    }
  }
  return stack;
}

// A request about one link.
NetlinkRequest request_for(int index, unsigned flags, unsigned changed_flags) {
  NetlinkRequest request(RTM_NEWLINK, 0);
  auto& header = request.put_header<ifinfomsg>();
  header.ifi_index = index;
  header.ifi_flags = flags;
  header.ifi_change = changed_flags;
  return request;
}

// Nothing when it went well; otherwise why it did not.
std::optional<std::string> execute(NetlinkSocket& socket, NetlinkRequest& request) {
  try {
    const std::optional<KernelRefusal> refusal = socket.execute(request);
    return refusal ? std::optional(refusal->text) : std::nullopt;
  } catch (const Error& error) {
    return error.what();
  }
}

}  // namespace

std::vector<std::string> BondWriter::apply(const std::vector<BondChange>& changes) {
  std::vector<std::string> warnings;
  for (std::size_t number = 0; number < changes.size(); ++number) {
    std::optional<std::string> failure;
    ErrorKind kind = ErrorKind::kOperationFailed;
    try {
      failure = carry_out(changes[number], warnings);
    } catch (const std::bad_alloc&) {
      failure = "out of memory";
      kind = ErrorKind::kOutOfMemory;
    }
    if (failure) {
      throw Error(kind, changes[number].name + ": " + *failure + roll_back(changes, number));
    }
  }
  return warnings;
}

std::optional<std::string> BondWriter::carry_out(const BondChange& change, std::vector<std::string>& warnings) {
  try {
    return change.interrupts() ? interrupt(change, warnings) : set(change);
  } catch (const Error& error) {
    return error.what();
  }
}

std::optional<std::string> BondWriter::interrupt(const BondChange& change, std::vector<std::string>& warnings) {
  const std::vector<Link> links = dump_links(socket_);
  const std::vector<const Link*> stack = stacked_on(links, change.index);
  std::unordered_set<int> interfaces = {change.index};
  std::vector<int> members;
  for (const Link* link : stack) {
    interfaces.insert(link->index);
  }
  for (const Link& link : links) {
    if (link.controller == change.index && carries_frames(link)) {
      members.push_back(link.index);
    }
  }
  IpConfiguration kept(socket_, interfaces);
  if (std::optional<std::string> failure = set_up(change.index, false)) {
    return failure;
  }
  std::optional<std::string> failure = set(change);
  if (failure) {
    // The kernel takes settings one after the other, so some may have been taken. roll_back() looks at what is left.
    static_cast<void>(set(reversed(change)));
  }
  if (const std::optional<std::string> stays_down = set_up(change.index, true)) {
    failure = (failure ? *failure + "; " : "") + "it stays down: " + *stays_down;
  }
  for (const Link* link : stack) {
    if (const std::optional<std::string> trouble = set_up(link->index, (link->flags & IFF_UP) != 0)) {
      warnings.push_back(link->name + ": is not up or down as before: " + *trouble);
    }
  }
  wait_for(change, members, kept, warnings);
  return failure;
}

std::optional<std::string> BondWriter::set(const BondChange& change) {
  NetlinkRequest request = request_for(change.index, 0, 0);
  nlattr* info = request.begin_nest(IFLA_LINKINFO);
  request.put_string(IFLA_INFO_KIND, "bond");
  nlattr* data = request.begin_nest(IFLA_INFO_DATA);
  const BondSettings& before = change.before;
  const BondSettings& after = change.after;
  if (before.is_fast != after.is_fast) {
    request.put_number<std::uint8_t>(IFLA_BOND_AD_LACP_RATE, after.is_fast ? 1 : 0);
  }
  if (before.is_active != after.is_active) {
    request.put_number<std::uint8_t>(IFLA_BOND_AD_LACP_ACTIVE, after.is_active ? 1 : 0);
  }
  if (before.system_priority != after.system_priority) {
    request.put_number(IFLA_BOND_AD_ACTOR_SYS_PRIO, after.system_priority);
  }
  if (before.system != after.system) {
    request.put(IFLA_BOND_AD_ACTOR_SYSTEM, after.system.bytes.data(), after.system.bytes.size());
  }
  request.end_nest(data);
  request.end_nest(info);
  return execute(socket_, request);
}

std::optional<std::string> BondWriter::set_up(int index, bool is_up) {
  NetlinkRequest request = request_for(index, is_up ? IFF_UP : 0, IFF_UP);
  return execute(socket_, request);
}

// Puts back what was changed up to the change that failed; returns what is to be said of it.
std::string BondWriter::roll_back(const std::vector<BondChange>& changes, std::size_t failed) {
  std::string text;
  std::vector<std::string> warnings;
  for (std::size_t number = failed + 1; number-- > 0;) {
    const BondChange& change = changes[number];
    if (number == failed && is_as_before(change)) {
      continue;
    }
    std::optional<std::string> failure;
    try {
      failure = carry_out(reversed(change), warnings);
    } catch (const std::bad_alloc&) {
      failure = "out of memory";
    }
    if (failure) {
      text += "; " + change.name + " could not be restored: " + *failure;
    }
  }
  for (const std::string& warning : warnings) {
    text += "; " + warning;
  }
  return text;
}

// Whether there is nothing to restore on the bond whose change failed: it is as it was, or gone.
bool BondWriter::is_as_before(const BondChange& change) {
  try {
    const std::vector<Link> links = dump_links(socket_);
    const auto found =
        std::find_if(links.begin(), links.end(), [&](const Link& link) { return link.index == change.index; });
    return found == links.end() || !found->bond || settings_of(*found->bond) == change.before;
  } catch (const Error&) {
    return false;  // To restore it fails for the same reason, and is reported then.
  }
}

void BondWriter::wait_for(const BondChange& change, const std::vector<int>& members, IpConfiguration& kept,
                          std::vector<std::string>& warnings) {
  constexpr std::chrono::milliseconds kPause(100);
  const auto deadline = std::chrono::steady_clock::now() + member_wait_;
  std::vector<std::string> missing;
  while (true) {
    kept.put_back(socket_);
    missing = kept.missing();
    for (const Link& link : dump_links(socket_)) {
      if (std::find(members.begin(), members.end(), link.index) != members.end() && !carries_frames(link)) {
        missing.push_back("the member " + link.name);
      }
    }
    if (missing.empty() || std::chrono::steady_clock::now() >= deadline) {
      break;
    }
    std::this_thread::sleep_for(kPause);
  }
  for (const std::string& what : missing) {
    warnings.push_back(change.name + ": is not back as before: " + what);
  }
}

}  // namespace oclacp::host
