// The documents that are translated: requests, and the configuration of the device that they meet.
#pragma once

#include <cstddef>
#include <string>

namespace bench {

// An edit in JSON that gives each of so many interfaces every configuration leaf.
std::string create_request(std::size_t interfaces);

// An edit in JSON that deletes /lacp.
std::string delete_request();

// A running configuration in JSON, of so many interfaces that have LACP.
std::string running_configuration(std::size_t interfaces);

// The same with all of an interface's LACP settings, each of which reads back.
std::string full_running_configuration(std::size_t interfaces);

// Operational state in JSON of so many bundles, each with 16 members.
std::string operational_state(std::size_t bundles);

}  // namespace bench
