// The platform's type.
#include "host/base/contract.h"
#include "host/services/current_device.h"

uint32_t platform_get_router_type() {
  const auto* device = oclacp::host::CurrentDevice::current();
  return device == nullptr ? 0 : device->device().router_type();
}
