// Paths as a module writes them, without prefixes and keys, found in the schemas.
#pragma once

#include <libyang/libyang.h>

#include <array>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace oclacp::host {

// A node that a path leads to.
struct Target {
  const lysc_node* schema;
  std::vector<const lysc_node*> chain;  // from the top node to `schema`
  std::vector<const lysc_node*> lists;  // the lists among them, outermost first
  size_t number = 0;                    // among the targets of its index
  unsigned key_index = kNotAKey;        // place among the keys of the innermost list

  static constexpr unsigned kNotAKey = ~0U;
  [[nodiscard]] bool is_key() const { return key_index != kNotAKey; }
  [[nodiscard]] bool is_list() const { return schema->nodetype == LYS_LIST; }
  [[nodiscard]] bool is_leaf() const { return (schema->nodetype & LYD_NODE_TERM) != 0; }
};

// How many keys a list has.
unsigned key_count(const lysc_node* list);

// Finds nodes by path and namespace. Each path is searched once; targets live as long as this.
class SchemaIndex {
 public:
  explicit SchemaIndex(const ly_ctx* context) : context_(context) {}

  // `path` is absolute, may end in a slash, and has no prefixes: a name means the node of the module `ns` where there
  // is one, else of the module above, else of any. Null when there is no such node or it is not of the namespace `ns`.
  const Target* find(std::string_view path, std::string_view ns);

  [[nodiscard]] const ly_ctx* context() const { return context_; }

 private:
  struct TextHash {
    using is_transparent = void;
    size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
  };

  const Target* look_up(std::string_view path, std::string_view ns);
  const Target* resolve(std::string_view path, std::string_view ns);
  [[nodiscard]] const lysc_node* find_below(const lysc_node* above, std::string_view name,
                                            const lys_module* preferred) const;

  const ly_ctx* context_;
  // What was found for a text that stood at an address, mostly a literal of a module.
  struct Recent {
    std::string path;
    const Target* target = nullptr;
  };

  std::deque<Target> targets_;
  std::array<Recent, 256> recent_;  // by a hash of the address
  std::unordered_map<std::string, std::vector<const Target*>, TextHash, std::equal_to<>> by_path_;
};

}  // namespace oclacp::host
