// What a module made of native data, as libyang's tree of the OpenConfig side.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/trees/output_log.h"
#include "host/yang/libyang_ptr.h"

namespace oclacp::host {

// Collects the output of any number of walks into one tree: what two of them say of the same list entry stands in one.
// A walk's output is a log whose sources are null. Linear in the logs.
class AnswerTree {
 public:
  // `context`: the OpenConfig side's; outlives this.
  explicit AnswerTree(const ly_ctx* context) : context_(context) {}

  // Adds the output of a walk. Of several values for one leaf the last of a walk counts, and that of an earlier walk
  // before that of a later one. A list entry that never got its keys is left out with all that is in it. The leaf that
  // a key of configuration refers to is added with the entry: natively the name is kept once, so it is there as soon as
  // the entry is. Throws Error when a value is not of its leaf's type; this is as it was before then.
  void add(const OutputLog& log);

  // How many leaves were left out with entries that never got their keys.
  [[nodiscard]] size_t dropped_leaves() const { return dropped_leaves_; }

  // The paths of leaves that were left out because the module reported an empty value, which their types do not take:
  // what the device says there has no form in OpenConfig.
  [[nodiscard]] const std::vector<std::string>& valueless() const { return valueless_; }

  // The first of the top nodes; null when there are none. This is empty afterwards.
  TreePtr take() { return std::move(top_); }

 private:
  // A list entry of the answer, with what it is found by: the node above it, the list and the keys.
  using Entry = std::pair<const std::string, lyd_node*>;

  // A leaf of the log, and the answer's node that it belongs below; null for the top.
  struct Leaf {
    lyd_node* above;
    const OutputLog::Addition* addition;
  };

  void ensure_parents(const OutputLog& log, const OutputLog::Addition& addition);
  lyd_node* find_or_create(const OutputLog& log, const lysc_node* schema, int entry);
  lyd_node* find_or_add_entry(const OutputLog& log, const OutputLog::Entry& entry);
  lyd_node* find_or_add_inner(lyd_node* above, const lysc_node* schema);
  void add_leaf(lyd_node* above, const lysc_node* schema, const char* value);
  const lysc_node* key_target(const lysc_node* list);
  [[noreturn]] void refuse(const lyd_node* above, const lysc_node* schema) const;
  void insert_top(lyd_node* made);
  void roll_back();

  const ly_ctx* context_;
  TreePtr top_;
  std::unordered_map<std::string, lyd_node*> entries_;
  std::unordered_map<const lysc_node*, const lysc_node*> key_targets_;  // by the list; null where there is none
  // Of the log that is added.
  std::vector<lyd_node*> node_of_entry_;  // by the entry's number in the log; null before its first use
  std::vector<const Entry*> new_entries_;
  std::vector<lyd_node*> made_;
  std::vector<Leaf> leaves_;
  size_t dropped_leaves_ = 0;
  std::vector<std::string> valueless_;
};

}  // namespace oclacp::host
