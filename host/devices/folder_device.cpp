#include "host/devices/folder_device.h"

#include <cstring>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "host/base/error.h"
#include "host/files/atomic_file.h"
#include "host/files/file_lock.h"
#include "host/files/read_file.h"
#include "host/yang/native_document.h"
#include "host/yang/tree_printer.h"

namespace oclacp::host {
namespace {

namespace fs = std::filesystem;

InterfaceType interface_type(std::string_view text) {
  if (text == "physical") {
    return InterfaceType::kPhysical;
  }
  return text == "bundle" ? InterfaceType::kBundle : InterfaceType::kVirtual;
}

// The file that keeps the running configuration. A link is followed, so that it stays one.
std::string find_file(const std::string& named) {
  std::error_code trouble;
  if (fs::is_symlink(named, trouble)) {
    const fs::path real = fs::canonical(named, trouble);
    if (!trouble) {
      return real;
    }
  }
  return named;  // reading it reports what is wrong
}

class FolderLock final : public DeviceLock {
 public:
  FolderLock(const Device& device, const std::string& file, const LockOptions& options)
      : DeviceLock(device), file_(file), lock_(fs::path(file).parent_path(), options) {}

  // The running configuration, where it really is.
  [[nodiscard]] const std::string& file() const { return file_; }

 private:
  std::string file_;
  FileLock lock_;
};

}  // namespace

// What platform.json says.
struct FolderDevice::Platform {
  uint32_t router_type = 0;
  bool has_canonical_period = false;
  std::vector<Interface> interfaces;

  static std::shared_ptr<const Platform> parse(const ly_ctx* native, const std::string& file, const std::string& text) {
    const TreePtr tree = NativeDocument(native, text, file, LYD_VALIDATE_NO_STATE, DataKind::kPlatform).take_whole();
    const lys_module* module = ly_ctx_get_module_implemented(native, "oclacp-platform");
    const lyd_node* described = tree.get();
    while (described != nullptr && described->schema->module != module) {
      described = described->next;
    }
    if (described == nullptr) {
      throw file_error(ErrorKind::kOperationFailed, file, "describes no platform");
    }
    auto platform = std::make_shared<Platform>();
    for (const lyd_node* child = lyd_child(described); child != nullptr; child = child->next) {
      platform->take(child);
    }
    return platform;
  }

 private:
  void take(const lyd_node* node) {
    const std::string_view tag = node->schema->name;
    if (tag == "router-type") {
      router_type = reinterpret_cast<const lyd_node_term*>(node)->value.uint32;
    } else if (tag == "period") {
      has_canonical_period = std::strcmp(lyd_get_value(node), "canonical") == 0;
    } else {
      const lyd_node* name = lyd_child(node);
      interfaces.push_back({lyd_get_value(name), interface_type(lyd_get_value(name->next))});
    }
  }
};

// What running.json says.
struct FolderDevice::Configuration {
  TreePtr tree;
};

// What operational.json says, when somebody asks.
class FolderDevice::State {
 public:
  State(const ly_ctx* native, std::string file) : native_(native), file_(std::move(file)) {}

  // Throws Error when the file cannot be read.
  [[nodiscard]] const NativeDocument& document() const {
    if (!document_) {
      const std::optional<FileVersion> version = file_version(file_);
      document_.emplace(native_, read_stable_file(file_), file_, LYD_VALIDATE_PRESENT, DataKind::kState);
      version_ = version;
    }
    return *document_;
  }

  // Whether the file still says so; what was not read yet will be read as it is then.
  [[nodiscard]] bool is_current() const {
    if (!document_) {
      return true;
    }
    const std::optional<FileVersion> now = file_version(file_);
    return now && version_ && now->is_unchanged_since(*version_);
  }

 private:
  const ly_ctx* native_;
  std::string file_;
  mutable std::optional<NativeDocument> document_;
  mutable std::optional<FileVersion> version_;
};

class FolderDevice::Snapshot final : public DeviceSnapshot {
 public:
  Snapshot(std::shared_ptr<const Platform> platform, std::shared_ptr<const Configuration> configuration,
           std::shared_ptr<const State> state, Version version)
      : platform_(std::move(platform)),
        configuration_(std::move(configuration)),
        state_(std::move(state)),
        version_(version) {}

  [[nodiscard]] uint32_t router_type() const override { return platform_->router_type; }
  [[nodiscard]] const std::vector<Interface>& interfaces() const override { return platform_->interfaces; }
  [[nodiscard]] const lyd_node* running() const override { return configuration_->tree.get(); }
  [[nodiscard]] const lyd_node* operational() const override { return state_->document().whole(); }
  [[nodiscard]] const NativeDocument* operational_document() const override { return &state_->document(); }
  [[nodiscard]] std::string normalized_value(const lysc_node& leaf, std::string_view value) const override {
    const bool is_period =
        std::strcmp(leaf.module->name, "Talvo-Brin-QD-bundlemgr-cfg") == 0 && std::strcmp(leaf.name, "period") == 0;
    return platform_->has_canonical_period && is_period && value == "1" ? "true" : std::string(value);
  }
  [[nodiscard]] Version version() const override { return version_; }

  // The version of a snapshot of these parts that follows on `last`, which may be null.
  static Version next_version(const Snapshot* last, const Platform* platform, const Configuration* configuration) {
    if (last == nullptr) {
      return {1, 1};
    }
    const bool is_same = last->platform_.get() == platform && last->configuration_.get() == configuration;
    return {last->version_.configuration + (is_same ? 0 : 1), last->version_.state + 1};
  }

  [[nodiscard]] bool is_of(const Platform* platform, const Configuration* configuration, const State* state) const {
    return platform_.get() == platform && configuration_.get() == configuration && state_.get() == state;
  }

 private:
  std::shared_ptr<const Platform> platform_;
  std::shared_ptr<const Configuration> configuration_;
  std::shared_ptr<const State> state_;
  Version version_;
};

FolderDevice::FolderDevice(const ly_ctx* native, std::string folder)
    : native_(native),
      folder_(std::move(folder)),
      platform_(folder_ + "/platform.json"),
      running_(folder_ + "/running.json") {}

FolderDevice::~FolderDevice() = default;

std::shared_ptr<const DeviceSnapshot> FolderDevice::snapshot() {
  std::error_code trouble;
  if (!fs::is_directory(folder_, trouble)) {
    const bool is_hidden = trouble == std::errc::permission_denied;
    throw file_error(is_hidden ? ErrorKind::kAccessDenied : ErrorKind::kOperationFailed, folder_,
                     is_hidden ? trouble.message() : "no such device directory");
  }
  std::shared_ptr<const Platform> platform =
      platform_.get([this](const std::string& text) { return Platform::parse(native_, platform_.file(), text); });
  std::shared_ptr<const Configuration> configuration = running_.get([this](const std::string& text) {
    return std::make_shared<const Configuration>(Configuration{
        NativeDocument(native_, text, running_.file(), LYD_VALIDATE_NO_STATE, DataKind::kNative).take_whole()});
  });
  if (state_ == nullptr || !state_->is_current()) {
    state_ = std::make_shared<const State>(native_, folder_ + "/operational.json");
  }
  if (last_ == nullptr || !last_->is_of(platform.get(), configuration.get(), state_.get())) {
    const DeviceSnapshot::Version version = Snapshot::next_version(last_.get(), platform.get(), configuration.get());
    last_ = std::make_shared<const Snapshot>(std::move(platform), std::move(configuration), state_, version);
  }
  return last_;
}

std::unique_ptr<DeviceLock> FolderDevice::lock(const LockOptions& options) {
  return std::make_unique<FolderLock>(*this, find_file(running_.file()), options);
}

std::vector<std::string> FolderDevice::commit(const DeviceLock& lock, const DeviceSnapshot& base, TreePtr running,
                                              const CommitOptions& /*options*/) {
  const auto* held = dynamic_cast<const FolderLock*>(&lock);
  if (held == nullptr || &lock.device() != this) {
    throw file_error(ErrorKind::kInternal, folder_, "cannot be changed under the lock of another device");
  }
  if (find_file(running_.file()) != held->file()) {
    throw file_error(ErrorKind::kInUse, running_.file(), "became a link to another file meanwhile, and stays as it is");
  }
  if (snapshot()->version().configuration != base.version().configuration) {
    throw file_error(ErrorKind::kInUse, running_.file(),
                     "was changed by another program meanwhile, and stays as it is");
  }
  const std::string text = print_tree(native_, running.get(), LYD_JSON);
  // From when the file is replaced on nothing may fail.
  auto configuration = std::make_shared<const Configuration>(Configuration{std::move(running)});
  const std::optional<FileVersion> version = replace_file(held->file(), text);
  running_.set(std::move(configuration), text, version);
  return {};
}

FileWatch& FolderDevice::watch() {
  if (!watch_) {
    watch_.emplace(std::vector<std::string>{platform_.file(), running_.file(), folder_ + "/operational.json"});
  }
  return *watch_;
}

int FolderDevice::change_descriptor() {
  return watch().descriptor();
}

bool FolderDevice::take_changes() {
  return watch().take_changes();
}

}  // namespace oclacp::host
