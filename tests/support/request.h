// Requests for tests: a description of a tree, and the data tree that is made of it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "yfw/datatree.h"

namespace support {

// What a node of a request is to be.
struct Node {
  std::optional<std::string> tag;    // none: the node has no tag, which is an error of the framework
  std::optional<std::string> value;  // none: a container, or a leaf without value
  std::string ns;                    // empty: that of the parent; of the root: openconfig-lacp
  std::uint32_t operation = YFW_OPERATION_NONE;
  std::vector<Node> children;

  // The same node with an edit operation.
  [[nodiscard]] Node with(std::uint32_t edit_operation) const;
  // The same node in another namespace.
  [[nodiscard]] Node in(std::string_view uri) const;
};

Node container(std::string tag, std::vector<Node> children = {});
Node leaf(std::string tag);
Node leaf(std::string tag, std::string value);

// The tree `/lacp/interfaces/...` around interface entries, and one such entry.
Node lacp_with_interfaces(std::vector<Node> entries);
Node interface_entry(std::string name, std::vector<Node> config = {});

// The fields of a node that a module has to leave as it found them.
struct NodeFields {
  std::string path;
  std::uint32_t operation;
  const yfw_datatree* children;
  unsigned int child_count;
  std::uint32_t flags;  // those that are restored

  bool operator==(const NodeFields& other) const = default;
  [[nodiscard]] std::string text() const;
};

// A data tree as a framework hands it over: child arrays contiguous, flags set, `framework` pointing to the parent.
class Request {
 public:
  explicit Request(Node root);
  Request(const Request&) = delete;
  Request& operator=(const Request&) = delete;

  yfw_datatree* root() { return &root_; }

  // A descendant by the tags on the way to it, such as "interfaces/interface/config"; of several the first. Ends the
  // process when there is none.
  yfw_datatree* find(std::string_view path);

  // The fields of every node, in the order of the tree: as they are, and as the request was built.
  [[nodiscard]] std::vector<NodeFields> fields() const;
  [[nodiscard]] const std::vector<NodeFields>& fields_as_built() const { return as_built_; }

 private:
  struct Described {
    std::string path;
    const yfw_datatree* node;
  };

  void fill(yfw_datatree& node, const Node& description, yfw_datatree* parent, const std::string& path);

  Node description_;
  yfw_datatree root_{};
  std::vector<std::vector<yfw_datatree>> arrays_;
  std::vector<Described> nodes_;
  std::vector<NodeFields> as_built_;
};

}  // namespace support
