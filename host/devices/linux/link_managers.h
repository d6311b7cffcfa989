// What else sets up the links of this machine.
#pragma once

#include <optional>
#include <string>

namespace oclacp::host {

// The program that manages a link, as it says below `run` (normally /run): NetworkManager, systemd-networkd or
// ifupdown. Nothing when none does, as far as can be seen.
std::optional<std::string> find_manager(const std::string& name, int index, const std::string& run = "/run");

}  // namespace oclacp::host
