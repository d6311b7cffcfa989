// OpenConfig paths that a converter or a hand-written handler serves, without keys.
#pragma once

namespace oclacp {

inline constexpr char kOcSystemPriority[] = "/lacp/config/system-priority";
inline constexpr char kOcInterface[] = "/lacp/interfaces/interface";
inline constexpr char kOcInterfaceName[] = "/lacp/interfaces/interface/name";
inline constexpr char kOcInterfaceStateName[] = "/lacp/interfaces/interface/state/name";
inline constexpr char kOcMember[] = "/lacp/interfaces/interface/members/member";

}  // namespace oclacp
