// NativeReader: native data becomes an OpenConfig answer.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "host/base/error.h"
#include "host/translation/answer.h"
#include "host/translation/mapping_module.h"
#include "host/translation/run_walker.h"
#include "host/trees/answer_builder.h"
#include "host/trees/native_selection.h"
#include "host/trees/native_tree.h"
#include "host/trees/schema_index.h"
#include "host/yang/native_document.h"

namespace oclacp::host {

// The entries of an OpenConfig list that a read is about.
struct EntryFilter {
  const lysc_node* list = nullptr;  // null: nothing is left out
  std::unordered_set<std::string_view> keys;
};

// Those of the first list of a request, when it names each by its key. `request` is the top node and outlives them.
EntryFilter make_entry_filter(const yfw_datatree* request);

// Walks native trees one after the other and collects their results. Used with a device installed.
//
// A tree is walked in parts, so that what is made for a walk stays small beside the data.
class NativeReader {
 public:
  // What becomes of an entry that cannot be translated: it ends the walk of its tree, or is left out.
  enum class OnFailure { kStop, kLeaveOut };

  // `operation` is the code of a read; `context` is that of the OpenConfig side. All outlive this.
  NativeReader(TreeContext& context, uint32_t operation, const RecordSinks& sinks,
               OnFailure on_failure = OnFailure::kStop)
      : context_(context), operation_(operation), sinks_(sinks), on_failure_(on_failure), answer_(context) {}

  // What follows is read with this module. Native list entries that map to entries of the OpenConfig list, but to none
  // of `wanted`, are left out. Both outlive this.
  void use(const MappingModule& module, const EntryFilter& wanted) {
    module_ = &module;
    wanted_ = &wanted;
  }

  // Reads one native top node, or what is selected of it; null and a tree that no mapping serves have no effect. Throws
  // Error when something in it cannot be translated and is not left out.
  void read(const lyd_node* data, const NativeSelection::Node* selected);

  // The same for a top node of a document, in pieces. False when it has to be read whole, and by another reader then:
  // this one may have read a part of it. Entries that cannot be translated are told by the whole alone, unless they are
  // left out.
  [[nodiscard]] bool read_in_pieces(const NativeDocument& document, const lysc_node* top,
                                    const NativeSelection::Node* selected);

  // Hands over what was read, and why entries were left out. Called once.
  void finish(Answer& answer);

 private:
  bool read_parts(const NativeParts& parts, yfw_map_walker walker);
  [[nodiscard]] std::vector<bool> find_wanted(const NativeParts& parts, yfw_map_walker walker) const;
  [[nodiscard]] yfw_map_walker walker_of(const lysc_node* top) const;
  [[nodiscard]] bool is_unwanted(const NativeParts& parts, size_t branch, yfw_map_walker walker) const;
  std::optional<Error> walk(yfw_map_walker walker, const yfw_datatree* top);

  const MappingModule* module_ = nullptr;
  TreeContext& context_;
  uint32_t operation_;
  const EntryFilter* wanted_ = nullptr;
  const RecordSinks& sinks_;
  OnFailure on_failure_;
  AnswerBuilder answer_;
  std::vector<Error> failures_;
};

}  // namespace oclacp::host
