// The interface-manager client.
//
// What the module makes of the answers (it takes an interface for virtual by its attribute, or by its flags and the
// kind of its name):
//
//   bundle             attribute VIRTUAL                                          virtual
//   virtual            another attribute, no GATE flag, name of another kind      virtual
//   physical           another attribute, GATE without REQUIRED                   not virtual
//   not on the device  not found, no flags: the kind of the name decides          virtual unless it names a rack and
//   slot
#include <cstring>
#include <string_view>

#include "host/base/contract.h"
#include "host/base/status_text.h"
#include "host/devices/interface_table.h"
#include "host/services/current_device.h"

using oclacp::host::CurrentDevice;
using oclacp::host::InterfaceTable;
using oclacp::host::InterfaceType;
using oclacp::host::kNotFound;
using oclacp::host::kTextTooLong;

struct imc_connection {};

namespace {

constexpr uint32_t kOtherAttribute = 0x409A0000;
constexpr uint32_t kOtherNameKind = 1;

imc_connection the_connection;

// Null outside of a request.
const InterfaceTable* directory() {
  CurrentDevice* device = CurrentDevice::current();
  return device == nullptr ? nullptr : &device->interfaces();
}

bool names_rack_and_slot(std::string_view name) {
  return name.find_first_of("_/") != std::string_view::npos;
}

}  // namespace

imc_handle yfw_ocifmgr_im_conn = &the_connection;

cerrno imc_db_bind(const uint32_t* /*kind*/, uint32_t /*mode*/, imc_handle* connection) {
  *connection = &the_connection;
  return YFW_OK;
}

cerrno imc_db_unbind(imc_handle* connection, uint32_t /*zero*/) {
  *connection = nullptr;
  return YFW_OK;
}

cerrno imc_interface_find(imc_handle /*connection*/, uint32_t key_kind, const imc_interface_key* key, uint32_t /*zero*/,
                          const imc_interface_attributes* attributes) {
  const InterfaceTable* interfaces = directory();
  const uint32_t number = interfaces == nullptr || key_kind != IMC_KEY_NAME ? 0 : interfaces->find(key->name);
  if (number == 0) {
    return kNotFound;
  }
  *attributes->interface_handle = number;
  *attributes->attribute =
      interfaces->at(number).type == InterfaceType::kBundle ? IMC_ATTRIBUTE_VIRTUAL : kOtherAttribute;
  return YFW_OK;
}

cerrno imc_s_interface_get_flags(imc_handle /*connection*/, uint32_t interface_handle, uint32_t /*zero*/,
                                 uint64_t* flags) {
  const InterfaceTable* interfaces = directory();
  const bool is_physical = interfaces != nullptr && interface_handle != 0 &&
                           interfaces->at(interface_handle).type == InterfaceType::kPhysical;
  *flags = is_physical ? IMC_FLAG_GATE : 0;
  return YFW_OK;
}

cerrno imc_ifname_parse(const char* name, uint32_t /*zero*/, imc_ifname_parse_result* result) {
  const InterfaceTable* interfaces = directory();
  const uint32_t number = interfaces == nullptr ? 0 : interfaces->find(name);
  const bool is_physical =
      number == 0 ? names_rack_and_slot(name) : interfaces->at(number).type == InterfaceType::kPhysical;
  result->kind = is_physical ? uint32_t{IMC_NAME_KIND_PHYSICAL} : kOtherNameKind;
  return YFW_OK;
}

cerrno imc_display_namestring(const char* element, char* display_name, uint32_t size, uint32_t /*zero*/) {
  const InterfaceTable* interfaces = directory();
  const std::string_view name = interfaces == nullptr ? element : interfaces->display_name(element);
  if (name.size() >= size) {
    return kTextTooLong;
  }
  std::memcpy(display_name, name.data(), name.size());
  display_name[name.size()] = '\0';
  return YFW_OK;
}

uint32_t get_intf_type_if_lacp_configured(const char* interface_name) {
  CurrentDevice* device = CurrentDevice::current();
  return device != nullptr && device->has_lacp(interface_name) ? 1 : 0;
}
