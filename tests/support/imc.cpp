// The interface-manager client of the recording platform.
#include "imc/imc.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>

#include "support/invocation.h"

using support::Invocation;
using support::shown;

// Opaque to the module; what matters is that this one is passed.
imc_handle yfw_ocifmgr_im_conn = reinterpret_cast<imc_handle>(&yfw_ocifmgr_im_conn);

namespace {

// The connection that a module binds for itself.
char module_connection;

void require_connection(Invocation& call, imc_handle connection) {
  call.require(connection == yfw_ocifmgr_im_conn, "not the framework's connection");
}

}  // namespace

cerrno imc_db_bind(const uint32_t* kind, uint32_t mode, imc_handle* connection) {
  Invocation call("imc_db_bind");
  call.require(kind != nullptr && *kind == IMC_BIND_KIND, "binds another kind");
  call.require(mode == IMC_BIND_MODE, "binds in another mode");
  call.require(*connection == nullptr, "binds a connection that is bound");
  return call.status([&] {
    *connection = reinterpret_cast<imc_handle>(&module_connection);
    return YFW_OK;
  });
}

cerrno imc_db_unbind(imc_handle* connection, uint32_t zero) {
  Invocation call("imc_db_unbind");
  call.require(*connection == reinterpret_cast<imc_handle>(&module_connection), "not the module's connection");
  call.require(zero == 0, "an argument is not zero");
  return call.status([] { return YFW_OK; });
}

cerrno imc_interface_find(imc_handle connection, uint32_t key_kind, const imc_interface_key* key, uint32_t zero,
                          const imc_interface_attributes* attributes) {
  Invocation call("imc_interface_find");
  call.arguments({shown(key->name)});
  require_connection(call, connection);
  call.require(key_kind == IMC_KEY_NAME, "looks up by something else than the name");
  call.require(zero == 0, "an argument is not zero");
  call.require(*attributes->interface_handle == 0 && *attributes->attribute == 0, "an output does not start at 0");
  return call.status([&] {
    const auto& interfaces = call.platform().interfaces;
    const auto found = interfaces.find(key->name);
    if (found == interfaces.end()) return support::kInterfaceUnknown;
    *attributes->interface_handle = found->second.handle;
    *attributes->attribute = found->second.attribute;
    return YFW_OK;
  });
}

cerrno imc_s_interface_get_flags(imc_handle connection, uint32_t interface_handle, uint32_t zero, uint64_t* flags) {
  Invocation call("imc_s_interface_get_flags");
  call.arguments({"handle=" + std::to_string(interface_handle)});
  require_connection(call, connection);
  call.require(zero == 0, "an argument is not zero");
  call.require(*flags == 0, "the output does not start at 0");
  return call.status([&] {
    const auto& interfaces = call.platform().interfaces;
    const auto found = std::find_if(interfaces.begin(), interfaces.end(),
                                    [&](const auto& entry) { return entry.second.handle == interface_handle; });
    if (found == interfaces.end()) return support::kInterfaceUnknown;
    *flags = found->second.flags;
    return YFW_OK;
  });
}

cerrno imc_ifname_parse(const char* name, uint32_t zero, imc_ifname_parse_result* result) {
  Invocation call("imc_ifname_parse");
  call.arguments({shown(name)});
  call.require(zero == 0, "an argument is not zero");
  const imc_ifname_parse_result cleared{};
  call.require(std::memcmp(result, &cleared, sizeof cleared) == 0, "the result is not cleared");
  return call.status([&] {
    const auto& interfaces = call.platform().interfaces;
    const auto found = interfaces.find(name);
    if (found == interfaces.end()) return support::kInterfaceUnknown;
    result->kind = found->second.name_kind;
    return YFW_OK;
  });
}

cerrno imc_display_namestring(const char* element, char* display_name, uint32_t size, uint32_t zero) {
  Invocation call("imc_display_namestring");
  call.arguments({shown(element), "size=" + std::to_string(size)});
  call.require(zero == 0, "an argument is not zero");
  const cerrno status = call.status([&] {
    const auto& names = call.platform().display_names;
    const auto found = names.find(element);
    std::string name = found == names.end() ? element : found->second;
    if (found == names.end()) std::replace(name.begin(), name.end(), '_', '/');
    static_cast<void>(std::snprintf(display_name, size, "%s", name.c_str()));
    return YFW_OK;
  });
  if (status == YFW_OK) call.answer(shown(display_name));
  return status;
}

uint32_t get_intf_type_if_lacp_configured(const char* interface_name) {
  Invocation call("get_intf_type_if_lacp_configured");
  call.arguments({shown(interface_name)});
  return static_cast<uint32_t>(
      call.number([&] { return call.platform().lacp_interfaces.count(interface_name) != 0 ? 1 : 0; }));
}
