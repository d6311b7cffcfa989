// From what a module adds for native data to the OpenConfig answer.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/trees/answer_data.h"
#include "host/trees/output_log.h"
#include "host/trees/tree_context.h"

namespace oclacp::host {

// Collects the output of any number of walks into one answer: what two of them say of the same list entry stands in
// one. A walk's output is a log whose sources are null. Linear in the logs.
class AnswerBuilder {
 public:
  // `context` outlives this and the answer.
  explicit AnswerBuilder(TreeContext& context)
      : shapes_(context.shapes), values_(context.values), answer_(context.shapes) {}

  // Adds the output of a walk. Of several values for one leaf the last of a walk counts, and that of an earlier walk
  // before that of a later one. A list entry that never got its keys is left out with all that is in it. The leaf that
  // a key of configuration refers to is added with the entry: natively the name is kept once, so it is there as soon as
  // the entry is. Throws Error when a value is not of its leaf's type; all values are checked before something is
  // added, so this is as it was before then.
  void add(const OutputLog& log);

  // How many leaves were left out with entries that never got their keys.
  [[nodiscard]] size_t dropped_leaves() const { return dropped_leaves_; }

  // The paths of leaves that were left out because the module reported an empty value, which their types do not take:
  // what the device says there has no form in OpenConfig.
  [[nodiscard]] const std::vector<std::string>& valueless() const { return valueless_; }

  // Hands over the answer. Called once, at the end.
  AnswerData take() { return std::move(answer_); }

 private:
  using Index = AnswerData::Index;
  using StoredValue = AnswerData::StoredValue;

  // What is known of an entry of the log that is added.
  struct Entry {
    bool is_checked = false;
    bool is_left_out = false;
    size_t first_key = 0;  // in keys_
    StoredValue target;    // of the leaf that the key refers to
    Index node = AnswerData::kRoot;
  };

  // A leaf of the log with its value; none when its type does not take the empty text.
  struct Leaf {
    const OutputLog::Addition* addition;
    const NodeShape* shape;
    std::optional<StoredValue> value;
    Index above = AnswerData::kRoot;
  };

  // An entry of the answer, found by its group and its keys.
  struct Slot {
    Index group = AnswerData::kRoot;
    Index entry = AnswerData::kRoot;
  };

  void check_leaf(const OutputLog& log, const OutputLog::Addition& addition);
  const Entry& check_entry(const OutputLog& log, int number);
  void check_keys(const OutputLog& log, int number, Entry& entry);
  Index ensure_parents(const OutputLog& log, const OutputLog::Addition& addition);
  Index find_or_create(const OutputLog& log, const NodeShape& shape, int entry);
  Index find_or_create_entry(const OutputLog& log, const NodeShape& list, int number);
  void set_leaf(const OutputLog& log, const Leaf& leaf);
  Slot& find_slot(Index group, std::span<const StoredValue> keys);
  void grow_slots();
  [[nodiscard]] size_t hash_keys(Index group, std::span<const StoredValue> keys) const;
  [[nodiscard]] bool has_keys(Index entry, std::span<const StoredValue> keys) const;
  const NodeShape& shape_of(const Target& target);
  const NodeShape* key_target(const NodeShape& list);

  NodeShapes& shapes_;
  ValueCheck& values_;
  AnswerData answer_;
  std::vector<Slot> slots_;  // a hash table, probed one by one
  size_t entries_ = 0;
  std::vector<const NodeShape*> shapes_by_target_;  // by the target's number; null before its first use
  std::unordered_map<const NodeShape*, const NodeShape*> key_targets_;  // by the list; null where there is none
  // Of the log that is added.
  std::vector<Entry> log_entries_;
  std::vector<StoredValue> keys_;
  std::vector<StoredValue> keys_of_entry_;
  std::vector<Leaf> leaves_;
  // Where the leaves of the last container belong.
  uint32_t last_parent_ = NodeShape::kTop;
  int last_entry_ = OutputLog::kNoEntry;
  Index last_place_ = AnswerData::kRoot;
  size_t dropped_leaves_ = 0;
  std::vector<std::string> valueless_;
};

}  // namespace oclacp::host
