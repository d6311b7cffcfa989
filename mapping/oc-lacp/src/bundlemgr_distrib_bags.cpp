// The descriptors of the bundle manager's records, and their registration. All of it is constant data.
#include "bag_descriptor.h"
#include "oclacp/records.h"

namespace {

// The library that owns the records on the device.
constexpr char kOwnerLibrary[] = "libbundlemgr_distrib_bag_desc.dll";

// The record types: the number of each, its size in bytes, and its fields with their names. Everything else about a
// record is derived from its fields; the size stands here to be checked against them.
// clang-format off
constexpr ymap::RecordType kRecordTypes[] = {
    {43, 6, "{macaddr}6x"},
    {91, 8, "{SystemPrio}I{SystemMacAddr}$43"},
    {93, 4, "{link_priority}I{link_number}I"},
    {100, 16, "{system}$91{key}I{port}$93{state}C"},
    {125, 8, "{ItemName}s"},
    {126, 20, "{SystemID}$91{ICCPGroupID}D{SystemPriority}I{SystemMACAddress}6x%m"},
    {127, 8, "{ReasonType}[bm_state_reason_target_type]e{Severity}[bm_severity_type]e"},
    {128, 6, "{Address}6x%m"},
    {129, 16, "{MACAddresses}a($128)"},
    {136, 16, "16x%s"},
    {138, 24, "?(<AF,bm_af_id_enum>,1136568623:{IPV4}N,1136568624:{IPV6}$136)"},
    {139, 64,
     "{BundleStatus}[bmd_bfd_bdl_state_enum]e{StartTimer}D{NbrUnconfigTimer}D{PrefMultiplier}I"
     "{PrefMinInterval}D{PrefEchoMinInterval}D{FastDetect}C{DestinationAddress}$138{ModeInfo}D"},
    {142, 28,
     "{MuxState}[bm_muxstate]e{Error}D{MemberMuxStateReason}[bm_mbr_state_reason_type]e"
     "{MemberMuxStateReasonData}$127{MemberState}[bmd_member_state_enum]e{MuxStateReason}[bm_muxreason]e"},
    {143, 64,
     "{LACPDUsReceived}D{LACPDUsTransmitted}D{MarkerPacketsReceived}D{MarkerResponsesTransmitted}D"
     "{IllegalPacketsReceived}D{ExcessLACPDUsReceived}D{ExcessMarkerPacketsReceived}D{Defaulted}D"
     "{Expired}D{LastClearedSec}D{LastClearedNsec}D{LastChange}H{LacpTimeoutTransitions}H"},
    {144, 44,
     "{InterfaceHandle}D%h{ActorSystemPriority}I{ActorSystemMACAddress}6x%m{ActorOperationalKey}I"
     "{PartnerSystemPriority}I{PartnerSystemMACAddress}6x%m{PartnerOperationalKey}I{SelectedAggregatorID}D"
     "{AttachedAggregatorID}D{ActorPortID}I{ActorPortPriority}I{PartnerPortID}I{PartnerPortPriority}I"
     "{ActorPortState}C{PartnerPortState}C"},
    {145, 208,
     "{InterfaceName}D%h{PortPriority}I{PortNumber}I{UnderlyingLinkID}I{LinkOrderNumber}I{ICCPNode}D"
     "{Bandwidth}D{LACPEnabled}s{Counters}$143{LinkData}$144{MemberMuxData}$142"
     "{MemberType}[bmd_member_type_enum]e{MemberName}s{MACAddress}p($128){ReplicationError}D"
     "{Bandwidth64Bit}H"},
    {152, 184,
     "{BundleInterfaceName}D%h{MACAddress}p($128){AvailableBandwidth}H{EffectiveBandwidth}H"
     "{ConfiguredBandwidth}H{MinimumActiveLinks}C{MaximumActiveLinks}C"
     "{MaximumActiveLinksSource}[bm_which_system_enum]e{MinimumBandwidth}H{PrimaryMember}D%h"
     "{BFDConfig}a($139){BundleStatus}[bm_bdl_state_enum]e{ActiveMemberCount}I{StandbyMemberCount}I"
     "{ConfiguredMemberCount}I{MACSource}[bm_bdl_mac_source_enum]e{MACSourceMember}D%h{InterChassis}C"
     "{IsActive}C{LACPStatus}[bm_feature_status_enum]e{mLACPStatus}[bm_feature_status_enum]e"
     "{IPv4BFDStatus}[bm_feature_status_enum]e{LinkOrderStatus}[bm_feature_status_enum]e"
     "{IPv6BFDStatus}[bm_feature_status_enum]e{LoadBalanceHashType}s{LoadBalanceLocalityThreshold}I"
     "{SuppressionTimer}I{WaitWhileTimer}I{CollectorMaxDelay}I{TalvoExtensions}C{LACPNonrevertive}C"
     "{ICCPGroupID}D{ActiveForeignMemberCount}I{ConfiguredForeignMemberCount}I"
     "{SwitchoverType}[bmd_mlacp_switchover_enum]e{MaximizeThresholdValueLinks}D"
     "{MaximizeThresholdValueBandWidth}H{mLACPMode}[bundle_mlacp_mode_enum]e{RecoveryDelay}I{Singleton}C"},
    {153, 200, "{BundleData}$152{MemberData}a($145)"},
    {154, 16, "{MemberData}a($145)"},
    {155, 208,
     "{ActorBundleData}$152{BundleSystemID}$91{ActorOperationalKey}I{PartnerSystemPriority}I"
     "{PartnerSystemMACAddress}6x%m{PartnerOperationalKey}I{AppliedLACPMode}[bmd_lacp_mode_enum]e"},
    {156, 8, "{LastChangedSec}D{LastChangedNsec}D"},
    {157, 64,
     "{ActorMuxData}$142{ActorChurnState}[lacp_churnstates]e{ActorChurnCount}D"
     "{PartnerChurnState}[lacp_churnstates]e{PartnerChurnCount}D{ReceiveMachineState}[rxstates_st]e"
     "{ActorSyncCount}D{PartnerSyncCount}D{ActorChangeCount}D{PartnerChangeCount}D"},
    {158, 24, "{Node}D%n{ReplicationStatus}[bm_replication_state]e{TimeStamp}H{ReplicationError}D"},
    {159, 24, "{BundleInterfaceName}D%h{ReplicationStatus}a($158)"},
    {160, 20, "{PortInfo}$100{TXPeriod}D"},
    {162, 4, "{InterfaceHandle}D%h"},
    {164, 16, "{PeerAddress}N{MemberName}s"},
    {166, 24, "?(<MbrType,bmd_member_type_enum>,0:{Local}$162,1:{Foreign}$164)"},
    {167, 104,
     "{SelectedAggregatorID}D{AttachedAggregatorID}D{ActorInfo}$160{PartnerInfo}$160"
     "{SelectionState}[lacp_sel_state]e{PeriodState}[lacp_period_state]e"
     "{ReceiveMachineState}[rxstates_st]e{MuxState}[bm_muxstate]e{ActorChurnState}[lacp_churnstates]e"
     "{PartnerChurnState}[lacp_churnstates]e{ICCPGroupID}D{AdditionalInfo}$166"},
    {168, 224, "{BundleData}$155{MemberData}a($167)"},
    {169, 24,
     "{PortName}s{InterfaceHandle}D%h{mLACPNodeID}C{PortNumber}I{OperationalPriority}I"
     "{ConfiguredPriority}I{MemberState}[bmd_mlacp_mbr_state_enum]e"},
    {171, 32,
     "{BundleName}s{mLACPNodeID}C{MACAddress}$128{AggregatorID}I{BundleState}[bmd_mlacp_bdl_state_enum]e"
     "{PortPriority}I"},
    {173, 48,
     "{BundleInterfaceKey}I{MediaType}[bundle_media_enum]e{RedundancyObjectID}H{mLACPBundleData}a($171)"
     "{mLACPMemberData}a($169)"},
    {174, 28,
     "{mLACPNodeID}C{LDP_ID}N{VersionNumber}D{SystemID}$91{NodeState}[bmd_mlacp_node_state_enum]e"
     "{ICCPGroupState}[bmd_mlacp_node_sync_enum]e"},
    {176, 32, "{ICCPGroupID}D{Singleton}C{ConnectTimerRunning}H{NodeData}a($174)"},
    {177, 48, "{ICCPGroupData}$176{BundleData}a($173)"},
    {178, 16, "{mLACPData}a($177)"},
    {179, 20,
     "{ICCPGroupID}D{SwitchoverState}[bmd_switch_reason_enum]e{SwitchbackState}[bmd_switch_reason_enum]e"
     "{ConfiguredPriority}I{OperationalPriority}I{PeerID}N"},
    {180, 16, "{mLACPData}a($179)"},
    {181, 4, "{AppliedLACPMode}[bmd_lacp_mode_enum]e"},
};
// clang-format on

}  // namespace

static_assert(ymap::are_valid<kRecordTypes>());

#define OCLACP_BAG(OBJECT, ACCESSOR, NAME, TOP)                                                       \
  constinit const bag_descriptor OBJECT = ymap::describe_bag<kRecordTypes, TOP>(NAME, kOwnerLibrary); \
  const bag_descriptor* ACCESSOR(void) {                                                              \
    return &OBJECT;                                                                                   \
  }
#include "bundlemgr_distrib_bags.inc"

namespace {

#define OCLACP_BAG(OBJECT, ACCESSOR, NAME, TOP) &OBJECT,
constexpr const bag_descriptor* kInOrder[] = {
#include "bundlemgr_distrib_bags.inc"
};

}  // namespace

cerrno bag_register_all_bundlemgr_distrib_bags(void) {
  if (const cerrno status = bag_register_start(); status != YFW_OK) return status;
  for (const bag_descriptor* bag : kInOrder) {
    if (const cerrno status = bag_register(bag); status != YFW_OK) {
      bag_register_abort();
      return status;
    }
  }
  return bag_register_end();
}
