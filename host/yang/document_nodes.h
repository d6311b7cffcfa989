// Following a document through the schemas before libyang reads it.
#pragma once

#include <libyang/libyang.h>

#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace oclacp::host {

// The nodes around the place that a scan of a document has reached, and what the document named in each of them.
// libyang finds equal nodes by a hash table, in which n of them take n * n steps; here a node more takes the same time
// as the one before. What the schemas do not have is followed too, as null, and not remembered.
class DocumentNodes {
 public:
  // `context` outlives this. The scan is at the top, outside of all nodes.
  explicit DocumentNodes(const ly_ctx* context) : context_(context), frames_(1) {}

  // A child of the current node by its name, also from within choices; null when there is none.
  [[nodiscard]] const lysc_node* find_child(const lys_module* module, std::string_view name) const;
  // The same as JSON names it (RFC 7951, 4): with its module where that is not the parent's.
  [[nodiscard]] const lysc_node* find_json_child(std::string_view name) const;
  [[nodiscard]] const ly_ctx* context() const { return context_; }
  [[nodiscard]] const lysc_node* current() const { return frames_[depth_].schema; }

  // Notes that the document names a child of the current node. False when that is once too often.
  bool add(const lysc_node* child);

  void enter(const lysc_node* node);
  void leave();

  // Notes a key of the current list entry. False when the list has an entry with the same keys.
  bool set_key(const lysc_node* key, std::string_view value);

  // That of the current node, with module prefixes where they change and the keys that are known.
  [[nodiscard]] std::string path() const;

 private:
  struct Entries {
    const lysc_node* list;
    std::unordered_set<std::string> keys;
  };
  struct Frame {
    const lysc_node* schema = nullptr;
    std::vector<const lysc_node*> seen;            // at most as many as the schema has nodes here
    std::vector<Entries> entries;                  // of the lists in it
    std::vector<std::optional<std::string>> keys;  // of a list entry, in the order of the schema
    bool is_known = false;                         // whether all keys were there
  };

  const ly_ctx* context_;
  std::vector<Frame> frames_;  // those after depth_ are kept for what they have allocated
  size_t depth_ = 0;
};

}  // namespace oclacp::host
