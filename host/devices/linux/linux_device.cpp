#include "host/devices/linux/linux_device.h"

#include <fcntl.h>
#include <linux/capability.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <system_error>
#include <utility>

#include "host/base/error.h"
#include "host/devices/linux/bond_plan.h"
#include "host/devices/linux/bond_writer.h"
#include "host/devices/linux/link_managers.h"
#include "host/devices/linux/native_bonds.h"
#include "host/devices/linux/network_namespace.h"
#include "host/files/system_call.h"

namespace oclacp::host {
namespace {

// The platform type of a machine whose bonds are served.
constexpr uint32_t kRouterType = 8;

constexpr const char* kLockFolder = "/run/oclacp";

// Whether the thread may change links in the network namespace that it is in.
bool has_net_admin() {
  __user_cap_header_struct header = {_LINUX_CAPABILITY_VERSION_3, 0};
  std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3> data{};
  return syscall(SYS_capget, &header, data.data()) == 0 && (data[0].effective & (1U << CAP_NET_ADMIN)) != 0;
}

// Creates the file whose lock stands for the network namespace of the thread, and returns its path.
std::string make_lock_file() {
  struct stat status {};
  if (stat("/proc/thread-self/ns/net", &status) != 0) {
    throw system_error(errno, "/proc/thread-self/ns/net");
  }
  std::string file = std::string(kLockFolder) + "/linux-" + std::to_string(status.st_ino) + ".lock";
  if (mkdir(kLockFolder, 0755) != 0 && errno != EEXIST) {
    throw system_error(errno, kLockFolder, "cannot be made, and bonds cannot be locked without it: ");
  }
  // Users without a right to change bonds have none to keep others from it.
  const FileDescriptor descriptor(
      retry_interrupted([&] { return open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600); }));
  if (!descriptor.is_open()) {
    throw system_error(errno, file, "cannot be made, and bonds cannot be locked without it: ");
  }
  // The folder may be a daemon's, which has to take the lock too after root has.
  if (geteuid() == 0 && stat(kLockFolder, &status) == 0 &&
      fchown(descriptor.number(), status.st_uid, status.st_gid) != 0) {
    throw system_error(errno, file);
  }
  return file;
}

bool is_same(const lyd_node* left, const lyd_node* right) {
  return lyd_compare_siblings(left, right, LYD_COMPARE_FULL_RECURSION) == LY_SUCCESS;
}

bool is_same(const std::vector<Interface>& left, const std::vector<Interface>& right) {
  return std::equal(
      left.begin(), left.end(), right.begin(), right.end(),
      [](const Interface& one, const Interface& two) { return one.name == two.name && one.type == two.type; });
}

class LinuxLock final : public DeviceLock {
 public:
  LinuxLock(const Device& device, const std::string& file, const LockOptions& options)
      : DeviceLock(device), lock_(file, options) {}

 private:
  FileLock lock_;
};

}  // namespace

class LinuxDevice::Snapshot final : public DeviceSnapshot {
 public:
  // `seen`: what a watcher saw of the members; nothing without one. `last`: the one before, or null.
  Snapshot(const ly_ctx* native, const std::string& device, LinkSnapshot links, MemberEventsByPort seen,
           const Snapshot* last)
      : native_(native),
        device_(device),
        links_(std::move(links)),
        seen_(std::move(seen)),
        interfaces_(list_interfaces(links_)),
        running_(make_running(native, links_)) {
    const bool is_configured_as_before =
        last != nullptr && is_same(interfaces_, last->interfaces_) && is_same(running_.get(), last->running_.get());
    const Version before = last == nullptr ? Version() : last->version_;
    version_ = {before.configuration + (is_configured_as_before ? 0 : 1), before.state + 1};
  }

  [[nodiscard]] uint32_t router_type() const override { return kRouterType; }
  [[nodiscard]] const std::vector<Interface>& interfaces() const override { return interfaces_; }
  [[nodiscard]] const lyd_node* running() const override { return running_.get(); }
  [[nodiscard]] const lyd_node* operational() const override {
    if (!operational_) {
      operational_ = make_operational(native_, links_, seen_);
    }
    return operational_->get();
  }
  // What is written is read back in the form that configurations of bonds have.
  [[nodiscard]] std::string normalized_value(const lysc_node& leaf, std::string_view value) const override {
    if (std::strcmp(leaf.module->name, "Talvo-Brin-QD-bundlemgr-cfg") != 0) {
      return std::string(value);
    }
    if (std::strcmp(leaf.name, "period") == 0 && value == "1") {
      return "true";
    }
    const std::optional<MacAddress> address =
        std::strcmp(leaf.name, "system-mac") == 0 ? parse_mac_address(value) : std::nullopt;
    return address ? to_text(*address) : std::string(value);
  }
  [[nodiscard]] Version version() const override { return version_; }
  [[nodiscard]] std::vector<std::string> warnings() const override {
    std::vector<std::string> sentences = warnings_about(links_);
    for (std::string& sentence : sentences) {
      sentence.insert(0, device_ + ": ");
    }
    return sentences;
  }

  [[nodiscard]] const LinkSnapshot& links() const { return links_; }

 private:
  const ly_ctx* native_;
  std::string device_;
  LinkSnapshot links_;
  MemberEventsByPort seen_;
  std::vector<Interface> interfaces_;
  TreePtr running_;
  mutable std::optional<TreePtr> operational_;
  Version version_;
};

LinuxDevice::LinuxDevice(const ly_ctx* native, std::string network_namespace)
    : native_(native),
      namespace_(std::move(network_namespace)),
      name_(namespace_.empty() ? "linux" : "linux:" + namespace_) {}

LinuxDevice::~LinuxDevice() = default;

std::shared_ptr<const DeviceSnapshot> LinuxDevice::snapshot() {
  const NetworkNamespaceScope scope(namespace_);
  NetlinkSocket socket;
  LinkSnapshot links = read_links(socket);
  MemberEventsByPort seen;
  if (history_) {
    history_->see(links, std::chrono::system_clock::now());
    seen = history_->events();
  }
  last_ = std::make_shared<const Snapshot>(native_, name_, std::move(links), std::move(seen), last_.get());
  return last_;
}

std::unique_ptr<DeviceLock> LinuxDevice::lock(const LockOptions& options) {
  const NetworkNamespaceScope scope(namespace_);
  if (!has_net_admin()) {
    throw Error(ErrorKind::kAccessDenied, name_ + ": to change bonds takes CAP_NET_ADMIN");
  }
  return std::make_unique<LinuxLock>(*this, make_lock_file(), options);
}

std::vector<std::string> LinuxDevice::commit(const DeviceLock& lock, const DeviceSnapshot& base, TreePtr running,
                                             const CommitOptions& options) {
  if (dynamic_cast<const LinuxLock*>(&lock) == nullptr || &lock.device() != this) {
    throw Error(ErrorKind::kInternal, name_ + ": cannot be changed under the lock of another device");
  }
  snapshot();
  if (!is_same(last_->running(), base.running())) {
    throw Error(ErrorKind::kInUse, name_ + ": was changed by another program meanwhile, and stays as it is");
  }
  if (is_withheld(last_->links())) {
    throw Error(ErrorKind::kAccessDenied, name_ + ": cannot be changed, since the kernel withholds what it is set to");
  }
  const std::vector<BondChange> changes = plan_changes(last_->links(), running.get(), options.may_interrupt);
  const NetworkNamespaceScope scope(namespace_);
  NetlinkSocket socket;
  std::vector<std::string> warnings = BondWriter(socket).apply(changes);
  if (!changes.empty()) {
    warn_of_managers(last_->links(), warnings);
  }
  return warnings;
}

// Programs that manage the bonds of the initial namespace do not do so elsewhere.
void LinuxDevice::warn_of_managers(const LinkSnapshot& links, std::vector<std::string>& warnings) {
  if (!namespace_.empty() || std::exchange(has_warned_of_managers_, true)) {
    return;
  }
  for (const Link& link : links.links) {
    if (!link.is_lacp_bond()) {
      continue;
    }
    if (const std::optional<std::string> manager = find_manager(link.name, link.index)) {
      warnings.push_back(link.name + ": is managed by " + *manager +
                         ", which may set it back; settings that are to stay belong into its files too");
    }
  }
}

int LinuxDevice::change_descriptor() {
  if (!changes_) {
    const NetworkNamespaceScope scope(namespace_);
    try {
      changes_.emplace();
    } catch (const std::system_error& error) {
      throw Error(ErrorKind::kOperationFailed, name_ + ": changes of links are not told: " + error.code().message());
    }
    history_.emplace();
    static_cast<void>(snapshot());  // the first look, which the next one is compared with
  }
  return changes_->descriptor();
}

bool LinuxDevice::take_changes() {
  change_descriptor();
  return changes_->take();
}

}  // namespace oclacp::host
