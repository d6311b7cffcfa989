// What a read asks for of the native data.
#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/trees/output_log.h"

namespace oclacp::host {

// The nodes that a read asks for, as one tree. A list entry whose keys are not all known stands for every entry that
// has the known ones. Lives no longer than the log that it is made from.
class NativeSelection {
 public:
  struct Node {
    const lysc_node* schema = nullptr;   // null for the root above the top nodes
    std::vector<std::string_view> keys;  // of a list entry, in the schema's order; without data where it is not known
    bool is_whole = false;               // asked for with all that is in it
    std::vector<const Node*> children;   // else what is asked for in it; a list entry's keys always are
  };

  // `asked`: what a module added when it walked a read.
  explicit NativeSelection(const OutputLog& asked);

  [[nodiscard]] const std::vector<const Node*>& tops() const { return root_.children; }

 private:
  Node* find_or_add(Node* above, const lysc_node* schema, const OutputLog::Entry* entry);

  std::deque<Node> nodes_;
  Node root_;
  std::unordered_map<std::string, Node*> by_key_;  // by the node above, the schema and the keys
};

}  // namespace oclacp::host
