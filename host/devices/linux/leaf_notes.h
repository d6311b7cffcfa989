// What is particular to leaves of native data when they come from the bonds of a Linux kernel.
#pragma once

#include <string_view>

namespace oclacp::host {

// A sentence without its full stop about the native leaf with this path, without modules and keys
// ("/lacp-bundles/bundles/bundle/..."): that the kernel does not tell it, or what it is worked out from. Null when
// there is nothing to say.
const char* linux_note(std::string_view native_path);

}  // namespace oclacp::host
