#include "host/translation/read_back.h"

#include "host/services/current_device.h"
#include "host/translation/native_reader.h"
#include "host/trees/native_selection.h"

namespace oclacp::host {
namespace {

// A device with another configuration.
class EditedSnapshot final : public DeviceSnapshot {
 public:
  EditedSnapshot(const DeviceSnapshot& device, const lyd_node* running) : device_(device), running_(running) {}

  [[nodiscard]] uint32_t router_type() const override { return device_.router_type(); }
  [[nodiscard]] const std::vector<Interface>& interfaces() const override { return device_.interfaces(); }
  [[nodiscard]] const lyd_node* running() const override { return running_; }

 private:
  const DeviceSnapshot& device_;
  const lyd_node* running_;
};

const lyd_node* find_top(const lyd_node* tops, const lysc_node* schema) {
  while (tops != nullptr && tops->schema != schema) {
    tops = tops->next;
  }
  return tops;
}

}  // namespace

std::vector<std::string> read_back(const MappingModule& module, SchemaIndex& openconfig_paths, const OutputLog& edit,
                                   const DeviceSnapshot& device, const lyd_node* running) {
  const EditedSnapshot edited(device, running);
  const CurrentDevice current(edited);
  const EntryFilter all;
  const RecordSinks none;
  NativeReader reader(module, openconfig_paths, YFW_REQUEST_READ_CONFIG, all, none);
  const NativeSelection named(edit);
  std::vector<std::string> sentences;
  for (const NativeSelection::Node* top : named.tops()) {
    const lyd_node* data = find_top(running, top->schema);
    if (data == nullptr) {
      continue;
    }
    for (const std::string& failure : reader.read_by_entry(data, top)) {
      sentences.push_back("native " + failure + "; after this edit the configuration cannot be read");
    }
  }
  return sentences;
}

}  // namespace oclacp::host
