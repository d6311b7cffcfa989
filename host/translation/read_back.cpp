#include "host/translation/read_back.h"

#include "host/base/error.h"
#include "host/devices/edited_snapshot.h"
#include "host/services/current_device.h"
#include "host/translation/native_reader.h"
#include "host/trees/native_selection.h"

namespace oclacp::host {
namespace {

const lyd_node* find_top(const lyd_node* tops, const lysc_node* schema) {
  while (tops != nullptr && tops->schema != schema) {
    tops = tops->next;
  }
  return tops;
}

}  // namespace

std::vector<std::string> read_back(LoadedMapping& mapping, const OutputLog& edit, const DeviceSnapshot& device,
                                   const lyd_node* running) {
  const EditedSnapshot edited(device, running);
  const CurrentDevice current(edited);
  const EntryFilter all;
  const RecordSinks none;
  NativeReader reader(mapping.openconfig, YFW_REQUEST_READ_CONFIG, none, NativeReader::OnFailure::kLeaveOut);
  const NativeSelection named(edit);
  for (const MappingModule& module : mapping.modules) {
    if (module.is_offered()) {
      reader.use(module, all);
      for (const NativeSelection::Node* top : named.tops()) {
        reader.read(find_top(running, top->schema), top);
      }
    }
  }
  Answer answer;
  reader.finish(answer);
  std::vector<std::string> sentences;
  sentences.reserve(answer.failures.size());
  for (const Error& failure : answer.failures) {
    sentences.push_back(std::string("native ") + failure.what() + "; after this edit the configuration cannot be read");
  }
  return sentences;
}

}  // namespace oclacp::host
