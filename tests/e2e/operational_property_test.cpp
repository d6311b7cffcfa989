// Random operational data, and what it has to come to: worked out here once more, leaf by leaf, from the texts alone.
#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "tests/e2e/device_folder.h"
#include "tests/e2e/program.h"

namespace support {
namespace {

using Text = std::optional<std::string>;

struct Member {
  std::string name;
  Text received, transmitted, illegal, excess, changed, timeouts;
  Text actor_id, actor_key, partner_id, partner_key, actor_port, partner_port;
  std::optional<unsigned> state;
};

struct Bundle {
  std::string name;
  bool has_lacp;       // in the configuration
  bool is_configured;  // at all
  Text mode, system_mac, system_priority;
  std::vector<Member> members;
};

struct Device {
  Text system_priority, system_mac;
  std::vector<Bundle> bundles;
};

class Generator {
 public:
  explicit Generator(unsigned seed) : random_(seed) {}

  Device device() {
    Device device = {maybe(number16()), maybe(mac()), {}};
    for (unsigned count = pick(5), number = 0; number < count; ++number) {
      device.bundles.push_back(bundle(number));
    }
    return device;
  }

 private:
  unsigned pick(unsigned count) { return std::uniform_int_distribution<unsigned>(0, count - 1)(random_); }
  Text maybe(const std::string& text) { return pick(5) == 0 ? Text() : Text(text); }
  std::string number16() { return std::to_string(pick(65536)); }
  std::string number64() {
    const auto value = pick(10) == 0 ? std::numeric_limits<std::uint64_t>::max() : random_();
    return "\"" + std::to_string(value) + "\"";
  }
  std::string mac() {
    std::string text = "\"";
    for (int byte = 0; byte < 6; ++byte) {
      text += byte == 0 ? "" : ":";
      text += "0123456789abcdef"[pick(16)];
      text += "0123456789ABCDEF"[pick(16)];
    }
    return text + "\"";
  }

  Bundle bundle(unsigned number) {
    static constexpr std::array kModes = {"\"bmd-mode-active\"", "\"bmd-mode-passive\"", "\"bmd-mode-off\""};
    Bundle bundle = {"Bundle-Ether" + std::to_string(number) + (pick(6) == 0 ? ".7" : ""),
                     pick(4) != 0,
                     pick(4) != 0,
                     maybe(kModes[pick(kModes.size())]),
                     maybe(mac()),
                     maybe(number16()),
                     {}};
    for (unsigned count = pick(4), link = 0; link < count; ++link) {
      bundle.members.push_back(member("GigabitEthernet0/0/" + std::to_string(number) + "/" + std::to_string(link)));
    }
    return bundle;
  }

  Member member(const std::string& name) {
    return {name,
            maybe(number64()),
            maybe(number64()),
            maybe(number64()),
            maybe(number64()),
            maybe(number64()),
            maybe(number64()),
            maybe(mac()),
            maybe(number16()),
            maybe(mac()),
            maybe(number16()),
            maybe(number16()),
            maybe(number16()),
            pick(5) == 0 ? std::optional<unsigned>() : std::optional<unsigned>(pick(256))};
  }

  std::mt19937_64 random_;
};

// ---- JSON

std::string leaf(const char* name, const Text& value) {
  return value ? std::string("\"") + name + "\":" + *value + "," : "";
}

std::string quoted(const std::string& text) {
  return "\"" + text + "\"";
}

// The members of an object, each with a comma after it.
std::string object(const char* name, const std::string& members) {
  return members.empty() ? "" : quoted(name) + ":{" + members.substr(0, members.size() - 1) + "},";
}

std::string list(const char* name, const std::string& entries) {
  return entries.empty() ? "" : quoted(name) + ":[" + entries.substr(0, entries.size() - 1) + "],";
}

std::string entry(const std::string& members) {
  return "{" + members.substr(0, members.size() - 1) + "},";
}

std::string document(const std::string& members) {
  return members.empty() ? "{}" : "{" + members.substr(0, members.size() - 1) + "}";
}

// ---- The device's side

std::string native_member(const Member& member) {
  return entry(
      leaf("member-interface", quoted(member.name)) +
      object("counters", leaf("lacpd-us-received", member.received) + leaf("lacpd-us-transmitted", member.transmitted) +
                             leaf("illegal-packets-received", member.illegal) +
                             leaf("excess-lacpd-us-received", member.excess) + leaf("last-change", member.changed) +
                             leaf("lacp-timeout-transitions", member.timeouts)) +
      object("link-data", leaf("actor-system-mac-address", member.actor_id) +
                              leaf("actor-operational-key", member.actor_key) +
                              leaf("partner-system-mac-address", member.partner_id) +
                              leaf("partner-operational-key", member.partner_key) +
                              leaf("actor-port-id", member.actor_port) + leaf("partner-port-id", member.partner_port) +
                              leaf("actor-port-state", member.state ? Text(std::to_string(*member.state)) : Text())));
}

std::string operational(const Device& device) {
  std::string bundles;
  for (const Bundle& bundle : device.bundles) {
    std::string members;
    for (const Member& member : bundle.members) {
      members += native_member(member);
    }
    const std::string system_id =
        object("system-mac-addr", leaf("macaddr", bundle.system_mac)) + leaf("system-prio", bundle.system_priority);
    bundles += entry(leaf("bundle-interface", quoted(bundle.name)) +
                     object("data", object("bundle-system-id", system_id) + leaf("applied-lacp-mode", bundle.mode)) +
                     object("members", list("member", members)));
  }
  const std::string system_id =
      object("system-mac-addr", leaf("macaddr", device.system_mac)) + leaf("system-prio", device.system_priority);
  return document(object("Talvo-Brin-QD-bundlemgr-oper:lacp-bundles", object("bundles", list("bundle", bundles))) +
                  object("Talvo-Brin-QD-bundlemgr-oper:lacp-data",
                         object("global", object("system-id", object("system-id", system_id)))));
}

std::string running(const Device& device) {
  std::string entries;
  for (const Bundle& bundle : device.bundles) {
    if (bundle.is_configured) {
      entries += (entries.empty() ? "" : ",") +
                 (bundle.has_lacp ? native_entry(bundle.name, R"("system-priority": 9)")
                                  : R"({"active": "act", "interface-name": ")" + bundle.name + "\"}");
    }
  }
  return entries;
}

// ---- The OpenConfig side

std::string answered_member(const Member& member) {
  std::string state = leaf("interface", quoted(member.name));
  if (member.state) {
    const unsigned bits = *member.state;
    const auto flag = [bits](unsigned bit, const char* set, const char* clear) {
      return Text((bits >> bit & 1U) != 0 ? set : clear);
    };
    state += leaf("activity", flag(0, "\"ACTIVE\"", "\"PASSIVE\"")) +
             leaf("timeout", flag(1, "\"SHORT\"", "\"LONG\"")) +
             leaf("synchronization", flag(3, "\"IN_SYNC\"", "\"OUT_SYNC\"")) +
             leaf("aggregatable", flag(2, "true", "false")) + leaf("collecting", flag(4, "true", "false")) +
             leaf("distributing", flag(5, "true", "false"));
  }
  state += leaf("system-id", member.actor_id) + leaf("oper-key", member.actor_key) +
           leaf("partner-id", member.partner_id) + leaf("partner-key", member.partner_key) +
           leaf("port-num", member.actor_port) + leaf("partner-port-num", member.partner_port) +
           leaf("last-change", member.changed);
  state +=
      object("counters", leaf("lacp-in-pkts", member.received) + leaf("lacp-out-pkts", member.transmitted) +
                             leaf("lacp-rx-errors", member.excess) + leaf("lacp-unknown-errors", member.illegal) +
                             leaf("lacp-errors", member.illegal) + leaf("lacp-timeout-transitions", member.timeouts));
  return entry(leaf("interface", quoted(member.name)) + object("state", state));
}

std::string answered_bundle(const Bundle& bundle) {
  const bool shows_lacp = bundle.is_configured && bundle.has_lacp;
  std::string state = leaf("name", quoted(bundle.name));
  if (shows_lacp) {
    if (bundle.mode == "\"bmd-mode-active\"" || bundle.mode == "\"bmd-mode-passive\"") {
      state += leaf("lacp-mode", bundle.mode == "\"bmd-mode-active\"" ? "\"ACTIVE\"" : "\"PASSIVE\"");
    }
    state += leaf("system-id-mac", bundle.system_mac) + leaf("system-priority", bundle.system_priority);
  }
  std::string members;
  for (const Member& member : bundle.members) {
    members += answered_member(member);
  }
  return entry(leaf("name", quoted(bundle.name)) +
               object("config", leaf("name", quoted(bundle.name)) + (shows_lacp ? leaf("system-priority", "9") : "")) +
               object("state", state) + object("members", list("member", members)));
}

std::string answer(const Device& device) {
  // Those with LACP configuration come first.
  std::string configured;
  std::string others;
  for (const Bundle& bundle : device.bundles) {
    if (bundle.name.find('.') == std::string::npos) {
      (bundle.is_configured && bundle.has_lacp ? configured : others) += answered_bundle(bundle);
    }
  }
  return document(object("openconfig-lacp:lacp", object("state", leaf("system-priority", device.system_priority)) +
                                                     object("interfaces", list("interface", configured + others))));
}

class OperationalProperty : public DeviceFolderTest {};

TEST_F(OperationalProperty, DrawnDevice_AnswersAsANaiveTranslation) {
  for (unsigned seed = 0; seed < 100; ++seed) {
    const Device device = Generator(seed).device();
    write_running(running(device));
    write_file("operational.json", operational(device));
    const Outcome result = run({"get", "--all", "-d", folder()});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(squeezed(result.out), answer(device)) << "seed " << seed << ", from " << operational(device);
  }
}

}  // namespace
}  // namespace support
