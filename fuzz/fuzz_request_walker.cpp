// The entry walker of OpenConfig requests, on any tree, any device and any failing call: it comes back, uses the
// platform as its contract says, and leaves the request as it found it.
#include <cstddef>
#include <cstdint>

#include "after_walk.h"
#include "fuzzed_request.h"
#include "oclacp/openconfig_lacp.h"
#include "support/platform.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Bytes bytes(data, size);
  support::Platform platform;
  fuzz::set_up(platform, bytes);
  fuzz::FuzzedTree tree(fuzz::openconfig_model(), bytes);

  const cerrno status = ymap_oq_oclacp_openconfiglacp_lvla_lacp(platform.ctx(), tree.root(), platform.output());
  fuzz::require_left_in_order(status, tree, platform);
  return 0;
}
