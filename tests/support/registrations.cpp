#include "support/registrations.h"

#include <cstdlib>
#include <iostream>

#include "support/platform.h"

namespace support {

std::vector<yfw_map_registration> registered(const std::vector<RegistrationFunction>& functions) {
  const Platform platform;
  std::vector<yfw_map_registration> registrations;
  for (const RegistrationFunction function : functions) function(&registrations.emplace_back());
  return registrations;
}

yfw_map_walker entry_walker(const std::vector<yfw_map_registration>& registrations, const Node& root) {
  const std::string ns = root.ns.empty() ? kOpenconfigLacp : root.ns;
  for (const yfw_map_registration& registration : registrations) {
    if (ns == registration.openconfig_ns && root.tag == registration.openconfig_root) {
      return registration.openconfig_walker;
    }
    if (ns == registration.native_ns && root.tag == registration.native_root) return registration.native_walker;
  }
  std::cerr << "no entry walker is registered for " << root.tag.value_or("(no tag)") << " of " << ns << "\n";
  std::exit(2);
}

}  // namespace support
