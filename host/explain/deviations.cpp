#include "host/explain/deviations.h"

#include <algorithm>
#include <set>
#include <unordered_set>

#include "host/yang/schema_nodes.h"

namespace oclacp::host {
namespace {

// The path of a schema node, which choices and cases are steps of, with a prefix for every step.
std::string deviated_path(const lysc_node* node) {
  const std::string above = node->parent == nullptr ? "" : deviated_path(node->parent);
  return above + "/" + node->module->prefix + ":" + node->name;
}

class Deviations {
 public:
  explicit Deviations(const Coverage& coverage) : coverage_(coverage) {
    for (const CoveredLeaf& leaf : coverage.leaves) {
      for (const lysc_node* node = leaf.is_served() ? leaf.schema : nullptr; node != nullptr; node = node->parent) {
        serving_.insert(node);
      }
    }
  }

  std::string text() {
    for (const lysc_node* top = coverage_.module->compiled->data; top != nullptr; top = top->next) {
      add(top);
    }
    std::string text = header();
    for (const std::string& deviation : deviations_) {
      text += "\n" + deviation;
    }
    return text + "}\n";
  }

 private:
  void add(const lysc_node* node) {
    if (!serving_.contains(node)) {
      deviate(node);
    } else if (!is_leaf(node)) {
      for (const lysc_node* child : data_children(node)) {
        add(child);
      }
    }
  }

  // Why nothing in a node is served: the reasons of its leaves.
  [[nodiscard]] std::string reasons(const lysc_node* node) const {
    const std::vector<const lysc_node*> leaves = leaves_of(node);
    std::set<std::string> reasons;
    for (const CoveredLeaf& leaf : coverage_.leaves) {
      if (std::find(leaves.begin(), leaves.end(), leaf.schema) != leaves.end()) {
        reasons.insert(reason_of(leaf));
      }
    }
    std::string text;
    for (const std::string& reason : reasons) {
      text += (text.empty() ? "" : "; ") + reason;
    }
    return text;
  }

  void deviate(const lysc_node* node) {
    modules_.insert(node->module);
    for (const lysc_node* above = node->parent; above != nullptr; above = above->parent) {
      modules_.insert(above->module);
    }
    deviations_.push_back("  deviation \"" + deviated_path(node) + "\" {\n    description\n      \"Not served: " +
                          reasons(node) + ".\";\n    deviate not-supported;\n  }\n");
  }

  [[nodiscard]] std::string imports() const {
    std::set<std::string> texts;
    for (const lys_module* module : modules_) {
      const std::string revision =
          module->revision == nullptr ? "" : std::string("    revision-date ") + module->revision + ";\n";
      texts.insert(std::string("  import ") + module->name + " {\n    prefix " + module->prefix + ";\n" + revision +
                   "  }\n");
    }
    std::string text;
    for (const std::string& import : texts) {
      text += import;
    }
    return text;
  }

  [[nodiscard]] std::string header() const {
    return "module oclacp-lacp-deviations {\n  yang-version 1.1;\n"
           "  namespace \"urn:oclacp:lacp-deviations\";\n  prefix lacp-dev;\n\n" +
           imports() +
           "\n  organization\n    \"oclacp\";\n  contact\n    \"The maintainers of oclacp.\";\n  description\n"
           "    \"What of openconfig-lacp the mapping onto native bundle and LACP models does not serve.\";\n";
  }

  const Coverage& coverage_;
  std::unordered_set<const lysc_node*> serving_;  // nodes that are served, or in which something is
  std::unordered_set<const lys_module*> modules_;
  std::vector<std::string> deviations_;
};

}  // namespace

std::string deviation_module(const Coverage& coverage) {
  return Deviations(coverage).text();
}

}  // namespace oclacp::host
