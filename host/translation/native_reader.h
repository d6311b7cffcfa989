// NativeReader: native data becomes an OpenConfig answer.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "host/translation/mapping_module.h"
#include "host/translation/run_walker.h"
#include "host/translation/translator.h"
#include "host/trees/answer_tree.h"
#include "host/trees/native_selection.h"
#include "host/trees/native_tree.h"
#include "host/trees/schema_index.h"

namespace oclacp::host {

// The entries of an OpenConfig list that a read is about.
struct EntryFilter {
  const lysc_node* list = nullptr;  // null: nothing is left out
  std::unordered_set<std::string_view> keys;
};

// Those of the first list of a request, when it names each by its key. `request` is the top node and outlives them.
EntryFilter make_entry_filter(const yfw_datatree* request);

// Walks native trees one after the other and collects what they come to. Used with a device installed.
//
// A tree is walked in parts, so that what is made for a walk stays small beside the data.
class NativeReader {
 public:
  // `operation` is the code of a read; `paths` are those of the OpenConfig side. Native list entries that come to
  // entries of the OpenConfig list, but to none of `wanted`, are left out. All outlive this.
  NativeReader(const MappingModule& module, SchemaIndex& paths, uint32_t operation, const EntryFilter& wanted,
               const RecordSinks& sinks)
      : module_(module),
        paths_(paths),
        operation_(operation),
        wanted_(wanted),
        sinks_(sinks),
        answer_(paths.context()) {}

  // Reads one native top node, or what is selected of it; a tree that no mapping serves comes to nothing. Throws
  // Error when something in it cannot be translated, which ends the walk of the whole tree.
  void read(const lyd_node* data, const NativeSelection::Node* selected);

  // The same entry by entry, so that one that cannot be translated costs no other. Answers why each of them could not.
  std::vector<std::string> read_by_entry(const lyd_node* data, const NativeSelection::Node* selected);

  // Hands over what was read. Called once.
  void finish(Answer& answer);

 private:
  std::vector<std::string> read_parts(const lyd_node* data, const NativeSelection::Node* selected,
                                      size_t branches_in_part, bool stops_at_failure);
  [[nodiscard]] bool is_unwanted(const NativeParts& parts, size_t branch, yfw_map_walker walker) const;
  std::optional<std::string> walk(yfw_map_walker walker, const yfw_datatree* top);

  const MappingModule& module_;
  SchemaIndex& paths_;
  uint32_t operation_;
  const EntryFilter& wanted_;
  const RecordSinks& sinks_;
  AnswerTree answer_;
};

}  // namespace oclacp::host
