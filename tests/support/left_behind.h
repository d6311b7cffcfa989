// What a walk has to take back before it returns, whatever happened in it.
#pragma once

#include <string>
#include <vector>

#include "support/platform.h"
#include "support/request.h"

namespace support {

// What the deletion leaves open when an addition fails in it.
enum class Store { kReleased, kLeftOpen };

// Everything that was left behind, a sentence each: misuses of the contract, nodes on the hierarchy, children on the
// itree stack, marks and scratch of the request, changed node fields, a dead error tag, copies that nobody can free,
// data-store lists and connections.
//
// One change is no complaint: an interface entry that was deleted keeps the working operation, or none at all when the
// data store was left open.
std::vector<std::string> left_behind(Platform& platform, const Request& request, Store store = Store::kReleased);

}  // namespace support
