// The native models that the host's own devices are about. Mappings bring theirs by manifest.
#pragma once

namespace oclacp::host::native_model {

// The module with the configuration of interfaces.
inline constexpr const char* kInterfaceModule = "Talvo-Brin-QD-ifmgr-cfg";

}  // namespace oclacp::host::native_model
