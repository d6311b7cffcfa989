#include "host/services/current_device.h"

#include <regex.h>

#include "host/base/contract.h"

namespace oclacp::host {
namespace {

thread_local CurrentDevice* installed = nullptr;

// A POSIX extended regular expression that must match a whole text.
class Pattern {
 public:
  explicit Pattern(const char* text) {
    const std::string anchored = std::string("^(") + text + ")$";
    compiled_ = regcomp(&regex_, anchored.c_str(), REG_EXTENDED | REG_NOSUB) == 0;
  }
  ~Pattern() {
    if (compiled_) {
      regfree(&regex_);
    }
  }
  Pattern(const Pattern&) = delete;
  Pattern& operator=(const Pattern&) = delete;
  Pattern(Pattern&&) = delete;
  Pattern& operator=(Pattern&&) = delete;

  [[nodiscard]] bool is_usable() const { return compiled_; }
  [[nodiscard]] bool matches(const std::string& text) const {
    return regexec(&regex_, text.c_str(), 0, nullptr, 0) == 0;
  }

 private:
  regex_t regex_{};
  bool compiled_ = false;
};

}  // namespace

CurrentDevice::CurrentDevice(const DeviceSnapshot& device) : device_(device), outer_(installed) {
  installed = this;
}

CurrentDevice::~CurrentDevice() {
  installed = outer_;
}

CurrentDevice* CurrentDevice::current() {
  return installed;
}

const ActiveConfiguration& CurrentDevice::configuration() {
  if (!configuration_) {
    configuration_.emplace(device_.running());
  }
  return *configuration_;
}

const InterfaceTable& CurrentDevice::interfaces() {
  if (!interfaces_) {
    interfaces_.emplace(device_.interfaces(), configuration());
  }
  return *interfaces_;
}

const FoundItems* CurrentDevice::find_items(const std::string& pattern) {
  const auto known = found_items_.find(pattern);
  if (known != found_items_.end()) {
    return &known->second;
  }
  const Pattern compiled(pattern.c_str());
  if (!compiled.is_usable()) {
    return nullptr;
  }
  FoundItems& found = found_items_[pattern];
  for (const std::string& item : configuration().items()) {
    if (compiled.matches(item)) {
      found.begins.push_back(found.texts.size());
      found.texts.append(item).push_back('\0');
    }
  }
  return &found;
}

}  // namespace oclacp::host

uint32_t platform_get_router_type() {
  const auto* device = oclacp::host::CurrentDevice::current();
  return device == nullptr ? 0 : device->device().router_type();
}
