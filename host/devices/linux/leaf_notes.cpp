#include "host/devices/linux/leaf_notes.h"

#include <algorithm>
#include <array>

namespace oclacp::host {
namespace {

struct Note {
  std::string_view end;  // of the paths of leaves
  const char* sentence;
};

constexpr const char* kNotTold = "always absent, since the kernel does not tell it";
constexpr const char* kSeen = "what was seen since somebody watches the bonds, and absent when nobody does";
constexpr const char* kNotOfAll = "always absent, and refused in edits, since the kernel has no settings for all bonds";
constexpr const char* kPrivileged = "absent without CAP_NET_ADMIN in the initial user namespace";

constexpr std::array kNotes = {
    Note{"/counters/excess-lacpd-us-received", kNotTold},
    Note{"/counters/last-change", kSeen},
    Note{"/counters/lacp-timeout-transitions", kSeen},
    Note{"/counters/illegal-packets-received", "the sum of what the kernel counts as illegal and as unknown LACPDUs"},
    Note{"/global/system-id/system-id/system-mac-addr/macaddr", kNotOfAll},
    Note{"/global/system-id/system-id/system-prio", kNotOfAll},
    Note{"/bundle-system-id/system-mac-addr/macaddr", kPrivileged},
    Note{"/bundle-system-id/system-prio", kPrivileged},
    Note{"/link-data/actor-system-mac-address", kPrivileged},
    Note{"/link-data/actor-operational-key", kPrivileged},
    Note{"/link-data/partner-system-mac-address", kPrivileged},
    Note{"/link-data/partner-operational-key", kPrivileged},
    Note{"/link-data/actor-port-id", kPrivileged},
    Note{"/link-data/partner-port-id", kPrivileged},
    Note{"/interface-configuration/lacp/system-priority",
         "absent when it is the kernel's own, 65535, and without CAP_NET_ADMIN in the initial user namespace"},
    Note{"/interface-configuration/lacp/system-mac",
         "absent when the bond's own address is used, and without CAP_NET_ADMIN in the initial user namespace"},
    Note{"/interface-configuration/lacp/mode", "always there; a change takes the links of the bond down for a moment"},
    Note{"/interface-configuration/lacp/period",
         "always there; a change takes the links of the bond down for a moment"},
};

}  // namespace

const char* linux_note(std::string_view native_path) {
  if (native_path == "/lacp/system-priority") {
    return kNotOfAll;
  }
  const auto* found =
      std::find_if(kNotes.begin(), kNotes.end(), [&](const Note& note) { return native_path.ends_with(note.end); });
  return found == kNotes.end() ? nullptr : found->sentence;
}

}  // namespace oclacp::host
