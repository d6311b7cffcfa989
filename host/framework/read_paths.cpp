#include "host/framework/read_paths.h"

#include <unordered_set>

#include "host/framework/path_text.h"

namespace oclacp::host {
namespace {

// Whether a step does no more than say which entry is meant.
bool only_names_entry(const EditScript::Step& step) {
  return step.target->is_list() || (step.target->is_key() && step.has_value);
}

void append_keys(std::string& path, const EditScript::Entry& entry) {
  const lysc_node* key = lysc_node_child(entry.list);
  for (const std::string_view value : entry.keys) {
    if (value.data() != nullptr) {
      append_predicate(path, key->name, value);
    }
    key = key->next;
  }
}

std::string path_of(const EditScript& script, const EditScript::Step& step) {
  std::vector<const EditScript::Entry*> entries;
  for (int entry = step.entry; entry != EditScript::kNoEntry; entry = entries.back()->parent) {
    entries.push_back(&script.entries()[static_cast<size_t>(entry)]);
  }
  std::string path;
  const lys_module* module = nullptr;
  for (const lysc_node* schema : step.target->chain) {
    if (only_names_entry(step) && lysc_is_key(schema)) {
      return path;
    }
    append_step(path, *schema, module);
    module = schema->module;
    if (schema->nodetype == LYS_LIST) {
      append_keys(path, *entries.back());
      entries.pop_back();
    }
  }
  if (step.has_value) {
    path.append(" = ").append(step.value);
  }
  return path;
}

}  // namespace

std::vector<std::string> list_read_paths(const EditScript& script) {
  std::vector<bool> holds_something(script.entries().size());
  const auto mark = [&](int entry) {
    for (; entry != EditScript::kNoEntry; entry = script.entries()[static_cast<size_t>(entry)].parent) {
      holds_something[static_cast<size_t>(entry)] = true;
    }
  };
  for (const EditScript::Step& step : script.steps()) {
    if (!only_names_entry(step)) {
      mark(step.entry);
    } else if (step.target->is_list()) {
      mark(script.entries()[static_cast<size_t>(step.entry)].parent);
    }
  }
  std::vector<std::string> paths;
  std::unordered_set<std::string> listed;
  for (const EditScript::Step& step : script.steps()) {
    if (only_names_entry(step) && holds_something[static_cast<size_t>(step.entry)]) {
      continue;
    }
    std::string path = path_of(script, step);
    if (listed.insert(path).second) {
      paths.push_back(std::move(path));
    }
  }
  return paths;
}

}  // namespace oclacp::host
