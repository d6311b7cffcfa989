// Scenarios: what a request is, and the device that it meets, written as text.
//
//     # Lines with a '#' say what the scenario shows.
//     operation 1                      the request's operation code; 1 when it is not said
//     physical GigabitEthernet0_0_0_0  an interface that the interface manager knows, by its entry form
//     virtual Bundle-Ether1            the same, virtual
//     store Bundle-Ether1/lacp/        an item of the data store
//     store-library missing            the data-store client is not on the device
//     interface-lacp Bundle-Ether1     an interface on which LACP is configured, by its name
//     option options_584 0x0f          a field of the request descriptor: an option group, or option_mode
//     key-gate 1 2                     the pair that the framework keeps for reads
//     fail yfw_strcpy_s 1 0x0b0000ff   the first call of an operation answers this
//
//     lacp                             the tree: children are indented by two blanks
//       config [delete]                edit operations: [create] [delete] [remove] [replace]
//         system-priority = 100        a leaf with a value; without '=' it has none
//         other [ns urn:other]         a node of another namespace; its children are in it too. The models' namespaces
//                                      have short names: openconfig-lacp (the root's when it is not said), ifmgr-cfg,
//                                      bundlemgr-cfg, bundlemgr-oper
#pragma once

#include <cstdint>
#include <istream>
#include <string>
#include <vector>

#include "support/platform.h"
#include "support/request.h"

namespace support {

struct Scenario {
  struct Fact {
    std::string name;
    std::vector<std::string> arguments;
  };

  std::uint32_t operation = YFW_REQUEST_EDIT;
  std::vector<Fact> facts;
  Node root;

  // Makes the platform's device and request what the scenario says.
  void apply(Platform& platform) const;
};

// Reads a scenario. A text that is none ends the process, with the line on stderr.
Scenario parse_scenario(std::istream& text);
Scenario read_scenario(const std::string& file);

}  // namespace support
