// A device that is kept as files in a folder.
#pragma once

#include <optional>
#include <string>

#include "host/devices/device.h"

namespace oclacp::host {

// Reads platform.json (module oclacp-platform) and running.json (native models), and operational.json (native models)
// when the operational state is first asked for, all RFC 7951. Each is read once.
class OCLACP_HOST_API DirectoryDevice final : public Device {
 public:
  // `native`: the context of the native side; outlives the device. Throws Error when a file is missing, unreadable or
  // invalid.
  DirectoryDevice(const ly_ctx* native, const std::string& directory);

  [[nodiscard]] uint32_t router_type() const override { return router_type_; }
  [[nodiscard]] const std::vector<Interface>& interfaces() const override { return interfaces_; }
  [[nodiscard]] const lyd_node* running() const override { return running_.get(); }
  [[nodiscard]] const lyd_node* operational() const override;
  // With the canonical period of platform.json, a LACP period of "1" is kept as "true".
  [[nodiscard]] std::string normalized_value(const lysc_node& leaf, std::string_view value) const override;

 private:
  void read_platform(const ly_ctx* native, const std::string& file);

  const ly_ctx* native_;
  std::string directory_;
  uint32_t router_type_ = 0;
  bool has_canonical_period_ = false;
  std::vector<Interface> interfaces_;
  TreePtr running_;
  mutable std::optional<TreePtr> operational_;
};

}  // namespace oclacp::host
