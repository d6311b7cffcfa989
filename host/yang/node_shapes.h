// What is asked about a schema node for every node of data: worked out once.
#pragma once

#include <libyang/libyang.h>

#include <cstdint>
#include <deque>
#include <string>
#include <unordered_map>

namespace oclacp::host {

// One schema node.
struct NodeShape {
  static constexpr uint32_t kTop = ~0U;

  const lysc_node* schema;
  uint32_t number;        // in its NodeShapes
  uint32_t parent;        // number of the node that it stands below in data; kTop for top nodes
  uint32_t place;         // among the nodes that may stand beside it, in the order in which libyang keeps them
  bool is_list;           // a list or leaf-list
  bool is_leaf;           // a leaf or leaf-list
  bool is_printed_empty;  // a container with presence, or a list entry
  std::string json_name;  // "name": or "module:name": with a blank after it
  std::string xml_start;  // <name or <name xmlns="..."
  std::string xml_end;    // </name> and the end of the line
};

// The shapes of a context's schema nodes, each made when it is first asked for. They live as long as this.
class NodeShapes {
 public:
  const NodeShape& of(const lysc_node* schema);

  [[nodiscard]] const NodeShape& at(uint32_t number) const { return shapes_[number]; }

 private:
  std::deque<NodeShape> shapes_;
  std::unordered_map<const lysc_node*, const NodeShape*> by_schema_;
};

}  // namespace oclacp::host
