#include "host/trees/answer_builder.h"

#include <algorithm>
#include <functional>

#include "host/base/error.h"
#include "host/yang/key_reference.h"
#include "host/yang/path_text.h"

namespace oclacp::host {
namespace {

constexpr size_t kFewestSlots = 64;

// The path of a node of the log. `entry` is the innermost list entry that it is in, or is.
std::string path_of(const OutputLog& log, const lysc_node* schema, int entry) {
  const OutputLog::Entry* own = nullptr;
  if (entry != OutputLog::kNoEntry && log.entries()[static_cast<size_t>(entry)].list == schema) {
    own = &log.entries()[static_cast<size_t>(entry)];
  }
  const lysc_node* parent = lysc_data_parent(schema);
  std::string path = parent == nullptr ? "" : path_of(log, parent, own == nullptr ? entry : own->parent);
  append_step(path, *schema, parent == nullptr ? nullptr : parent->module);
  const lysc_node* key = lysc_node_child(schema);
  for (size_t index = 0; own != nullptr && index < own->keys.size(); ++index, key = key->next) {
    append_predicate(path, key->name, own->keys[index]);
  }
  return path;
}

}  // namespace

void AnswerBuilder::add(const OutputLog& log) {
  log_entries_.assign(log.entries().size(), {});
  keys_.clear();
  leaves_.clear();
  last_parent_ = NodeShape::kTop;
  last_entry_ = OutputLog::kNoEntry;
  last_place_ = AnswerData::kRoot;
  const size_t dropped_before = dropped_leaves_;
  const uint64_t texts_before = answer_.texts().end();
  try {
    for (const OutputLog::Addition& addition : log.additions()) {
      check_leaf(log, addition);
    }
  } catch (const Error&) {
    answer_.texts().roll_back(texts_before);
    dropped_leaves_ = dropped_before;
    throw;
  }
  size_t leaf = 0;
  for (const OutputLog::Addition& addition : log.additions()) {
    const Index place = ensure_parents(log, addition);
    if (leaf < leaves_.size() && leaves_[leaf].addition == &addition) {
      leaves_[leaf++].above = place;
    }
  }
  // Backwards, because the last of several values counts.
  for (auto added = leaves_.rbegin(); added != leaves_.rend(); ++added) {
    set_leaf(log, *added);
  }
}

// Checks what an addition needs: the keys of the entries around it, and the value of a leaf.
void AnswerBuilder::check_leaf(const OutputLog& log, const OutputLog::Addition& addition) {
  const Target& target = *addition.target;
  if (addition.entry != OutputLog::kNoEntry && check_entry(log, addition.entry).is_left_out) {
    dropped_leaves_ += target.is_leaf() ? 1 : 0;
    return;
  }
  if (target.is_key() || !target.is_leaf()) {
    return;
  }
  const std::string_view text = addition.has_value ? addition.value : "";
  const CheckedValue* value = values_.check(target.schema, text);
  // A converter that has no value for what the device says reports an empty one.
  if (value == nullptr && !text.empty()) {
    throw node_error(ErrorKind::kInvalidValue, path_of(log, target.schema, addition.entry), values_.reason());
  }
  leaves_.push_back(
      {&addition, &shape_of(target), value == nullptr ? std::nullopt : std::optional(answer_.keep(*value))});
}

const AnswerBuilder::Entry& AnswerBuilder::check_entry(const OutputLog& log, int number) {
  Entry& entry = log_entries_[static_cast<size_t>(number)];
  if (!entry.is_checked) {
    entry.is_checked = true;
    const OutputLog::Entry& opened = log.entries()[static_cast<size_t>(number)];
    entry.is_left_out =
        !opened.has_keys() || (opened.parent != OutputLog::kNoEntry && check_entry(log, opened.parent).is_left_out);
    if (!entry.is_left_out) {
      check_keys(log, number, entry);
    }
  }
  return entry;
}

void AnswerBuilder::check_keys(const OutputLog& log, int number, Entry& entry) {
  const OutputLog::Entry& opened = log.entries()[static_cast<size_t>(number)];
  const lysc_node* key = lysc_node_child(opened.list);
  entry.first_key = keys_.size();
  for (const std::string_view text : opened.keys) {
    const CheckedValue* value = values_.check(key, text);
    if (value == nullptr) {
      const lysc_node* parent = lysc_data_parent(opened.list);
      std::string path = parent == nullptr ? "" : path_of(log, parent, opened.parent);
      append_step(path, *opened.list, parent == nullptr ? nullptr : parent->module);
      throw node_error(ErrorKind::kInvalidValue, path, values_.reason());
    }
    keys_.push_back(answer_.keep(*value));
    key = key->next;
  }
  if (const NodeShape* target = key_target(shapes_.of(opened.list)); target != nullptr) {
    const CheckedValue* value = values_.check(target->schema, opened.keys.front());
    if (value == nullptr) {
      throw node_error(ErrorKind::kInvalidValue, path_of(log, target->schema, number), values_.reason());
    }
    entry.target = answer_.keep(*value);
  }
}

// The leaf of configuration that a list's key refers to, one container below the entry.
const NodeShape* AnswerBuilder::key_target(const NodeShape& list) {
  const auto [place, is_new] = key_targets_.emplace(&list, nullptr);
  const lysc_node* key = lysc_node_child(list.schema);
  if (is_new && key != nullptr && lysc_is_key(key)) {
    const lysc_node* leaf = leaf_of_key(key);
    if (leaf != nullptr && leaf->parent->parent == list.schema && (leaf->flags & LYS_CONFIG_W) != 0) {
      place->second = &shapes_.of(leaf);
    }
  }
  return place->second;
}

const NodeShape& AnswerBuilder::shape_of(const Target& target) {
  if (target.number >= shapes_by_target_.size()) {
    shapes_by_target_.resize(target.number + 1);
  }
  const NodeShape*& shape = shapes_by_target_[target.number];
  if (shape == nullptr) {
    shape = &shapes_.of(target.schema);
  }
  return *shape;
}

// Makes the entries and containers that an addition names or lies in. The node that a leaf belongs below.
AnswerBuilder::Index AnswerBuilder::ensure_parents(const OutputLog& log, const OutputLog::Addition& addition) {
  if (addition.entry != OutputLog::kNoEntry && log_entries_[static_cast<size_t>(addition.entry)].is_left_out) {
    return AnswerData::kRoot;
  }
  const NodeShape& shape = shape_of(*addition.target);
  if (!shape.is_leaf) {
    return find_or_create(log, shape, addition.entry);
  }
  // The leaves of a container mostly follow each other.
  if (last_parent_ != shape.parent || last_entry_ != addition.entry) {
    last_parent_ = shape.parent;
    last_entry_ = addition.entry;
    last_place_ = shape.parent == NodeShape::kTop ? AnswerData::kRoot
                                                  : find_or_create(log, shapes_.at(shape.parent), addition.entry);
  }
  return last_place_;
}

// The answer's node for a container or list entry, made with what is above it when it is not there. `entry` is the
// log's innermost entry around it, or for it.
AnswerBuilder::Index AnswerBuilder::find_or_create(const OutputLog& log, const NodeShape& shape, int entry) {
  if (shape.is_list) {
    Index& node = log_entries_[static_cast<size_t>(entry)].node;
    if (node == AnswerData::kRoot) {
      node = find_or_create_entry(log, shape, entry);
    }
    return node;
  }
  const Index above =
      shape.parent == NodeShape::kTop ? AnswerData::kRoot : find_or_create(log, shapes_.at(shape.parent), entry);
  return answer_.find_or_add(above, shape);
}

AnswerBuilder::Index AnswerBuilder::find_or_create_entry(const OutputLog& log, const NodeShape& list, int number) {
  const OutputLog::Entry& opened = log.entries()[static_cast<size_t>(number)];
  const Entry& entry = log_entries_[static_cast<size_t>(number)];
  const Index above =
      list.parent == NodeShape::kTop ? AnswerData::kRoot : find_or_create(log, shapes_.at(list.parent), opened.parent);
  const Index group = answer_.find_or_add(above, list);
  const std::span keys = std::span(keys_).subspan(entry.first_key, opened.keys.size());
  Slot& slot = find_slot(group, keys);
  if (slot.entry != AnswerData::kRoot && !keys.empty()) {
    return slot.entry;
  }
  const Index made = answer_.append(group);
  if (!keys.empty()) {
    slot = {group, made};
    ++entries_;
  }
  const lysc_node* key = lysc_node_child(list.schema);
  for (const StoredValue& value : keys) {
    answer_.set_value(answer_.find_or_add(made, shapes_.of(key)), value);
    key = key->next;
  }
  if (const NodeShape* target = key_target(list); target != nullptr) {
    const Index container = answer_.find_or_add(made, shapes_.at(target->parent));
    answer_.set_value(answer_.find_or_add(container, *target), entry.target);
  }
  return made;
}

void AnswerBuilder::set_leaf(const OutputLog& log, const Leaf& leaf) {
  if (!leaf.value) {
    if (answer_.find(leaf.above, *leaf.shape) == AnswerData::kRoot) {
      valueless_.push_back(path_of(log, leaf.shape->schema, leaf.addition->entry));
    }
    return;
  }
  const size_t size_before = answer_.size();
  Index node = answer_.find_or_add(leaf.above, *leaf.shape);
  if (answer_.size() == size_before) {
    return;
  }
  if (leaf.shape->is_list) {
    node = answer_.append(node);
  }
  answer_.set_value(node, *leaf.value);
}

// The slot of an entry, or the empty one that it belongs in.
AnswerBuilder::Slot& AnswerBuilder::find_slot(Index group, std::span<const StoredValue> keys) {
  if (entries_ * 2 >= slots_.size()) {
    grow_slots();
  }
  size_t place = hash_keys(group, keys) % slots_.size();
  while (slots_[place].entry != AnswerData::kRoot &&
         (slots_[place].group != group || !has_keys(slots_[place].entry, keys))) {
    place = (place + 1) % slots_.size();
  }
  return slots_[place];
}

void AnswerBuilder::grow_slots() {
  std::vector<Slot> old(std::max(kFewestSlots, slots_.size() * 2));
  old.swap(slots_);
  for (const Slot& slot : old) {
    if (slot.entry == AnswerData::kRoot) {
      continue;
    }
    keys_of_entry_.clear();
    for (Index key = answer_.first(slot.entry); key != AnswerData::kRoot && lysc_is_key(answer_.shape(key).schema);
         key = answer_.next(key)) {
      keys_of_entry_.push_back(answer_.stored_value(key));
    }
    size_t place = hash_keys(slot.group, keys_of_entry_) % slots_.size();
    while (slots_[place].entry != AnswerData::kRoot) {
      place = (place + 1) % slots_.size();
    }
    slots_[place] = slot;
  }
}

size_t AnswerBuilder::hash_keys(Index group, std::span<const StoredValue> keys) const {
  size_t hash = group;
  for (const StoredValue& key : keys) {
    hash = hash * 31 + std::hash<std::string_view>{}(answer_.text(key));
  }
  return hash;
}

bool AnswerBuilder::has_keys(Index entry, std::span<const StoredValue> keys) const {
  Index leaf = answer_.first(entry);
  for (const StoredValue& key : keys) {
    if (answer_.value(leaf).text != answer_.text(key)) {
      return false;
    }
    leaf = answer_.next(leaf);
  }
  return true;
}

}  // namespace oclacp::host
