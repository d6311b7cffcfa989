// The schemas in yang/, for tests that lay the module's tables beside them.
#pragma once

#include <libyang/libyang.h>

#include <memory>
#include <string>
#include <vector>

#include "support/request.h"

namespace tables {

class Schemas {
 public:
  // Loads every module of the folder; a failure fails the test.
  Schemas();

  // The data node at a path of names without prefixes, in the tree of a module; null when there is none.
  [[nodiscard]] const lysc_node* find(const std::string& ns, const std::string& path) const;

  // The top data nodes of a module, by its namespace.
  [[nodiscard]] std::vector<const lysc_node*> roots(const std::string& ns) const;

 private:
  struct Destroy {
    void operator()(ly_ctx* context) const { ly_ctx_destroy(context); }
  };
  std::unique_ptr<ly_ctx, Destroy> context_;
};

std::vector<const lysc_node*> children_of(const lysc_node* node);

bool is_leaf(const lysc_node* node);

// The path of names without prefixes.
std::string path_of(const lysc_node* node);

// Values that a leaf takes: all of an enumeration, one of any other type.
std::vector<std::string> values_of(const lysc_node* leaf);

// The data tree from `top` to a node, with children of its own; list entries have their keys, first.
support::Node tree_to(const lysc_node* top, const lysc_node* node, std::vector<support::Node> children = {});

}  // namespace tables
