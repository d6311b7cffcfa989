// Native paths that a converter or a hand-written handler serves, without keys.
#pragma once

namespace oclacp {

// Configuration of an interface; everything that the mapping writes or asks for is of the class "act"
inline constexpr char kActiveClass[] = "act";
inline constexpr char kInterfaceConfiguration[] = "/interface-configurations/interface-configuration";
inline constexpr char kInterfaceConfigurationEntry[] = "/interface-configurations/interface-configuration/";
inline constexpr char kInterfaceActive[] = "/interface-configurations/interface-configuration/active";
inline constexpr char kInterfaceName[] = "/interface-configurations/interface-configuration/interface-name";
inline constexpr char kInterfaceVirtual[] = "/interface-configurations/interface-configuration/interface-virtual";

// LACP configuration of an interface
inline constexpr char kInterfaceLacp[] = "/interface-configurations/interface-configuration/lacp";
inline constexpr char kInterfaceLacpMode[] = "/interface-configurations/interface-configuration/lacp/mode";
inline constexpr char kInterfaceLacpPeriod[] = "/interface-configurations/interface-configuration/lacp/period";
inline constexpr char kInterfaceLacpSystemMac[] = "/interface-configurations/interface-configuration/lacp/system-mac";
inline constexpr char kInterfaceLacpSystemPriority[] =
    "/interface-configurations/interface-configuration/lacp/system-priority";

// LACP configuration of the device
inline constexpr char kLacpSystemPriority[] = "/lacp/system-priority";

// Operational state of bundles and their members
inline constexpr char kBundle[] = "/lacp-bundles/bundles/bundle";
inline constexpr char kBundleAppliedLacpMode[] = "/lacp-bundles/bundles/bundle/data/applied-lacp-mode";
inline constexpr char kBundleSystemMac[] = "/lacp-bundles/bundles/bundle/data/bundle-system-id/system-mac-addr/macaddr";
inline constexpr char kBundleSystemPriority[] = "/lacp-bundles/bundles/bundle/data/bundle-system-id/system-prio";
inline constexpr char kMember[] = "/lacp-bundles/bundles/bundle/members/member";
inline constexpr char kMemberActorPortState[] =
    "/lacp-bundles/bundles/bundle/members/member/link-data/actor-port-state";

}  // namespace oclacp
