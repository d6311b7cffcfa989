#include "unit/oc-lacp/nodes.h"

#include <dlfcn.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string_view>
#include <utility>

#include "tests/support/locations.h"

namespace nodes {
namespace {

// A function of the module by its name; the program exports what the module exports.
template <typename Pointer>
Named<Pointer> named(const std::string& name) {
  return {name, reinterpret_cast<Pointer>(dlsym(RTLD_DEFAULT, name.c_str()))};
}

std::string path_of_nodes() {
  return std::string(location::kSources) + "/tests/unit/oc-lacp/nodes.txt";
}

[[noreturn]] void fail(const std::string& line) {
  std::cerr << path_of_nodes() << ": not understood: " << line << '\n';
  std::abort();
}

std::vector<std::string> split(const std::string& text, char separator) {
  std::istringstream in(text);
  std::vector<std::string> parts;
  for (std::string part; std::getline(in, part, separator);) {
    if (!part.empty()) parts.push_back(part);
  }
  return parts;
}

class Reader {
 public:
  void read(const std::string& line) {
    words_ = split(line, ' ');
    if (words_.empty() || words_[0][0] == '#') return;
    if (words_.size() < 2) fail(line);
    if (words_[0] == "model" && words_.size() == 3) {
      prefix_ = words_[1];
      ns_ = words_[2];
      side_ = ns_ == support::kOpenconfigLacp ? &openconfig : &native;
    } else if (words_[0] == "entry") {
      entry_ = named<NodeFunction>(words_[1]);
    } else if (words_[0] == "function") {
      side_->functions.push_back(named<NodeFunction>(words_[1]));
    } else if (words_[0] == "unchecked-function") {
      side_->unchecked_functions.push_back(named<NodeFunction>(words_[1]));
    } else if (words_[0] == "container-function") {
      side_->container_functions.push_back(named<ContainerFunction>(words_[1]));
    } else if (words_.size() >= 3 && (words_[1] == "container" || words_[1] == "list")) {
      read_inner();
    } else if (words_.size() >= 3) {
      read_leaf(line);
    } else {
      fail(line);
    }
  }

  Side openconfig;
  Side native;

 private:
  [[nodiscard]] bool says(const char* word) const {
    return std::find(words_.begin(), words_.end(), word) != words_.end();
  }

  // The word behind another; empty without it.
  [[nodiscard]] std::string behind(const char* word) const {
    const auto at = std::find(words_.begin(), words_.end(), word);
    return at == words_.end() || at + 1 == words_.end() ? "" : *(at + 1);
  }

  void read_inner() {
    const bool is_list = words_[1] == "list";
    const std::string own = prefix_ + (is_list ? "list_" : "cont_") + words_[2];
    Inner inner{.path = words_[0],
                .ns = ns_,
                .entry = side_ == &openconfig ? named<NodeFunction>(prefix_ + words_[2]) : entry_,
                .walker = named<NodeFunction>(prefix_ + words_[2]),
                .handler = says("default-handler") ? prefix_ + "duck_map_" + words_[1] : own,
                .augments = named<NodeFunction>(prefix_ + words_[2] + "_parse_augments")};
    if (is_list) inner.keys = split(words_.at(3), ',');
    inner.refuses_delete_with_subtree = says("refuses-delete");
    add_child(inner.walker.name);
    if (inner.walker.function != nullptr) side_->functions.push_back(inner.walker);
    side_->functions.push_back(inner.augments);
    // On the side of openconfig-lacp a list has a container handler too.
    const std::string container = prefix_ + "cont_" + words_[2];
    if (side_ == &openconfig || (!is_list && !says("default-handler"))) {
      side_->container_functions.push_back(named<ContainerFunction>(container));
    }
    side_->inner.push_back(std::move(inner));
  }

  void read_leaf(const std::string& line) {
    constexpr std::pair<std::string_view, unsigned int> kWorks[] = {
        {"copied", OCLACP_LEAF_COPIED},       {"asked-for", OCLACP_LEAF_ASKED_FOR},
        {"converted", OCLACP_LEAF_CONVERTED}, {"handwritten", OCLACP_LEAF_HANDWRITTEN},
        {"refused", OCLACP_LEAF_REFUSED},     {"silent", OCLACP_LEAF_SILENT}};
    const auto* const work =
        std::find_if(std::begin(kWorks), std::end(kWorks), [&](const auto& known) { return known.first == words_[1]; });
    if (work == std::end(kWorks)) fail(line);
    Leaf leaf{.path = words_[0],
              .ns = ns_,
              .work = work->second,
              .walker = {},
              .handler = {},
              .converter = behind("by"),
              .targets = split(behind("to"), ',')};
    leaf.list_flag = says("list-flag") ? 1 : 0;
    leaf.last_flag = says("last-flag") ? 1 : 0;
    if (side_ == &openconfig) {
      leaf.walker = named<NodeFunction>(prefix_ + words_[2]);
      leaf.handler = named<NodeFunction>(prefix_ + "leaf_" + words_[2]);
      side_->functions.push_back(leaf.walker);
    } else {
      leaf.handler = named<NodeFunction>(prefix_ + words_[2]);
    }
    add_child(side_ == &openconfig ? leaf.walker.name : leaf.handler.name);
    (says("unchecked") ? side_->unchecked_functions : side_->functions).push_back(leaf.handler);
    side_->leaves.push_back(std::move(leaf));
  }

  // Tells the parent of the node that is read.
  void add_child(const std::string& function) {
    const std::string& path = words_[0];
    const std::string parent = path.substr(0, path.rfind('/'));
    for (auto inner = side_->inner.rbegin(); inner != side_->inner.rend(); ++inner) {
      // What augments a node of another model is no child that it knows.
      if (inner->path != parent || inner->ns != ns_) continue;
      inner->children.push_back(tag_of(path));
      inner->functions.push_back(function);
      return;
    }
  }

  std::vector<std::string> words_;
  std::string prefix_;
  std::string ns_;
  Named<NodeFunction> entry_;
  Side* side_ = nullptr;
};

const Reader& file() {
  static const Reader reader = [] {
    Reader made;
    std::ifstream in(path_of_nodes());
    for (std::string line; std::getline(in, line);) made.read(line);
    if (made.native.leaves.empty()) fail("the file as a whole");
    return made;
  }();
  return reader;
}

}  // namespace

const Side& openconfig() {
  return file().openconfig;
}

const Side& native() {
  return file().native;
}

const Leaf* leaf_at(const Side& side, const std::string& path) {
  for (const Leaf& leaf : side.leaves) {
    if (leaf.path == path) return &leaf;
  }
  return nullptr;
}

std::string tag_of(const std::string& path) {
  return path.substr(path.rfind('/') + 1);
}

// The namespace of the node that a native path ends at.
const char* namespace_at(const std::string& path) {
  constexpr std::string_view kEntry = "/interface-configurations/interface-configuration/";
  if (path.compare(0, 6, "/lacp-") == 0) return support::kBundlemgrOper;
  const bool is_augment = path.compare(0, kEntry.size(), kEntry) == 0;
  const std::string tag = is_augment ? path.substr(kEntry.size(), path.find('/', kEntry.size()) - kEntry.size())
                                     : path.substr(1, path.find('/', 1) - 1);
  for (const char* added : {"bundle", "lacp", "bundle-member", "bfd", "mlacp"}) {
    if (tag == added) return support::kBundlemgrCfg;
  }
  return support::kIfmgrCfg;
}

// The tree from the root of a path to the node that it ends at; list entries have their keys, first.
support::Node tree_to(const std::string& path, std::vector<support::Node> children) {
  using support::leaf;
  const std::string tag = tag_of(path);
  std::vector<support::Node> all;
  if (tag == "interface-configuration") all = {leaf("active", "act"), leaf("interface-name", "Bundle-Ether1")};
  if (tag == "mtu") all = {leaf("owner", "ethernet")};
  if (tag == "bundle" && path.compare(0, 6, "/lacp-") == 0) all = {leaf("bundle-interface", "Bundle-Ether1")};
  if (tag == "member") all = {leaf("member-interface", "GigabitEthernet0/0/0/0")};
  all.insert(all.end(), children.begin(), children.end());
  support::Node node = support::container(tag, std::move(all)).in(namespace_at(path));
  const std::size_t parent = path.rfind('/');
  return parent == 0 ? node : tree_to(path.substr(0, parent), {std::move(node)});
}

}  // namespace nodes
