#include "host/explain/explanation.h"

#include <algorithm>

#include "host/devices/linux/leaf_notes.h"
#include "host/yang/schema_nodes.h"

namespace oclacp::host {
namespace {

constexpr const char* kIndent = "  ";
constexpr const char* kDeepIndent = "    ";

std::string paragraph(const std::string& heading, const std::string& lines) {
  return lines.empty() ? "" : "\n" + heading + "\n" + lines;
}

std::string line(const char* indent, const std::string& text) {
  return indent + text + "\n";
}

// "name of the handler, converter name of it".
std::string functions_of(const LeafRow& row) {
  const std::string handler = std::string("handler ") + row.leaf->handler;
  return row.leaf->converter == nullptr ? handler : handler + ", converter " + row.leaf->converter;
}

std::string conversion_of(const LeafMapping& mapping) {
  std::string text;
  for (const std::string& words : describe(mapping)) {
    text += line(kDeepIndent, words);
  }
  return text;
}

// Where the values of a leaf go, and how they are mapped.
std::string targets_of(const LeafMappings& outgoing) {
  std::string text;
  for (const LeafMapping& mapping : outgoing.mappings) {
    text += line(kIndent, schema_path(mapping.to)) + conversion_of(mapping);
  }
  return text;
}

void append_distinct(std::vector<const lysc_node*>& nodes, const lysc_node* node) {
  if (std::find(nodes.begin(), nodes.end(), node) == nodes.end()) {
    nodes.push_back(node);
  }
}

std::string listed(const std::vector<const lysc_node*>& nodes) {
  std::string text;
  for (const lysc_node* node : nodes) {
    text += line(kIndent, schema_path(node));
  }
  return text;
}

}  // namespace

std::string Explanation::describe(const lysc_node* node) {
  return schema_path(node) + "\n" + (is_leaf(node) ? describe_leaf(node) : describe_inner_node(node));
}

std::string Explanation::describe_leaf(const lysc_node* leaf) {
  std::string text = describe_served(leaf);
  if (is_openconfig(leaf)) {
    text += describe_edits(leaf) + describe_reads(leaf) + describe_incoming(leaf, "It is read back from");
    if (mappings_.to(leaf).empty()) {
      const lysc_node* key = mappings_.key_referring_to(leaf);
      text += key == nullptr
                  ? "\nIt has no source: nothing native is read back as it.\n"
                  : "\nThe list key that refers to it carries its value,\n" + line(kIndent, schema_path(key));
    }
    return text + describe_bonds(leaf);
  }
  return text + describe_reports(leaf) + describe_incoming(leaf, "An edit sets it from") + describe_askers(leaf) +
         describe_bonds(leaf);
}

// What is particular to it when the device is this machine's bonds.
std::string Explanation::describe_bonds(const lysc_node* leaf) {
  std::vector<const lysc_node*> sources;
  if (is_openconfig(leaf)) {
    for (const LeafMapping& mapping : mappings_.to(leaf)) {
      append_distinct(sources, mapping.from);
    }
  } else {
    sources.push_back(leaf);
  }
  std::string text;
  for (const lysc_node* source : sources) {
    if (const char* note = linux_note(bare_path(source)); note != nullptr) {
      text += line(kIndent, note);
    }
  }
  return paragraph("From bonds of a Linux kernel it is", text);
}

std::string Explanation::describe_served(const lysc_node* leaf) {
  const LeafRow* row = tables_.find(leaf);
  if (row == nullptr) {
    return "\nNo handler serves it.\n";
  }
  std::string text;
  if (row->leaf->walker != nullptr) {
    text += line(kIndent, std::string("leaf walker  ") + row->leaf->walker);
  }
  text += line(kIndent, std::string("handler      ") + row->leaf->handler);
  if (row->leaf->converter != nullptr) {
    text += line(kIndent, std::string("converter    ") + row->leaf->converter);
  }
  return paragraph("It is served by", text);
}

std::string Explanation::describe_edits(const lysc_node* leaf) {
  const LeafMappings& outgoing = mappings_.from(leaf);
  if (outgoing.refusal) {
    return "\nAn edit of it is refused: " + *outgoing.refusal + "\n";
  }
  const std::string text = targets_of(outgoing);
  return text.empty() ? "\nAn edit of it sets nothing.\n" : paragraph("An edit of it sets", text);
}

std::string Explanation::describe_reads(const lysc_node* leaf) {
  const ProbeResult asked = probe_.read(leaf);
  if (asked.refusal) {
    return "\nA read of it is refused: " + *asked.refusal + "\n";
  }
  std::vector<const lysc_node*> nodes;
  for (const ProbeResult::Leaf& one : asked.leaves) {
    append_distinct(nodes, one.schema);
  }
  return nodes.empty() ? "\nA read of it asks for nothing.\n" : paragraph("A read of it asks for", listed(nodes));
}

std::string Explanation::describe_reports(const lysc_node* leaf) {
  const std::string text = targets_of(mappings_.from(leaf));
  return text.empty() ? "\nNothing in openconfig-lacp is built from it.\n" : paragraph("It is read as", text);
}

std::string Explanation::describe_incoming(const lysc_node* leaf, const std::string& heading) {
  std::string text;
  for (const LeafMapping& mapping : mappings_.to(leaf)) {
    text += line(kIndent, schema_path(mapping.from)) + line(kDeepIndent, functions_of(*tables_.find(mapping.from))) +
            conversion_of(mapping);
  }
  return paragraph(heading, text);
}

std::string Explanation::describe_askers(const lysc_node* leaf) {
  std::vector<const lysc_node*> askers;
  for (const LeafRow& row : tables_.openconfig()) {
    for (const ProbeResult::Leaf& asked : probe_.read(row.schema).leaves) {
      if (asked.schema == leaf) {
        append_distinct(askers, row.schema);
      }
    }
  }
  return paragraph("It is asked for by a read of", listed(askers));
}

// The lists that an entry names, without those that the entry around it names already.
std::vector<const lysc_node*> Explanation::entries_named_by(const lysc_node* list) {
  const auto run = [&](const lysc_node* node) {
    return is_openconfig(node) ? probe_.read(node).lists : probe_.native(node, "").lists;
  };
  const lysc_node* around = innermost_list(list->parent);
  const std::vector<const lysc_node*> outer = around == nullptr ? std::vector<const lysc_node*>() : run(around);
  std::vector<const lysc_node*> named;
  for (const lysc_node* one : run(list)) {
    if (std::find(outer.begin(), outer.end(), one) == outer.end()) {
      append_distinct(named, one);
    }
  }
  return named;
}

std::string Explanation::describe_entries(const lysc_node* list) {
  if (!is_openconfig(list)) {
    return paragraph("An entry of it is read as an entry of", listed(entries_named_by(list)));
  }
  std::vector<const lysc_node*> sources;
  for (const LeafRow& row : tables_.native()) {
    const lysc_node* source = innermost_list(row.schema);
    if (source == nullptr) {
      continue;
    }
    const std::vector<const lysc_node*> made = entries_named_by(source);
    if (std::find(made.begin(), made.end(), list) != made.end()) {
      append_distinct(sources, source);
    }
  }
  return paragraph("A request for an entry of it asks for an entry of", listed(entries_named_by(list))) +
         paragraph("An entry of it is read back from an entry of", listed(sources));
}

std::string Explanation::describe_inner_node(const lysc_node* node) {
  std::string text = node->nodetype == LYS_LIST ? describe_entries(node) : "";
  const size_t own = bare_path(node).size() + 1;
  text += "\n";
  for (const lysc_node* leaf : leaves_of(node)) {
    text += bare_path(leaf).substr(own) + "\n" + ways_of(leaf);
  }
  return text;
}

// Where the values of a leaf go ("->"), come from ("<-"), or both: a line for each, since two paths side by side are
// wider than terminals.
std::string Explanation::ways_of(const lysc_node* leaf) {
  std::vector<const lysc_node*> to;
  std::vector<const lysc_node*> from;
  for (const LeafMapping& mapping : mappings_.from(leaf).mappings) {
    append_distinct(to, mapping.to);
  }
  for (const LeafMapping& mapping : mappings_.to(leaf)) {
    append_distinct(from, mapping.from);
  }
  std::string text;
  const auto append = [&](const char* way, const lysc_node* other) {
    text += line(kIndent, std::string(way) + " " + bare_path(other));
  };
  for (const lysc_node* other : to) {
    append(std::erase(from, other) != 0 ? "<->" : "->", other);
  }
  for (const lysc_node* other : from) {
    append("<-", other);
  }
  const lysc_node* key = text.empty() && is_openconfig(leaf) ? mappings_.key_referring_to(leaf) : nullptr;
  if (key != nullptr) {
    return line(kIndent, "with the key " + bare_path(key));
  }
  return text.empty() ? line(kIndent, "none") : text;
}

}  // namespace oclacp::host
