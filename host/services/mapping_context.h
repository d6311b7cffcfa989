// What the framework keeps for one request: the record behind a yfw_map_ctx and all that hangs off it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/base/contract.h"
#include "host/base/error.h"
#include "host/trees/output_log.h"

namespace oclacp::host {

// One request while a module walks it. The contract's record is its base, so that the handle leads back to it. Used by
// one thread at a time.
class MappingContext final : public yfw_map_ctx_record {
 public:
  // `operation` is a YFW_REQUEST_* code; `output` collects what the module adds. Logging is off.
  MappingContext(uint32_t operation, OutputLog& output);
  ~MappingContext();
  MappingContext(const MappingContext&) = delete;
  MappingContext& operator=(const MappingContext&) = delete;
  MappingContext(MappingContext&&) = delete;
  MappingContext& operator=(MappingContext&&) = delete;

  static MappingContext& of(yfw_map_ctx ctx) { return *static_cast<MappingContext*>(ctx); }

  [[nodiscard]] bool is_edit() const;

  // The tree that is passed to a walker as its output.
  yfw_datatree* output_root() { return &output_root_; }
  OutputLog& output() { return output_; }
  // What stands for the current output list entry where a module is handed one. Additions are placed by their paths
  // (output_log.h), so one record serves all entries.
  yfw_datatree* current_entry() { return &current_entry_; }

  // Position in the request.
  void enter(const yfw_datatree* node);
  void leave();
  void enter_list(std::string_view list_path);

  // The current position; null before the first node.
  [[nodiscard]] const yfw_datatree* position() const { return positions_.empty() ? nullptr : positions_.back().node; }

  // The node that was entered last, left or not; null when none was.
  [[nodiscard]] const yfw_datatree* last_entered() const { return last_entered_; }

  // The value of a leaf of the innermost entered list entry or container that `path` names or leads into; null when
  // there is none. `path` is absolute and without keys.
  [[nodiscard]] const char* find_leaf(std::string_view path, std::string_view leaf) const;

  std::vector<yfw_itree_entry>& itree() { return itree_; }

  // An error is marked at the current position. Only the first is kept, and none that is marked under a whole-subtree
  // expansion, as errors there are ignored.
  void mark_error();
  // Where; null when none was kept.
  [[nodiscard]] const yfw_datatree* marked_node() const { return marked_node_; }

  // The host's own refusal of something that the module asked for, with the reason. Only the first is kept. The request
  // fails even if the module ignores it.
  struct Refused {
    const yfw_datatree* node;
    ErrorKind kind;
    std::string reason;
  };
  void refuse(const yfw_datatree* node, ErrorKind kind, std::string reason);
  [[nodiscard]] const std::optional<Refused>& refused() const { return refused_; }

 private:
  struct Position {
    const yfw_datatree* node;
    size_t list_depth;  // of the output when the node was entered
  };

  yfw_request_descriptor descriptor_{};
  yfw_request_state state_{};
  OutputLog& output_;
  yfw_datatree output_root_{};
  yfw_datatree current_entry_{};
  std::vector<Position> positions_;
  std::vector<yfw_itree_entry> itree_;
  const yfw_datatree* last_entered_ = nullptr;
  const yfw_datatree* marked_node_ = nullptr;
  std::optional<Refused> refused_;
};

}  // namespace oclacp::host
