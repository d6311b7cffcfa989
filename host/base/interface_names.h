// Interface names.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace oclacp::host {

// The interface manager's buffers hold 64 bytes with the terminator.
inline constexpr std::size_t kMaxInterfaceName = 63;

// Why a longer name is refused. Models count characters, of which one may take several bytes.
inline constexpr const char* kNameTooLong = "an interface name has at most 63 bytes";

// The form in which a name stands in a data-store path: each '/' becomes '_'.
inline std::string entry_form(std::string_view name) {
  std::string form(name);
  std::replace(form.begin(), form.end(), '/', '_');
  return form;
}

}  // namespace oclacp::host
