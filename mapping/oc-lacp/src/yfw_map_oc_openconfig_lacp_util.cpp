// Questions about an interface name, answered by the name's form and by the interface manager; and the texts of an LACP
// port state.
#include <cstring>

#include "frame/handler.h"
#include "imc/imc.h"
#include "oclacp/interface_helpers.h"
#include "oclacp/native_oper.h"
#include "yfw/strings.h"

namespace {

// The sizes that the copies are given: one less than an entry form's buffer, whose last byte is set apart.
constexpr std::size_t kNameSize = 64;

// Whether the flags leave it to the name's form to say what the interface is.
bool flags_allow_virtual(std::uint64_t flags) {
  return (flags & IMC_FLAG_GATE) == 0 || (flags & IMC_FLAGS_REQUIRED) == IMC_FLAGS_REQUIRED;
}

}  // namespace

void convert_oc_ifname_ifentry(char* ifentry, const char* ifname, yfw_map_ctx ctx) {
  YMAP_HANDLER_IDENTITY(convert_oc_ifname_ifentry, "void convert_oc_ifname_ifentry(char *, const char *, yfw_map_ctx)");
  if (ifentry == nullptr || ifname == nullptr) return;
  const cerrno status = yfw_strncpy_s(handler.name, ifentry, kNameSize, ifname, kNameSize);
  if (status != YFW_OK && ctx != nullptr) {
    ymap::record(handler, ctx, ymap::message::kBoundedCopyFailed, handler.name, cerr_strerror(status));
  }
  ifentry[OCLACP_IFENTRY_LENGTH] = '\0';
  for (char* at = ifentry; *at != '\0'; ++at) {
    if (*at == '/') *at = '_';
  }
}

int yfw_lacp_util_is_virtual(const char* ifname, uint32_t* looked_up, yfw_map_ctx ctx) {
  YMAP_HANDLER_IDENTITY(yfw_lacp_util_is_virtual,
                        "int yfw_lacp_util_is_virtual(const char *, uint32_t *, yfw_map_ctx)");
  char ifentry[OCLACP_IFENTRY_CAPACITY] = {};
  convert_oc_ifname_ifentry(ifentry, ifname, ctx);
  char name[kNameSize] = {};
  if (const cerrno status = yfw_strncpy_s(handler.name, name, sizeof name, ifentry, kNameSize); status != YFW_OK) {
    ymap::assert_context(handler, ctx);
    ymap::record(handler, ctx, ymap::message::kBoundedCopyFailed, handler.name, cerr_strerror(status));
    return 0;
  }
  std::uint32_t interface_handle = 0;
  std::uint32_t attribute = 0;
  const imc_interface_key key{.name = name};
  const imc_interface_attributes attributes{.interface_handle = &interface_handle, .attribute = &attribute};
  const cerrno found = imc_interface_find(yfw_ocifmgr_im_conn, IMC_KEY_NAME, &key, 0, &attributes);
  if (found == YFW_OK && attribute == IMC_ATTRIBUTE_VIRTUAL) return 1;
  *looked_up = 1;
  // An interface that was not found is asked about under handle 0 all the same.
  std::uint64_t flags = 0;
  if (imc_s_interface_get_flags(yfw_ocifmgr_im_conn, interface_handle, 0, &flags) != YFW_OK) return 0;
  if (!flags_allow_virtual(flags)) return 0;
  imc_ifname_parse_result parsed{};
  static_cast<void>(imc_ifname_parse(ifentry, 0, &parsed));
  return parsed.kind != IMC_NAME_KIND_PHYSICAL ? 1 : 0;
}

int yfw_is_oc_subinterface(const char* ifname) {
  return std::strchr(ifname, '.') != nullptr ? 1 : 0;
}

int yfw_is_oc_bundleinterface(const char* ifname) {
  return std::strstr(ifname, "Bundle") != nullptr ? 1 : 0;
}

// The texts of a member's port state; each getter reads one bit.

const char* yfw_get_lacp_state_activity(uint8_t port_state) {
  return (port_state & 0x01) != 0 ? "ACTIVE" : "PASSIVE";
}

const char* yfw_get_lacp_state_timeout(uint8_t port_state) {
  return (port_state & 0x02) != 0 ? "SHORT" : "LONG";
}

const char* yfw_get_lacp_state_synchronization(uint8_t port_state) {
  return (port_state & 0x08) != 0 ? "IN_SYNC" : "OUT_SYNC";
}

const char* yfw_get_lacp_state_aggregatable(uint8_t port_state) {
  return (port_state & 0x04) != 0 ? "true" : "false";
}

const char* yfw_get_lacp_state_collecting(uint8_t port_state) {
  return (port_state & 0x10) != 0 ? "true" : "false";
}

const char* yfw_get_lacp_state_distributing(uint8_t port_state) {
  return (port_state & 0x20) != 0 ? "true" : "false";
}
