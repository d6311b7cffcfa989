// The bonds of a network namespace as native data.
#pragma once

#include <string>
#include <vector>

#include "host/devices/device.h"
#include "host/devices/linux/link_snapshot.h"
#include "host/devices/linux/member_history.h"
#include "host/yang/libyang_ptr.h"

namespace oclacp::host {

// Bonds in mode 802.3ad are bundles, their ports are physical, as hardware is; everything else is virtual.
std::vector<Interface> list_interfaces(const LinkSnapshot& snapshot);

// Whether a bond in mode 802.3ad is shown as a bundle. To the mapping a name with a dot is a sub-interface's, and a
// name that is not UTF-8 cannot stand in YANG data.
bool is_served(const Link& bond);

// The first of the top nodes of valid data; null when no bond is served. Throw Error.
//
// The configuration has an entry for each bond, with mode and period always, priority and address of the system where
// they differ from the kernel's own.
TreePtr make_running(const ly_ctx* native, const LinkSnapshot& snapshot);
// The state has what the kernel tells, and of members in `seen` what a watcher saw. What neither tells is absent.
TreePtr make_operational(const ly_ctx* native, const LinkSnapshot& snapshot, const MemberEventsByPort& seen = {});

// Whether the kernel withheld the priorities and identifiers of bonds that are served, since the process lacks
// CAP_NET_ADMIN in the initial user namespace.
bool is_withheld(const LinkSnapshot& snapshot);

// What somebody who reads has to know: sentences for people.
std::vector<std::string> warnings_about(const LinkSnapshot& snapshot);

}  // namespace oclacp::host
