// The device of the recording platform.
#include "platform/router.h"

#include "support/invocation.h"

uint32_t platform_get_router_type(void) {
  support::Invocation call("platform_get_router_type");
  return static_cast<uint32_t>(call.number([&] { return static_cast<int>(call.platform().router_type); }));
}
