// What the hand-written handlers of the native side ask before they report anything.
#pragma once

#include <cstdint>

#include "frame/handler.h"
#include "frame/request.h"
#include "imc/imc.h"
#include "oclacp/interface_helpers.h"

namespace oclacp {

// Whether an interface is mapped to an entry of /lacp/interfaces: LACP is configured on it and it is not a
// sub-interface.
inline bool is_mapped(const char* interface_name) {
  return interface_name != nullptr && yfw_is_oc_subinterface(interface_name) == 0 &&
         get_intf_type_if_lacp_configured(interface_name) != 0;
}

// Whether the request carries one of the framework's options and a mode that keeps some leaves from being reported. A
// request without options is never kept from reporting, whatever its mode field holds.
inline bool options_suppress(const yfw_request_descriptor& request) {
  const bool any_option =
      (request.options_584 & 0x0f) != 0 || (request.options_5b0 & 0x03) != 0 || (request.options_5c8 & 0x03) != 0 ||
      (request.options_5d0 & 0x07) != 0 || (request.options_60c & 0x3ffff) != 0 || (request.options_610 & 0x03) != 0 ||
      (request.options_634 & 0x0f) != 0 || (request.options_638 & 0x07) != 0 || (request.options_8fa & 0x01) != 0;
  return any_option && request.option_mode == YFW_OPTION_MODE_SUPPRESS;
}

// The slot of the current OpenConfig list entry, as the extra word of an addition.
inline std::uintptr_t list_slot(yfw_map_ctx ctx) {
  return reinterpret_cast<std::uintptr_t>(&ctx->request->current_list_node);
}

}  // namespace oclacp
