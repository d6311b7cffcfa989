// An output log folded into one tree that does the same when it is applied.
#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/trees/output_log.h"

namespace oclacp::host {

// One node of an edit.
struct EditNode {
  const lysc_node* schema = nullptr;     // null for the root above the top nodes
  const yfw_datatree* source = nullptr;  // the node of the request that it originates from, for complaints
  EditNode* parent = nullptr;
  std::vector<EditNode*> children;          // containers and leaves, in order of first mention; null where one went
  std::vector<EditNode*> entries;           // list entries, the same
  size_t slot = 0;                          // place among the parent's children or entries
  std::vector<std::string_view> keys;       // of a list entry, in the schema's order
  std::string_view value;                   // of a leaf that is set
  uint32_t operation = YFW_OPERATION_NONE;  // YFW_OPERATION_*; none merges
  bool is_set = false;                      // a leaf that is set, not only named
};

// The additions of a log in their order, with their result:
// - a later entry with the same keys is the same entry;
// - a set after a delete of the same leaf is a set;
// - a set inside of what was deleted replaces it by what came after the delete;
// - a delete after a set deletes, and does not fail when there was nothing;
// - a delete inside of what is deleted or replaced leaves nothing to do.
// Lives no longer than the log. Linear in the log.
class EditTree {
 public:
  explicit EditTree(const OutputLog& log);

  [[nodiscard]] const EditNode& root() const { return nodes_.front(); }

  // Entries that never got their keys, and are left out with all that is in them.
  [[nodiscard]] size_t dropped_entries() const { return dropped_; }

 private:
  void apply(const OutputLog::Addition& addition);
  void set(const OutputLog::Addition& addition);
  void erase(const OutputLog::Addition& addition);
  [[nodiscard]] bool is_dropped(int entry) const;
  EditNode* find(const OutputLog::Addition& addition, bool create);
  EditNode* entry_node(EditNode* above, int entry, bool create);
  EditNode* child_node(EditNode* above, const lysc_node* schema, bool create);
  EditNode* add_child(EditNode* above, const lysc_node* schema);
  static void detach(EditNode* node);
  static void clear(EditNode* node);

  const OutputLog& log_;
  std::deque<EditNode> nodes_;
  // A detached node has no parent, and is not used again.
  std::vector<EditNode*> node_of_entry_;  // by the entry's number in the log; null before its first use
  std::unordered_map<std::string, EditNode*> node_of_keys_;  // by the node above, the list and the keys
  size_t dropped_ = 0;
};

}  // namespace oclacp::host
