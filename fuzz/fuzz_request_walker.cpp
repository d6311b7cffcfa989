// The entry walker of OpenConfig requests, on any tree, any device and any failing call: it comes back, uses the
// platform as its contract says, and leaves the request as it found it.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "fuzzed_request.h"
#include "oclacp/openconfig_lacp.h"
#include "support/platform.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "%s\n", what);
  std::abort();
}

void require_marks_as_found(const yfw_request_state& state) {
  require(state.whole_subtree == 0, "the whole-subtree mark stays set");
  require(state.key_pending == YFW_KEY_PENDING_NONE, "the key-pending mark stays set");
  require(state.replace_flags == 0, "a replace flag stays set");
  require(state.replace_restore == 0, "the replace-restore mark stays set");
}

void require_balance(const support::Seen& seen) {
  for (const std::string& misuse : seen.misuses) require(false, misuse.c_str());
  require(seen.hierarchy.empty(), "a node stays on the hierarchy");
  require(seen.itree_stack.empty(), "an entry stays on the itree stack");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Bytes bytes(data, size);
  support::Platform platform;
  fuzz::set_up(platform, bytes);
  fuzz::FuzzedTree tree(bytes);

  const cerrno status = ymap_oq_oclacp_openconfiglacp_lvla_lacp(platform.ctx(), tree.root(), platform.output());

  require(status != YFW_SKIP_SUBTREE, "the entry walker answers that it skipped");
  require_marks_as_found(platform.state());
  require_balance(platform.seen());
  require(tree.disturbed() == nullptr, "a node is not as it was");
  return 0;
}
