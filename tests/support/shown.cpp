// How arguments and answers read in call logs.
#include <iomanip>
#include <sstream>
#include <string>
#include <string_view>

#include "support/invocation.h"

namespace support {

std::string shown(const char* text) {
  if (text == nullptr) return "null";
  std::string quoted = "\"";
  for (; *text != '\0'; ++text) {
    if (*text == '\n') {
      quoted += "\\n";
    } else {
      quoted += *text;
    }
  }
  return quoted + '"';
}

std::string shown(const yfw_datatree* node) {
  if (node == nullptr) return "null";
  return node->tag == nullptr ? "(no tag)" : node->tag;
}

std::string shown_namespace(const char* ns) {
  if (ns == nullptr) return "null";
  const std::string_view uri = ns;
  if (uri == kOpenconfigLacp) return "openconfig-lacp";
  if (uri == kIfmgrCfg) return "ifmgr-cfg";
  if (uri == kBundlemgrCfg) return "bundlemgr-cfg";
  if (uri == kBundlemgrOper) return "bundlemgr-oper";
  return shown(ns);
}

std::string shown_status(std::uint32_t status) {
  std::ostringstream text;
  text << "0x" << std::hex << std::setw(8) << std::setfill('0') << status;
  return text.str();
}

}  // namespace support
