#include "tables/schemas.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string_view>

#include "tests/support/locations.h"

namespace tables {
namespace {

std::vector<const lysc_node*> siblings_from(const lysc_node* first) {
  std::vector<const lysc_node*> nodes;
  for (const lysc_node* node = first; node != nullptr; node = node->next) nodes.push_back(node);
  return nodes;
}

const lysc_node* named(const std::vector<const lysc_node*>& nodes, std::string_view name) {
  const auto found =
      std::find_if(nodes.begin(), nodes.end(), [&](const lysc_node* node) { return node->name == name; });
  return found == nodes.end() ? nullptr : *found;
}

std::vector<std::string> values_of_type(const lysc_type* type) {
  switch (type->basetype) {
    case LY_TYPE_LEAFREF:
      return values_of_type(reinterpret_cast<const lysc_type_leafref*>(type)->realtype);
    case LY_TYPE_UNION:
      return values_of_type(reinterpret_cast<const lysc_type_union*>(type)->types[0]);
    case LY_TYPE_BOOL:
      return {"true"};
    case LY_TYPE_STRING:
      return {reinterpret_cast<const lysc_type_str*>(type)->patterns != nullptr ? "00:11:22:33:44:55"
                                                                                : "Bundle-Ether1"};
    case LY_TYPE_ENUM: {
      const auto* enumeration = reinterpret_cast<const lysc_type_enum*>(type);
      std::vector<std::string> names;
      for (LY_ARRAY_COUNT_TYPE i = 0; i < LY_ARRAY_COUNT(enumeration->enums); ++i) {
        names.emplace_back(enumeration->enums[i].name);
      }
      return names;
    }
    default:
      return {"1"};
  }
}

}  // namespace

Schemas::Schemas() {
  ly_log_options(LY_LOSTORE_LAST);
  ly_ctx* context = nullptr;
  EXPECT_EQ(ly_ctx_new(location::kSchemas, LY_CTX_DISABLE_SEARCHDIR_CWD | LY_CTX_NO_YANGLIBRARY, &context), LY_SUCCESS);
  context_.reset(context);
  for (const auto& file : std::filesystem::directory_iterator(location::kSchemas)) {
    EXPECT_NE(ly_ctx_load_module(context, file.path().stem().c_str(), nullptr, nullptr), nullptr) << file.path();
  }
}

std::vector<const lysc_node*> Schemas::roots(const std::string& ns) const {
  const lys_module* const module = ly_ctx_get_module_implemented_ns(context_.get(), ns.c_str());
  EXPECT_NE(module, nullptr) << ns;
  return module == nullptr ? std::vector<const lysc_node*>{} : siblings_from(module->compiled->data);
}

const lysc_node* Schemas::find(const std::string& ns, const std::string& path) const {
  std::vector<const lysc_node*> candidates = roots(ns);
  const lysc_node* node = nullptr;
  for (std::size_t start = 1; start <= path.size();) {
    const std::size_t end = std::min(path.find('/', start), path.size());
    node = named(candidates, std::string_view(path).substr(start, end - start));
    if (node == nullptr) return nullptr;
    candidates = children_of(node);
    start = end + 1;
  }
  return node;
}

std::vector<const lysc_node*> children_of(const lysc_node* node) {
  return siblings_from(lysc_node_child(node));
}

bool is_leaf(const lysc_node* node) {
  return node->nodetype == LYS_LEAF;
}

std::string path_of(const lysc_node* node) {
  return node == nullptr ? "" : path_of(node->parent) + "/" + node->name;
}

std::vector<std::string> values_of(const lysc_node* leaf) {
  return values_of_type(reinterpret_cast<const lysc_node_leaf*>(leaf)->type);
}

support::Node tree_to(const lysc_node* top, const lysc_node* node, std::vector<support::Node> children) {
  std::vector<support::Node> all;
  for (const lysc_node* child : children_of(node)) {
    if (lysc_is_key(child)) all.push_back(support::leaf(child->name, values_of(child)[0]));
  }
  all.insert(all.end(), children.begin(), children.end());
  support::Node tree = support::container(node->name, std::move(all)).in(node->module->ns);
  return node == top ? tree : tree_to(top, node->parent, {std::move(tree)});
}

}  // namespace tables
