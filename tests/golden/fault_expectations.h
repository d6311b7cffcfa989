// What a walk has to come to when one platform call in it fails.
#pragma once

#include <string>

#include "support/platform.h"
#include "support/scenario.h"

namespace golden {

// What a failing call answers: nothing that the module or the recording platform answers by itself.
inline constexpr cerrno kInjected = 0x0badc0de;

// The walker's status after a fault, given its status without one.
cerrno expected_status(const support::Fault& fault, const support::Scenario& scenario, cerrno clean);

// Whether a handler that recorded its start may lack an end.
bool may_lack_end(const std::string& handler, const support::Scenario& scenario, const support::Platform& platform);

}  // namespace golden
