// The output tree of a walk: the nodes that a module adds, in the order in which it adds them. An edit's are native
// nodes; so are those of a read, which it asks for; those of native data are OpenConfig's.
//
// A module names list entries by opening them: it adds the list with the list flag, and then the keys like any other
// leaf. For each list the log therefore knows the entry that is current. An entry is closed when the next input
// entry begins, so that two input entries never share one, and a leaf that follows a skipped entry does not land in its
// neighbour.
#pragma once

#include <functional>
#include <memory_resource>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/base/contract.h"
#include "host/trees/schema_index.h"

namespace oclacp::host {

class OutputLog {
 public:
  static constexpr int kNoEntry = -1;

  // One added node. Texts live as long as the log.
  struct Addition {
    const Target* target;
    const yfw_datatree* source;  // the node of the request that it originates from; null in reads
    int entry;                   // the innermost list entry that it is in, or that it is; kNoEntry outside of lists
    bool has_value;
    std::string_view value;
    uint32_t operation;  // YFW_OPERATION_*, as an edit of the native data
  };

  // One opened list entry.
  struct Entry {
    const lysc_node* list;
    int parent;                          // the entry of the list around it
    std::vector<std::string_view> keys;  // in the schema's order; without data where the key has not come
    bool only_deletes = true;            // nothing in it originates from a node that adds
    [[nodiscard]] bool has_keys() const;
  };

  // `is_edit`: nodes take the operations of their sources, and leaves that are set need values. A value is judged by
  // its type only when the edit is built from the log (edit_printer.h), as libyang judges while it makes nodes. Reads
  // keep the request's values as they are.
  OutputLog(SchemaIndex& paths, bool is_edit) : paths_(paths), is_edit_(is_edit) {}

  // What yfw_map_datatree_add_path_flagged() does. Returns 0 or a code of base/status_text.h, with the reason in
  // complaint().
  cerrno add(std::string_view path, std::string_view ns, const char* value, const yfw_datatree* source,
             bool opens_entry);
  [[nodiscard]] const std::string& complaint() const { return complaint_; }

  // The next entry of the input list `list_path` begins: closes what was opened under the one before it.
  void enter_list(std::string_view list_path);
  // How many input lists are nested at this point, and going back to fewer: closes what was opened since.
  [[nodiscard]] size_t list_depth() const { return frames_.size(); }
  void leave_lists(size_t depth);
  // Closes the open entries of every output list that is inside of the list `list_path`.
  void close_lists_below(std::string_view list_path);

  // Forgets the additions of which `is_dropped` says so. The entries that they opened stay.
  void drop_if(const std::function<bool(const Addition&)>& is_dropped);

  [[nodiscard]] const std::vector<Addition>& additions() const { return additions_; }
  [[nodiscard]] const std::vector<Entry>& entries() const { return entries_; }

 private:
  // An input list, and the first output entry that was opened under its current entry.
  struct Frame {
    std::string list_path;
    int first_entry;
  };

  int current_entry(const Target& target, size_t depth);
  int open_entry(const Target& target, size_t depth);
  int entry_for_key(const Target& target, std::string_view value);
  void close_entries(int first);
  uint32_t operation_for(const Target& target, const char* value, const yfw_datatree* source) const;
  cerrno refuse(cerrno status, std::string_view path);
  std::string_view keep(std::string_view text);

  SchemaIndex& paths_;
  bool is_edit_;
  std::vector<Addition> additions_;
  std::vector<Entry> entries_;
  std::unordered_map<const lysc_node*, std::vector<int>> open_;  // for each list, the last one is current
  std::vector<Frame> frames_;
  std::pmr::monotonic_buffer_resource texts_;
  std::string complaint_;
};

}  // namespace oclacp::host
