// What a module registers, and the entry walker that a framework therefore calls for a tree.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "support/request.h"
#include "yfw/registration.h"

namespace support {

// The names of the registration functions.
inline constexpr std::array kRegistrations = {
    "yfw_map_reg_oclacp_lacpbundles_conf", "yfw_map_reg_oclacp_lacpbundles_oper",
    "yfw_map_reg_oclacp_lacpbundles_global_conf", "yfw_map_reg_oclacp_lacpglobaldata_oper"};

using RegistrationFunction = void (*)(yfw_map_registration* registration);

// Calls registration functions. It makes a Platform of its own, so there must be none.
std::vector<yfw_map_registration> registered(const std::vector<RegistrationFunction>& functions);

// The entry walker of a tree, by its root's namespace and tag. Ends the process when no registration fits.
yfw_map_walker entry_walker(const std::vector<yfw_map_registration>& registrations, const Node& root);

}  // namespace support
