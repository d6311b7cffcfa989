#include "host/trees/answer_tree.h"

#include <cstdlib>
#include <memory>

#include "host/base/error.h"
#include "host/trees/node_key.h"
#include "host/yang/key_reference.h"
#include "host/yang/path_text.h"

namespace oclacp::host {
namespace {

// Nodes stand below few others except for list entries, which are not looked for here.
lyd_node* find_among(lyd_node* siblings, const lysc_node* schema) {
  while (siblings != nullptr && siblings->schema != schema) {
    siblings = siblings->next;
  }
  return siblings;
}

bool is_left_out(const OutputLog& log, int entry) {
  while (entry != OutputLog::kNoEntry) {
    const OutputLog::Entry& opened = log.entries()[static_cast<size_t>(entry)];
    if (!opened.has_keys()) {
      return true;
    }
    entry = opened.parent;
  }
  return false;
}

std::string path_of(const lyd_node* above, const lysc_node* schema) {
  const std::unique_ptr<char, decltype(&std::free)> printed(
      above == nullptr ? nullptr : lyd_path(above, LYD_PATH_STD, nullptr, 0), &std::free);
  std::string path = printed == nullptr ? "" : printed.get();
  append_step(path, *schema, above == nullptr ? nullptr : above->schema->module);
  return path;
}

// Whether a value is a number in the form that libyang would bring it to.
bool is_canonical_number(const lysc_node* schema, std::string_view value) {
  switch (reinterpret_cast<const lysc_node_leaf*>(schema)->type->basetype) {
    case LY_TYPE_UINT8:
    case LY_TYPE_UINT16:
    case LY_TYPE_UINT32:
    case LY_TYPE_UINT64:
      return value == "0" || (!value.starts_with('0') && !value.empty() &&
                              value.find_first_not_of("0123456789") == std::string_view::npos);
    default:
      return false;
  }
}

// A new leaf; libyang's complaint when the value is not of its type. Nearly all that a device counts is canonical, and
// need not be printed for it.
LY_ERR make_leaf(lyd_node* above, const lysc_node* schema, const char* value, lyd_node** made) {
  const auto make = is_canonical_number(schema, value) ? lyd_new_term_canon : lyd_new_term;
  return make(above, schema->module, schema->name, value, 0, made);
}

}  // namespace

void AnswerTree::add(const OutputLog& log) {
  node_of_entry_.assign(log.entries().size(), nullptr);
  leaves_.clear();
  new_entries_.clear();
  made_.clear();
  const size_t dropped_before = dropped_leaves_;
  const size_t valueless_before = valueless_.size();
  try {
    for (const OutputLog::Addition& addition : log.additions()) {
      ensure_parents(log, addition);
    }
    // Backwards, because libyang looks for the place of a new node among those that the schema has behind it: mostly
    // the next one is already there then.
    for (auto leaf = leaves_.rbegin(); leaf != leaves_.rend(); ++leaf) {
      add_leaf(leaf->above, leaf->addition->target->schema,
               leaf->addition->has_value ? leaf->addition->value.data() : "");
    }
  } catch (const Error&) {
    roll_back();
    dropped_leaves_ = dropped_before;
    valueless_.resize(valueless_before);
    throw;
  }
}

// Makes the entries and containers that an addition names or lies in; leaves are noted.
void AnswerTree::ensure_parents(const OutputLog& log, const OutputLog::Addition& addition) {
  const lysc_node* schema = addition.target->schema;
  if (is_left_out(log, addition.entry)) {
    dropped_leaves_ += addition.target->is_leaf() ? 1 : 0;
    return;
  }
  if (addition.target->is_key() || !addition.target->is_leaf()) {
    find_or_create(log, addition.target->is_key() ? addition.target->lists.back() : schema, addition.entry);
    return;
  }
  // The leaves of a container mostly follow each other.
  const lysc_node* container = lysc_data_parent(schema);
  const bool is_same = !leaves_.empty() && leaves_.back().addition->entry == addition.entry &&
                       lysc_data_parent(leaves_.back().addition->target->schema) == container;
  leaves_.push_back({is_same ? leaves_.back().above : find_or_create(log, container, addition.entry), &addition});
}

// The answer's node for a container or list, made with what is above it when it is not there. `entry` is the log's
// innermost entry around it, or for it. Null above the top.
lyd_node* AnswerTree::find_or_create(const OutputLog& log, const lysc_node* schema, int entry) {
  if (schema == nullptr) {
    return nullptr;
  }
  if (schema->nodetype != LYS_LIST) {
    return find_or_add_inner(find_or_create(log, lysc_data_parent(schema), entry), schema);
  }
  lyd_node*& node = node_of_entry_[static_cast<size_t>(entry)];
  if (node == nullptr) {
    node = find_or_add_entry(log, log.entries()[static_cast<size_t>(entry)]);
  }
  return node;
}

lyd_node* AnswerTree::find_or_add_entry(const OutputLog& log, const OutputLog::Entry& entry) {
  lyd_node* above = find_or_create(log, lysc_data_parent(entry.list), entry.parent);
  const auto [place, is_new] = entries_.emplace(node_key(above, entry.list, entry.keys), nullptr);
  if (!is_new) {
    return place->second;
  }
  // The function takes as many keys as the list has; the OpenConfig lists have one.
  if (entry.keys.size() != 1 || lyd_new_list(above, entry.list->module, entry.list->name, 0, &place->second,
                                             entry.keys.front().data()) != LY_SUCCESS) {
    entries_.erase(place);
    refuse(above, entry.list);
  }
  if (above == nullptr) {
    insert_top(place->second);
  }
  new_entries_.push_back(&*place);
  made_.push_back(place->second);
  if (const lysc_node* target = key_target(entry.list); target != nullptr) {
    add_leaf(find_or_add_inner(place->second, target->parent), target, entry.keys.front().data());
  }
  return place->second;
}

// The leaf of configuration that a list's key refers to, one container below the entry.
const lysc_node* AnswerTree::key_target(const lysc_node* list) {
  const auto [place, is_new] = key_targets_.emplace(list, nullptr);
  if (!is_new) {
    return place->second;
  }
  const lysc_node* leaf = leaf_of_key(lysc_node_child(list));
  if (leaf != nullptr && leaf->parent->parent == list && (leaf->flags & LYS_CONFIG_W) != 0) {
    place->second = leaf;
  }
  return place->second;
}

lyd_node* AnswerTree::find_or_add_inner(lyd_node* above, const lysc_node* schema) {
  lyd_node* node = find_among(above == nullptr ? top_.get() : lyd_child(above), schema);
  if (node != nullptr) {
    return node;
  }
  if (lyd_new_inner(above, schema->module, schema->name, 0, &node) != LY_SUCCESS) {
    refuse(above, schema);
  }
  made_.push_back(node);
  if (above == nullptr) {
    insert_top(node);
  }
  return node;
}

void AnswerTree::add_leaf(lyd_node* above, const lysc_node* schema, const char* value) {
  lyd_node* leaf = find_among(above == nullptr ? top_.get() : lyd_child(above), schema);
  if (leaf != nullptr) {
    return;
  }
  if (make_leaf(above, schema, value, &leaf) != LY_SUCCESS) {
    // A converter that has no value for what the device says reports an empty one.
    if (value[0] == '\0') {
      valueless_.push_back(path_of(above, schema));
      return;
    }
    refuse(above, schema);
  }
  made_.push_back(leaf);
  if (above == nullptr) {
    insert_top(leaf);
  }
}

void AnswerTree::insert_top(lyd_node* made) {
  lyd_node* first = top_.release();
  lyd_insert_sibling(first, made, &first);
  top_.reset(first);
}

void AnswerTree::refuse(const lyd_node* above, const lysc_node* schema) const {
  throw Error(path_of(above, schema) + ": " + last_reason(context_));
}

// What is inside of something was made after it.
void AnswerTree::roll_back() {
  for (const Entry* entry : new_entries_) {
    entries_.erase(std::string(entry->first));
  }
  for (auto node = made_.rbegin(); node != made_.rend(); ++node) {
    if (*node == top_.get()) {
      lyd_node* next = (*node)->next;
      static_cast<void>(top_.release());
      top_.reset(next);
    }
    lyd_free_tree(*node);
  }
}

}  // namespace oclacp::host
