// The four entry walkers of native data, on any tree, any device and any failing call. The first byte chooses the
// walker; what holds afterwards is what holds after the walk of a request.
#include <cstddef>
#include <cstdint>
#include <span>

#include "after_walk.h"
#include "fuzzed_request.h"
#include "oclacp/native_config.h"
#include "oclacp/native_oper.h"
#include "support/platform.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

struct Entry {
  cerrno (*walk)(yfw_map_ctx, const yfw_datatree*, yfw_datatree*);
  const fuzz::Model& (*model)();
};

constexpr Entry kEntries[] = {
    {ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations, fuzz::interface_configuration_model},
    {ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp, fuzz::global_configuration_model},
    {ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles, fuzz::bundles_model},
    {ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata, fuzz::device_identity_model},
};

// What a walk of native data asks the device and the request beyond what a request does.
void set_up_native(support::Platform& platform, fuzz::Bytes& bytes) {
  const std::uint8_t facts = bytes.take();
  if ((facts & 1) != 0) platform.lacp_interfaces = {"Bundle-Ether1", "Bundle-Ether1.100", "GigabitEthernet0/0/0/1", ""};
  platform.output_list_grows = (facts & 2) == 0;
  platform.descriptor().options_584 = (facts & 4) != 0 ? 1 : 0;
  platform.descriptor().option_mode = (facts & 8) != 0 ? YFW_OPTION_MODE_SUPPRESS : 0;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Bytes bytes(data, size);
  const Entry& entry = bytes.pick(std::span<const Entry>(kEntries));
  support::Platform platform;
  fuzz::set_up(platform, bytes);
  set_up_native(platform, bytes);
  fuzz::FuzzedTree tree(entry.model(), bytes);

  const cerrno status = entry.walk(platform.ctx(), tree.root(), platform.output());
  fuzz::require_left_in_order(status, tree, platform);
  return 0;
}
