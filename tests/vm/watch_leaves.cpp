// Watches the bonds of this network namespace as a daemon does: watch_leaves FOLDER
//
// Prints "watching" when it begins, and then a line for each leaf of openconfig-lacp that changes: the milliseconds
// since the epoch, what changed, tab-separated. FOLDER keeps the datastores' state. Ends after a minute.
#include <chrono>
#include <cstdio>
#include <memory>
#include <string>
#include <thread>

#include "host/base/error.h"
#include "server/engine/engine.h"
#include "server/engine/served_device.h"

namespace {

using namespace oclacp;

void print(const std::string& text) {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
  std::printf("%lld\t%s\n", static_cast<long long>(milliseconds), text.c_str());
  std::fflush(stdout);
}

void watch(const std::string& folder) {
  server::ServedDeviceSettings settings;
  settings.schemas = {"/usr/local/share/oclacp/yang", ""};
  settings.module_file = "/usr/local/lib/libymap_oclacp.so";
  settings.device = "linux";
  settings.state_folder = folder;
  settings.log = print;
  server::Engine<server::ServedDevice> engine([&] { return std::make_unique<server::ServedDevice>(settings); }, {});
  engine.call([](server::ServedDevice& served) {
    const auto tell = [](const server::Changes& changes) {
      for (const server::Change& change : changes) {
        print(server::describe(change));
      }
    };
    served.watch().add({"/lacp", host::Content::kAll},
                       {tell, [](const host::Error& error) { print(std::string("failed: ") + error.what()); }});
  });
  print("watching");
  std::this_thread::sleep_for(std::chrono::minutes(1));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: watch_leaves FOLDER\n", stderr);
    return 2;
  }
  try {
    watch(argv[1]);
  } catch (const oclacp::host::Error& error) {
    std::fprintf(stderr, "watch_leaves: %s\n", error.what());
    return 1;
  }
  return 0;
}
