#include "host/devices/active_configuration.h"

#include <algorithm>
#include <cstring>

#include "host/base/interface_names.h"
#include "host/yang/data_nodes.h"

namespace oclacp::host {
namespace {

// Containers that libyang adds because the schema has them hold nothing.
bool is_filled_container(const lyd_node* node) {
  return node->schema->nodetype == LYS_CONTAINER && is_explicit(node);
}

void add_items(const lyd_node* above, const std::string& prefix, std::vector<std::string>& items) {
  for (const lyd_node* child = lyd_child(above); child != nullptr; child = child->next) {
    if (is_filled_container(child)) {
      items.push_back(prefix + child->schema->name + "/");
      add_items(child, items.back(), items);
    }
  }
}

}  // namespace

ActiveConfiguration::ActiveConfiguration(const lyd_node* running) {
  while (running != nullptr && std::strcmp(running->schema->name, "interface-configurations") != 0) {
    running = running->next;
  }
  for (const lyd_node* entry = lyd_child(running); entry != nullptr; entry = entry->next) {
    const lyd_node* active = lyd_child(entry);
    if (std::strcmp(lyd_get_value(active), "act") != 0) {
      continue;
    }
    const std::string_view name = lyd_get_value(active->next);
    names_.push_back(name);
    entries_.push_back(entry);
    for (const lyd_node* child = active->next->next; child != nullptr; child = child->next) {
      if (is_filled_container(child) && std::strcmp(child->schema->name, "lacp") == 0) {
        with_lacp_.insert(name);
      }
    }
  }
  // A name without slashes is its own element, and the others give way to it.
  for (const bool has_slash : {false, true}) {
    for (const std::string_view name : names_) {
      if ((name.find('/') != std::string_view::npos) == has_slash) {
        name_element(name);
      }
    }
  }
}

void ActiveConfiguration::name_element(std::string_view name) {
  std::string element = entry_form(name);
  while (names_by_element_.count(element) != 0) {
    element += '_';
  }
  const auto named = names_by_element_.emplace(std::move(element), name).first;
  elements_by_name_.emplace(name, named->first.c_str());
}

const char* ActiveConfiguration::element_of(std::string_view name) const {
  const auto found = elements_by_name_.find(name);
  return found == elements_by_name_.end() ? nullptr : found->second;
}

std::vector<std::string> ActiveConfiguration::items() const {
  std::vector<std::string> items;
  for (size_t index = 0; index < entries_.size(); ++index) {
    add_items(entries_[index], std::string(element_of(names_[index])) + "/", items);
  }
  std::stable_sort(items.begin(), items.end(),
                   [](const std::string& one, const std::string& other) { return one.find('/') > other.find('/'); });
  return items;
}

}  // namespace oclacp::host
