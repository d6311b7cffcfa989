// A device that is kept as a text.
#pragma once

#include <string>
#include <vector>

#include "host/devices/device.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {

// The running configuration of a text in JSON.
inline TreePtr running(const std::string& text) {
  lyd_node* tree = nullptr;
  EXPECT_EQ(
      lyd_parse_data_mem(schemas().native(), text.c_str(), LYD_JSON, LYD_PARSE_STRICT, LYD_VALIDATE_NO_STATE, &tree),
      LY_SUCCESS);
  return TreePtr(tree);
}

class KeptDevice : public Device {
 public:
  explicit KeptDevice(const std::string& text) : running_(host::running(text)) {}

  [[nodiscard]] uint32_t router_type() const override { return 1; }
  [[nodiscard]] const std::vector<Interface>& interfaces() const override { return interfaces_; }
  [[nodiscard]] const lyd_node* running() const override { return running_.get(); }

 private:
  TreePtr running_;
  std::vector<Interface> interfaces_;
};

// A running configuration with one interface "a"; `members` are its further members.
inline std::string interface_a(const std::string& members) {
  return R"({"Talvo-Brin-QD-ifmgr-cfg:interface-configurations": {"interface-configuration": [
            {"active": "act", "interface-name": "a")" +
         (members.empty() ? "" : ", " + members) + "}]}}";
}

inline std::string lacp_of_a(const std::string& members) {
  return interface_a(R"("Talvo-Brin-QD-bundlemgr-cfg:lacp": {)" + members + "}");
}

}  // namespace oclacp::host
