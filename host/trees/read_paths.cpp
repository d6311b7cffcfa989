#include "host/trees/read_paths.h"

#include <unordered_set>

#include "host/yang/path_text.h"

namespace oclacp::host {
namespace {

// Whether an addition does no more than select the entry.
bool only_names_entry(const OutputLog::Addition& addition) {
  return addition.target->is_list() || (addition.target->is_key() && addition.has_value);
}

void append_keys(std::string& path, const OutputLog::Entry& entry) {
  const lysc_node* key = lysc_node_child(entry.list);
  for (const std::string_view value : entry.keys) {
    if (value.data() != nullptr) {
      append_predicate(path, key->name, value);
    }
    key = key->next;
  }
}

std::string path_of(const OutputLog& log, const OutputLog::Addition& addition) {
  std::vector<const OutputLog::Entry*> entries;
  for (int entry = addition.entry; entry != OutputLog::kNoEntry; entry = entries.back()->parent) {
    entries.push_back(&log.entries()[static_cast<size_t>(entry)]);
  }
  std::string path;
  const lys_module* module = nullptr;
  for (const lysc_node* schema : addition.target->chain) {
    if (only_names_entry(addition) && lysc_is_key(schema)) {
      return path;
    }
    append_step(path, *schema, module);
    module = schema->module;
    if (schema->nodetype == LYS_LIST) {
      append_keys(path, *entries.back());
      entries.pop_back();
    }
  }
  if (addition.has_value) {
    path.append(" = ").append(addition.value);
  }
  return path;
}

}  // namespace

std::vector<std::string> list_read_paths(const OutputLog& log) {
  std::vector<bool> holds_something(log.entries().size());
  const auto mark = [&](int entry) {
    for (; entry != OutputLog::kNoEntry; entry = log.entries()[static_cast<size_t>(entry)].parent) {
      holds_something[static_cast<size_t>(entry)] = true;
    }
  };
  for (const OutputLog::Addition& addition : log.additions()) {
    if (!only_names_entry(addition)) {
      mark(addition.entry);
    } else if (addition.target->is_list()) {
      mark(log.entries()[static_cast<size_t>(addition.entry)].parent);
    }
  }
  std::vector<std::string> paths;
  std::unordered_set<std::string> listed;
  for (const OutputLog::Addition& addition : log.additions()) {
    if (only_names_entry(addition) && holds_something[static_cast<size_t>(addition.entry)]) {
      continue;
    }
    std::string path = path_of(log, addition);
    if (listed.insert(path).second) {
      paths.push_back(std::move(path));
    }
  }
  return paths;
}

}  // namespace oclacp::host
