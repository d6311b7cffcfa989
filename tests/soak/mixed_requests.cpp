// One process that serves a thousand requests of all kinds on two devices, as a server does: reads, edits, edits one on
// top of the other, and requests that are refused. What it holds does not grow; under valgrind nothing is lost.
//
// mixed_requests SCHEMAS MODULE DEVICE: DEVICE is a folder, of which copies are edited. The allocator counts freed
// memory that it keeps for a thread as in use, so that it is to run without
// (GLIBC_TUNABLES=glibc.malloc.tcache_count=0).
#include <malloc.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

#include "host/base/error.h"
#include "host/devices/folder_device.h"
#include "host/devices/staged_device.h"
#include "host/translation/translator.h"
#include "tests/support/temporary_folder.h"

namespace {

using namespace oclacp::host;

constexpr size_t kRequests = 1000;
// Behind the first requests every cache is filled.
constexpr size_t kWarm = 500;
constexpr size_t kMayGrow = 4096;

std::string interval_of(const std::string& interface, const std::string& interval) {
  return R"({"openconfig-lacp:lacp": {"interfaces": {"interface": [{"name": ")" + interface +
         R"(", "config": {"name": ")" + interface + R"(", "interval": ")" + interval + R"("}}]}}})";
}

// A copy of a device that goes with this.
class CopiedDevice {
 public:
  CopiedDevice(const Translator& translator, const std::string& original)
      : device_(translator.native_context(), folder_.path()) {
    std::filesystem::copy(original, folder_.path(), std::filesystem::copy_options::recursive);
  }

  Device& device() { return device_; }

 private:
  support::TemporaryFolder folder_;
  FolderDevice device_;
};

class Client {
 public:
  explicit Client(Translator& translator) : translator_(translator) {}

  // The request with this number. Whether it did what it should.
  bool request(size_t number, Device& device) {
    const std::string interval = number / 16 % 2 == 0 ? "SLOW" : "FAST";
    switch (number / 2 % 8) {
      case 0:
        return read(device, {"/lacp"}, Content::kConfig);
      case 1:
        return read(device, {"/lacp"}, Content::kAll);
      case 2:
        return read(device, {"/lacp/config", "/lacp/interfaces/interface[name=Bundle-Ether1]/state"}, Content::kAll);
      case 3:
        return edit(device, interval_of("Bundle-Ether1", interval));
      case 4:
        return is_refused([&] { edit(device, interval_of("Bundle-Ether1", "MEDIUM")); });
      case 5:
        return edit_in_turns(device, interval);
      case 6:
        return is_refused([&] { read(device, {"/lacp/colour"}, Content::kConfig); });
      default:
        return delete_what_is_absent(device);
    }
  }

 private:
  template <typename Action>
  static bool is_refused(Action action) {
    try {
      action();
    } catch (const Error&) {
      return true;
    }
    return false;
  }

  bool read(Device& device, const std::vector<std::string>& paths, Content content) {
    return translator_.get(*device.snapshot(), paths, {.content = content}).failures.empty();
  }

  bool edit(Device& device, const std::string& request) {
    const std::unique_ptr<DeviceLock> lock = device.lock({});
    const std::shared_ptr<const DeviceSnapshot> before = device.snapshot();
    EditPlan plan = translator_.plan_edit(request, *before, {});
    if (plan.changes_something()) {
      device.commit(*lock, *before, std::move(plan.running), {});
    }
    return true;
  }

  // Two edits, of which the second is planned against the result of the first, as one commit.
  bool edit_in_turns(Device& device, const std::string& interval) {
    const std::unique_ptr<DeviceLock> lock = device.lock({});
    StagedDevice staged(device);
    edit(staged, interval_of("Bundle-Ether1", interval == "FAST" ? "SLOW" : "FAST"));
    edit(staged, interval_of("Bundle-Ether2", interval));
    staged.apply(*lock, {});
    return !staged.is_changed();
  }

  bool delete_what_is_absent(Device& device) {
    PlanOptions options;
    options.ignores_absent = true;
    const std::vector<std::string> paths = {"/lacp/interfaces/interface[name=Bundle-Ether77]/config/interval"};
    return !translator_.plan_delete(paths, *device.snapshot(), options).changes_something();
  }

  Translator& translator_;
};

int run(const std::string& schemas, const std::string& module, const std::string& original) {
  Translator translator({schemas, ""}, module);
  std::array<CopiedDevice, 2> devices = {CopiedDevice(translator, original), CopiedDevice(translator, original)};
  Client client(translator);
  size_t warm = 0;
  for (size_t number = 0; number < kRequests; ++number) {
    if (!client.request(number, devices.at(number % devices.size()).device())) {
      std::fprintf(stderr, "request %zu did not do what it should\n", number);
      return 1;
    }
    warm = number == kWarm ? mallinfo2().uordblks : warm;
  }
  const size_t now = mallinfo2().uordblks;
  std::printf("%zu requests on %zu devices; %zu bytes in use after %zu of them, %zu at the end\n", kRequests,
              devices.size(), warm, kWarm, now);
  return now > warm + kMayGrow ? 1 : 0;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 4) {
    std::fprintf(stderr, "mixed_requests SCHEMAS MODULE DEVICE\n");
    return 2;
  }
  try {
    return run(arguments[1], arguments[2], arguments[3]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
