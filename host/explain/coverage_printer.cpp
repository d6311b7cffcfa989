#include "host/explain/coverage_printer.h"

#include <algorithm>

#include "host/present/text_table.h"
#include "host/yang/schema_nodes.h"

namespace oclacp::host {
namespace {

// The leaves of one container or list, without those that are deeper in it.
struct Group {
  std::string parent;
  std::vector<const CoveredLeaf*> leaves;
};

std::string parent_of(const std::string& path) {
  return path.substr(0, path.rfind('/'));
}

std::vector<Group> group(const Coverage& coverage) {
  std::vector<Group> groups;
  for (const CoveredLeaf& leaf : coverage.leaves) {
    const std::string parent = parent_of(bare_path(leaf.schema));
    const auto found =
        std::find_if(groups.begin(), groups.end(), [&](const Group& one) { return one.parent == parent; });
    Group& in = found == groups.end() ? groups.emplace_back(Group{parent, {}}) : *found;
    in.leaves.push_back(&leaf);
  }
  return groups;
}

size_t count(const Coverage& coverage, bool CoveredLeaf::*in) {
  return static_cast<size_t>(std::count_if(coverage.leaves.begin(), coverage.leaves.end(),
                                           [in](const CoveredLeaf& leaf) { return leaf.*in; }));
}

size_t count_unserved(const Coverage& coverage) {
  return static_cast<size_t>(std::count_if(coverage.leaves.begin(), coverage.leaves.end(),
                                           [](const CoveredLeaf& leaf) { return !leaf.is_served(); }));
}

std::string summary(const Coverage& coverage) {
  return std::to_string(coverage.leaves.size()) +
         " leaves: " + std::to_string(count(coverage, &CoveredLeaf::in_edits)) + " are served in edits, " +
         std::to_string(count(coverage, &CoveredLeaf::in_reads)) + " in reads, " +
         std::to_string(count_unserved(coverage)) + " not at all.";
}

std::string titled(const Coverage& coverage) {
  const char* revision = coverage.module->revision;
  return std::string(coverage.module->name) + (revision == nullptr ? "" : std::string(", revision ") + revision);
}

const char* yes_or_no(bool is_served) {
  return is_served ? "yes" : "-";
}

std::string top_of(const std::string& path) {
  return path.substr(0, path.find('/', 1));
}

// The native paths that all sources of a group are below: one in each of the trees that they are from.
std::vector<std::string> common_parents(const Group& group) {
  std::vector<std::string> parents;
  for (const CoveredLeaf* leaf : group.leaves) {
    for (const lysc_node* source : leaf->sources) {
      const std::string path = bare_path(source);
      const auto found = std::find_if(parents.begin(), parents.end(),
                                      [&](const std::string& one) { return top_of(one) == top_of(path); });
      std::string& parent = found == parents.end() ? parents.emplace_back(parent_of(path)) : *found;
      while (!path.starts_with(parent + "/")) {
        parent = parent_of(parent);
      }
    }
  }
  return parents;
}

// A source from behind that one of the paths on that it is below.
std::string relative(const lysc_node* source, const std::vector<std::string>& parents) {
  const std::string path = bare_path(source);
  const auto above =
      std::find_if(parents.begin(), parents.end(), [&](const std::string& one) { return path.starts_with(one + "/"); });
  return path.substr(above->size() + 1);
}

// What makes a leaf, where each source is printed by `print`.
template <typename Print>
std::string origin_of(const CoveredLeaf& leaf, const Print& print) {
  if (!leaf.is_served()) {
    return reason_of(leaf);
  }
  if (leaf.key != nullptr) {
    return std::string("with the key ") + leaf.key->name;
  }
  std::string text;
  for (const lysc_node* source : leaf.sources) {
    text += (text.empty() ? "" : ", ") + print(source);
  }
  return text;
}

std::string json_string(const std::string& text) {
  return '"' + text + '"';
}

// Paths and names of YANG nodes hold nothing that JSON wants escaped.
std::string json_leaf(const CoveredLeaf& leaf) {
  std::string sources;
  for (const lysc_node* source : leaf.sources) {
    sources += (sources.empty() ? "" : ", ") + json_string(schema_path(source));
  }
  return "{\"path\": " + json_string(schema_path(leaf.schema)) + ", \"edits\": " + (leaf.in_edits ? "true" : "false") +
         ", \"reads\": " + (leaf.in_reads ? "true" : "false") + ", \"sources\": [" + sources +
         "], \"key\": " + (leaf.key == nullptr ? "null" : json_string(schema_path(leaf.key))) + "}";
}

}  // namespace

std::string coverage_table(const Coverage& coverage) {
  constexpr size_t kWidth = 80;
  std::string text = titled(coverage) + "\n" + summary(coverage) + "\n";
  for (const Group& one : group(coverage)) {
    const std::vector<std::string> parents = common_parents(one);
    text += "\n" + one.parent + "\n";
    for (const std::string& parent : parents) {
      text += (&parent == &parents.front() ? "  natively below " : "             and ") + parent + "\n";
    }
    TextTable table({{"leaf"}, {"edits"}, {"reads"}, {"native"}});
    for (const CoveredLeaf* leaf : one.leaves) {
      table.add({{leaf->schema->name},
                 {yes_or_no(leaf->in_edits)},
                 {yes_or_no(leaf->in_reads)},
                 {origin_of(*leaf, [&](const lysc_node* source) { return relative(source, parents); })}});
    }
    text += table.text({kWidth, 2, false});
  }
  return text;
}

std::string coverage_json(const Coverage& coverage) {
  const char* revision = coverage.module->revision;
  std::string text = "{\n  \"module\": " + json_string(coverage.module->name) +
                     ",\n  \"revision\": " + (revision == nullptr ? "null" : json_string(revision)) +
                     ",\n  \"leaves\": [";
  for (size_t index = 0; index < coverage.leaves.size(); ++index) {
    text += (index == 0 ? "\n    " : ",\n    ") + json_leaf(coverage.leaves[index]);
  }
  return text + "\n  ]\n}\n";
}

std::string coverage_markdown(const Coverage& coverage) {
  std::string text = "# What of openconfig-lacp is served\n\nPrinted by `oclacp coverage --format markdown` for " +
                     titled(coverage) + ".\n\n" + summary(coverage) + "\n";
  for (const Group& one : group(coverage)) {
    text += "\n## " + one.parent + "\n\n| Leaf | Edits | Reads | Native |\n|---|---|---|---|\n";
    for (const CoveredLeaf* leaf : one.leaves) {
      text.append("| ").append(leaf->schema->name).append(" | ").append(yes_or_no(leaf->in_edits));
      text.append(" | ").append(yes_or_no(leaf->in_reads)).append(" | ");
      text.append(origin_of(*leaf, [](const lysc_node* source) { return "`" + bare_path(source) + "`"; }));
      text.append(" |\n");
    }
  }
  return text;
}

}  // namespace oclacp::host
