#include "host/devices/linux/link_managers.h"

#include <fstream>
#include <functional>

namespace oclacp::host {
namespace {

bool has_line(const std::string& file, const std::function<bool(const std::string&)>& is_wanted) {
  std::ifstream stream(file);
  for (std::string line; std::getline(stream, line);) {
    if (is_wanted(line)) {
      return true;
    }
  }
  return false;
}

// A link that systemd-networkd leaves alone has no such file.
bool is_network_file(const std::string& line) {
  return line.starts_with("NETWORK_FILE=") && line != "NETWORK_FILE=";
}

}  // namespace

std::optional<std::string> find_manager(const std::string& name, int index, const std::string& run) {
  const std::string number = std::to_string(index);
  if (has_line(run + "/NetworkManager/devices/" + number,
               [](const std::string& line) { return line == "managed=true"; })) {
    return "NetworkManager";
  }
  if (has_line(run + "/systemd/netif/links/" + number, is_network_file)) {
    return "systemd-networkd";
  }
  // "bond0=bond0": the interface and what it was configured as (man ifup); one file for all or one for each.
  const auto is_up = [&](const std::string& line) { return line.starts_with(name + "="); };
  if (has_line(run + "/network/ifstate", is_up) ||
      has_line(run + "/network/ifstate." + name,
               [&](const std::string& line) { return line == name || is_up(line); })) {
    return "ifupdown";
  }
  return std::nullopt;
}

}  // namespace oclacp::host
