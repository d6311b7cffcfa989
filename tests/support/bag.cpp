// The record registry of the recording platform.
#include "bag/bag.h"

#include "support/invocation.h"

using support::Invocation;
using support::shown;

cerrno bag_register_start() {
  Invocation call("bag_register_start");
  call.require(!call.seen().registration_is_open, "a registration is open");
  return call.status([&] {
    call.seen().registration_is_open = true;
    return YFW_OK;
  });
}

cerrno bag_register(const bag_descriptor* descriptor) {
  Invocation call("bag_register");
  call.arguments({shown(descriptor->name)});
  call.require(call.seen().registration_is_open, "no registration is open");
  return call.status([] { return YFW_OK; });
}

cerrno bag_register_end() {
  Invocation call("bag_register_end");
  call.require(call.seen().registration_is_open, "no registration is open");
  call.seen().registration_is_open = false;
  return call.status([] { return YFW_OK; });
}

void bag_register_abort() {
  Invocation call("bag_register_abort");
  call.require(call.seen().registration_is_open, "no registration is open");
  call.seen().registration_is_open = false;
  call.done();
}
