// What stands around the data of an edit in NETCONF.
#pragma once

#include <optional>
#include <string>

namespace oclacp::host {

// An edit that was taken out of its envelope.
struct OpenedEdit {
  // The data alone. What was around it is blanks, so that lines keep their numbers.
  std::string text;
  // What <default-operation> says (RFC 6241, 7.2); empty without one.
  std::string default_operation;
};

// Takes data in XML out of <config>, <edit-config> or <rpc> (RFC 6241), of NETCONF's namespace or none. Nothing for a
// text that is not in one of them, or is not XML. An edit of another datastore than running, one that shall only be
// tested, shall go on at an error, or names its data by a URL is refused, and so is any other operation. Linear in the
// text. Throws Error.
std::optional<OpenedEdit> open_edit_envelope(const std::string& text);

}  // namespace oclacp::host
