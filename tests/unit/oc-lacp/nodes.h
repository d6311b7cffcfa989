// The nodes of the models and what serves them, read from nodes.txt: what the tests of the tables go by.
#pragma once

#include <string>
#include <vector>

#include "oclacp/leaves.h"
#include "oclacp/native_config.h"
#include "oclacp/native_oper.h"
#include "oclacp/openconfig_lacp.h"
#include "support/platform.h"
#include "support/request.h"

namespace nodes {

using NodeFunction = cerrno (*)(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out);
using ContainerFunction = cerrno (*)(yfw_map_ctx ctx, const yfw_datatree* in, unsigned int child_count,
                                     yfw_datatree* out);

// A function and its name. Null where the module does not export it.
template <typename Pointer>
struct Named {
  std::string name;
  Pointer function;
};

#define NODES_NAMED(NAME) \
  { #NAME, NAME }

struct Leaf {
  std::string path;
  std::string ns;
  unsigned int work;           // OCLACP_LEAF_*
  Named<NodeFunction> walker;  // nameless on the native side
  Named<NodeFunction> handler;
  std::string converter;  // empty without one
  std::vector<std::string> targets;
  int list_flag = 0;
  int last_flag = 0;
};

// A container or list, with its children in the order in which their tags are tested.
struct Inner {
  std::string path;
  std::string ns;
  Named<NodeFunction> entry;   // the exported walker from which it is reached; the path begins at its node
  Named<NodeFunction> walker;  // null where only the parent calls it
  std::string handler;         // of the container or list
  Named<NodeFunction> augments;
  std::vector<std::string> keys = {};
  bool refuses_delete_with_subtree = false;
  std::vector<std::string> children = {};
  std::vector<std::string> functions = {};  // that serve the children
};

// What serves one side of the mapping.
struct Side {
  std::vector<Leaf> leaves;
  std::vector<Inner> inner;
  std::vector<Named<NodeFunction>> functions;            // all that check their arguments and take no child count
  std::vector<Named<NodeFunction>> unchecked_functions;  // those that do not look at them
  std::vector<Named<ContainerFunction>> container_functions;
};

const Side& openconfig();
const Side& native();

// The leaf at a path; null without one.
const Leaf* leaf_at(const Side& side, const std::string& path);

// The last word of a path.
std::string tag_of(const std::string& path);

// The namespace of the node that a native path ends at.
const char* namespace_at(const std::string& path);

// The tree from the root of a native path to the node that it ends at; list entries have their keys, first.
support::Node tree_to(const std::string& path, std::vector<support::Node> children);

}  // namespace nodes
