// The YANG modules that the mapping joins, by namespace.
#pragma once

namespace oclacp {

inline constexpr char kOpenconfigLacp[] = "http://openconfig.net/yang/lacp";
inline constexpr char kIfmgrCfg[] = "urn:talvo-brin:yang:Talvo-Brin-QD-ifmgr-cfg";
inline constexpr char kBundlemgrCfg[] = "urn:talvo-brin:yang:Talvo-Brin-QD-bundlemgr-cfg";
inline constexpr char kBundlemgrOper[] = "urn:talvo-brin:yang:Talvo-Brin-QD-bundlemgr-oper";

}  // namespace oclacp
