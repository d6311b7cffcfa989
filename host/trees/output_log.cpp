#include "host/trees/output_log.h"

#include <algorithm>
#include <cstring>

#include "host/base/status_text.h"
#include "host/trees/node.h"
#include "host/trees/operation.h"

namespace oclacp::host {
namespace {

bool is_empty_type(const lysc_node* leaf) {
  return reinterpret_cast<const lysc_node_leaf*>(leaf)->type->basetype == LY_TYPE_EMPTY;
}

// Whether `path` is a path below `list_path`.
bool is_below(std::string_view path, std::string_view list_path) {
  return path.size() > list_path.size() && path.starts_with(list_path) && path[list_path.size()] == '/';
}

}  // namespace

bool OutputLog::Entry::has_keys() const {
  return std::all_of(keys.begin(), keys.end(), [](std::string_view key) { return key.data() != nullptr; });
}

cerrno OutputLog::add(std::string_view path, std::string_view ns, const char* value, const yfw_datatree* source,
                      bool opens_entry) {
  const Target* target = paths_.find(path, ns);
  if (target == nullptr) {
    return refuse(kUnknownPath, path);
  }
  const uint32_t operation = operation_for(*target, value, source);
  if (is_edit_ && target->is_leaf() && value == nullptr && !deletes(operation) && !is_empty_type(target->schema)) {
    if (target->is_key() && is_deleted(source)) {
      return YFW_OK;  // a key says which entry, and this one says nothing
    }
    return refuse(kMissingValue, path);
  }
  const std::string_view text = value == nullptr ? std::string_view() : keep(value);
  int entry = kNoEntry;
  if (target->is_key() && value != nullptr) {
    entry = entry_for_key(*target, text);
  } else if (target->is_list() && opens_entry) {
    entry = open_entry(*target, target->lists.size());
  } else {
    entry = current_entry(*target, target->lists.size());
  }
  if (entry != kNoEntry && (source == nullptr || !is_deleted(source) || deletes(operation))) {
    entries_[static_cast<size_t>(entry)].only_deletes = false;
  }
  additions_.push_back({target, source, entry, value != nullptr, text, operation});
  return YFW_OK;
}

// Which operation a native node takes from its source. List entries and keys only say where something is: natively an
// entry holds more than the module knows of, so it is neither replaced nor created as a whole, and it is deleted only
// when the source itself, not something around it, says so.
uint32_t OutputLog::operation_for(const Target& target, const char* value, const yfw_datatree* source) const {
  if (!is_edit_ || source == nullptr || target.is_key()) {
    return YFW_OPERATION_NONE;
  }
  if (target.is_list()) {
    return deletes(source->operation) ? source->operation : uint32_t{YFW_OPERATION_NONE};
  }
  if (value == nullptr && is_deleted(source)) {
    return source->operation == YFW_OPERATION_DELETE ? YFW_OPERATION_DELETE : YFW_OPERATION_REMOVE;
  }
  const bool is_own = source->operation == YFW_OPERATION_REPLACE || source->operation == YFW_OPERATION_CREATE;
  return target.is_leaf() && is_own ? source->operation : uint32_t{YFW_OPERATION_NONE};
}

cerrno OutputLog::refuse(cerrno status, std::string_view path) {
  complaint_ = "native " + std::string(path) + ": " + status_text(status);
  return status;
}

std::string_view OutputLog::keep(std::string_view text) {
  // Never null, so that an empty text can be told from a missing one.
  auto* copy = static_cast<char*>(texts_.allocate(text.size() + 1, 1));
  std::memcpy(copy, text.data(), text.size());
  copy[text.size()] = '\0';
  return {copy, text.size()};
}

// The current entry of the first `depth` lists around a target; opens what is missing.
int OutputLog::current_entry(const Target& target, size_t depth) {
  if (depth == 0) {
    return kNoEntry;
  }
  const auto open = open_.find(target.lists[depth - 1]);
  if (open != open_.end() && !open->second.empty()) {
    const int entry = open->second.back();
    // An entry of an inner list is current only as long as the one around it is.
    if (depth == 1 || entries_[static_cast<size_t>(entry)].parent == current_entry(target, depth - 1)) {
      return entry;
    }
  }
  return open_entry(target, depth);
}

int OutputLog::open_entry(const Target& target, size_t depth) {
  const int parent = current_entry(target, depth - 1);
  const lysc_node* list = target.lists[depth - 1];
  const int entry = static_cast<int>(entries_.size());
  entries_.push_back({list, parent, std::vector<std::string_view>(key_count(list))});
  std::vector<int>& open = open_[list];
  // One that was opened under the same input entry will not be current again.
  const int first_kept = frames_.empty() ? 0 : frames_.back().first_entry;
  while (!open.empty() && open.back() >= first_kept) {
    open.pop_back();
  }
  open.push_back(entry);
  return entry;
}

// The current entry, or a new one when the current one has another value for this key.
int OutputLog::entry_for_key(const Target& target, std::string_view value) {
  const auto key_of = [&](int entry) -> std::string_view& {
    return entries_[static_cast<size_t>(entry)].keys[target.key_index];
  };
  int entry = current_entry(target, target.lists.size());
  if (key_of(entry).data() != nullptr && key_of(entry) != value) {
    entry = open_entry(target, target.lists.size());
  }
  key_of(entry) = value;
  return entry;
}

void OutputLog::enter_list(std::string_view list_path) {
  size_t depth = frames_.size();
  while (depth > 0 && !is_below(list_path, frames_[depth - 1].list_path)) {
    --depth;
  }
  leave_lists(depth);
  frames_.push_back({std::string(list_path), static_cast<int>(entries_.size())});
}

void OutputLog::leave_lists(size_t depth) {
  if (depth < frames_.size()) {
    close_entries(frames_[depth].first_entry);
    frames_.erase(frames_.begin() + static_cast<std::ptrdiff_t>(depth), frames_.end());
  }
}

void OutputLog::close_lists_below(std::string_view list_path) {
  for (auto& [list, open] : open_) {
    std::string path;
    for (const lysc_node* node = list; node != nullptr; node = node->parent) {
      if ((node->nodetype & (LYS_CHOICE | LYS_CASE)) == 0) {
        path.insert(0, std::string("/") + node->name);
      }
    }
    if (is_below(path, list_path)) {
      open.clear();
    }
  }
}

void OutputLog::drop_if(const std::function<bool(const Addition&)>& is_dropped) {
  additions_.erase(std::remove_if(additions_.begin(), additions_.end(), is_dropped), additions_.end());
}

void OutputLog::close_entries(int first) {
  for (auto& [list, open] : open_) {
    while (!open.empty() && open.back() >= first) {
      open.pop_back();
    }
  }
}

}  // namespace oclacp::host
