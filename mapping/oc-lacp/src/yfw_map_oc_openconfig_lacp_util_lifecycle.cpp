// Of the group openconfig_lacp_util; apart, as it runs at load and unload, without a request.
//
// The module's lifecycle and its four registrations.
#include <unistd.h>

#include <cstdint>

#include "imc/imc.h"
#include "models.h"
#include "oclacp/lifecycle.h"
#include "oclacp/native_config.h"
#include "oclacp/native_oper.h"
#include "oclacp/openconfig_lacp.h"
#include "platform/router.h"
#include "sysdb/sysdb.h"
#include "yfw/map.h"
#include "yfw/strings.h"

imc_handle yfw_oclacp_im_conn = nullptr;

namespace {

// Whether the data-store client's library was found. A miss is not remembered. The deletion keeps a flag of its own.
bool sysdb_library_found = false;

bool sysdb_library_present() {
  if (!sysdb_library_found) sysdb_library_found = access(SYSDB_LIBRARY_PATH, R_OK) == 0;
  return sysdb_library_found;
}

// What a registration says beyond what all four have in common.
struct Mapping {
  const char* native_ns;
  const char* native_root;
  yfw_map_walker native_walker;
  std::uint32_t second_flag = 0;
  yfw_capability_callback disables_mapping = nullptr;
};

void fill(const char* caller, const Mapping& mapping, yfw_map_registration& registration) {
  // The copies' results are not checked: every text fits.
  const auto copy = [caller](char(&field)[YFW_REGISTRATION_TEXT_CAPACITY], const char* text) {
    static_cast<void>(yfw_strncpy_s(caller, field, sizeof field, text, sizeof field));
  };
  copy(registration.native_ns, mapping.native_ns);
  copy(registration.openconfig_ns, oclacp::kOpenconfigLacp);
  copy(registration.description, "OC LACP tree");
  copy(registration.native_root, mapping.native_root);
  copy(registration.openconfig_root, "lacp");
  registration.openconfig_walker = ymap_oq_oclacp_openconfiglacp_lvla_lacp;
  registration.native_walker = mapping.native_walker;
  registration.first_flag = 0;
  registration.second_flag = mapping.second_flag;
  if (mapping.disables_mapping != nullptr) registration.disables_mapping = mapping.disables_mapping;
}

bool is_supported_platform() {
  constexpr std::uint32_t kSupported[] = {7, 18, 8};
  for (const std::uint32_t type : kSupported) {
    if (platform_get_router_type() == type) return true;
  }
  return false;
}

}  // namespace

cerrno yfw_oclacp_init(void) {
  if (yfw_intf_mgbl_connid == nullptr) {
    if (!sysdb_library_present()) return SYSDB_LIBRARY_MISSING;
    const cerrno status = _sysdb_bind(&yfw_intf_mgbl_connid, SYSDB_INTERFACE_GLOBALS, SYSDB_GLOBALS_BIND_FLAGS);
    if (status != YFW_OK) return status;
  }
  if (yfw_oclacp_im_conn != nullptr) return YFW_OK;
  const std::uint32_t kind = IMC_BIND_KIND;
  return imc_db_bind(&kind, IMC_BIND_MODE, &yfw_oclacp_im_conn);
}

void yfw_oclacp_cleanup(void) {
  if (yfw_intf_mgbl_connid != nullptr && sysdb_library_present())
    static_cast<void>(_sysdb_unbind(yfw_intf_mgbl_connid));
  if (yfw_oclacp_im_conn != nullptr) static_cast<void>(imc_db_unbind(&yfw_oclacp_im_conn, 0));
}

uint32_t yfw_map_lacp_disable_cabability_cb(const char* ns) {
  if (!is_supported_platform()) return 1;
  return yfw_map_do_these_match(ns, oclacp::kOpenconfigLacp) != 0 ? 0 : 1;
}

// clang-format off

#define OCLACP_REGISTRATION(NAME, ...)                                     \
  void NAME(yfw_map_registration* registration) {                          \
    static constexpr Mapping mapping __VA_ARGS__;                          \
    fill(#NAME, mapping, *registration);                                   \
  }

OCLACP_REGISTRATION(yfw_map_reg_oclacp_lacpbundles_conf, {
    .native_ns = oclacp::kIfmgrCfg,
    .native_root = "interface-configurations",
    .native_walker = ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations,
    .second_flag = 1,
    .disables_mapping = yfw_map_lacp_disable_cabability_cb})
OCLACP_REGISTRATION(yfw_map_reg_oclacp_lacpbundles_oper, {
    .native_ns = oclacp::kBundlemgrOper,
    .native_root = "lacp-bundles",
    .native_walker = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles})
OCLACP_REGISTRATION(yfw_map_reg_oclacp_lacpbundles_global_conf, {
    .native_ns = oclacp::kBundlemgrCfg,
    .native_root = "lacp",
    .native_walker = ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp})
OCLACP_REGISTRATION(yfw_map_reg_oclacp_lacpglobaldata_oper, {
    .native_ns = oclacp::kBundlemgrOper,
    .native_root = "lacp-data",
    .native_walker = ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata})

// clang-format on
