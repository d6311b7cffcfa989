// The module's tables against the schemas, in both directions: every node of a schema is in a table or on a list of
// nodes that are deliberately not mapped, and every row of a table is a node of a schema.
//
// The walkers' tables are read off the walkers: each is given a child of an unknown name, which it compares with all
// that it knows.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "oclacp/leaves.h"
#include "oclacp/lifecycle.h"
#include "oclacp/native_config.h"
#include "support/platform.h"
#include "support/registrations.h"
#include "tables/schemas.h"

namespace {

using support::Node;
using support::Platform;
using support::Request;
using tables::Schemas;
using testing::UnorderedElementsAreArray;

constexpr char kEntry[] = "/interface-configurations/interface-configuration";

using Paths = std::set<std::string>;

// A tree that is walked: the walker that is given its top node, and that node.
struct Tree {
  yfw_map_walker walker;
  const char* ns;  // of the model's root
  std::string top;
};

std::vector<yfw_map_registration> registrations() {
  return support::registered({yfw_map_reg_oclacp_lacpbundles_conf, yfw_map_reg_oclacp_lacpbundles_oper,
                              yfw_map_reg_oclacp_lacpbundles_global_conf, yfw_map_reg_oclacp_lacpglobaldata_oper});
}

// What the native registrations lead to.
std::vector<Tree> registered_trees() {
  std::vector<Tree> trees;
  for (const yfw_map_registration& registration : registrations()) {
    const char* const models[] = {support::kIfmgrCfg, support::kBundlemgrCfg, support::kBundlemgrOper};
    const auto* const ns = std::find(std::begin(models), std::end(models), std::string(registration.native_ns));
    trees.push_back({registration.native_walker, *ns, std::string("/") + registration.native_root});
  }
  return trees;
}

// Known nodes that no registration leads to; each has a walker all the same.
std::vector<Tree> unreached_trees() {
  return {{ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_globalinterfaceconfiguration, support::kIfmgrCfg,
           "/global-interface-configuration"},
          {ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_bundle, support::kBundlemgrCfg, "/bundle"},
          {ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvla_interface_configuration, support::kIfmgrCfg,
           std::string(kEntry) + "/bfd"},
          {ymap_qo_oclacp_talvobrinqdbundlemgrcfg_augment_lvle_interface_configuration, support::kIfmgrCfg,
           std::string(kEntry) + "/mlacp"}};
}

// Native nodes that have no counterpart and are passed over: leaves of nodes that are only stepped through, and what no
// walker is told of.
Paths not_mapped() {
  const std::string entry = kEntry;
  return {"/global-interface-configuration/link-status",
          entry + "/interface-virtual",
          entry + "/description",
          entry + "/dampening/half-life",
          entry + "/mtus/mtu/mtu",
          entry + "/encapsulation/encapsulation",
          entry + "/bundle/lacp-delay",
          entry + "/bundle/minimum-active/links",
          entry + "/bundle/minimum-active/bandwidth/value",
          entry + "/bundle/minimum-active/bandwidth/unit",
          entry + "/bundle/maximum-active/links/number",
          entry + "/bundle/bundle-load-balancing/hash-function/hash-type",
          entry + "/lacp/talvo-extensions/enable",
          entry + "/lacp/timeout/expected",
          entry + "/bundle-member/id/bundle-id",
          entry + "/bundle-member/id/port-activity",
          entry + "/bfd/address-family/ipv4/echo/interval",
          entry + "/bfd/address-family/ipv4/timers/start",
          entry + "/bfd/address-family/ipv6/ipv6-timers/start",
          entry + "/mlacp/switchover-type",
          entry + "/mlacp/maximize/links"};
}

// The tags that a walker compares a child with: keys and known children.
Paths known_tags(const Tree& tree, const lysc_node* top, const lysc_node* node) {
  Paths tags;
  Paths namespaces = {node->module->ns};
  for (const lysc_node* child : tables::children_of(node)) namespaces.insert(child->module->ns);
  for (const std::string& ns : namespaces) {
    Platform platform;
    platform.set_operation(YFW_REQUEST_READ_STATE);
    Request request(tables::tree_to(top, node, {support::leaf("unheard-of").in(ns)}));
    EXPECT_EQ(tree.walker(platform.ctx(), request.root(), platform.output()), YFW_OK) << tables::path_of(node);
    for (const support::Call& call : platform.calls()) {
      const std::string start = "\"unheard-of\" \"";
      if (call.function != "yfw_map_do_these_match" || call.arguments.rfind(start, 0) != 0) continue;
      tags.insert(call.arguments.substr(start.size(), call.arguments.size() - start.size() - 1));
    }
  }
  return tags;
}

// What is found when a tree's tables are laid beside its schema.
struct Found {
  Paths known;      // nodes of the schema that are in a table
  Paths leaves;     // the leaves among them
  Paths passed;     // nodes of the schema that are in none, without what is below them
  Paths imaginary;  // rows that are no node of the schema
};

void compare(const Tree& tree, const lysc_node* top, const lysc_node* node, Found& found) {
  found.known.insert(tables::path_of(node));
  Paths tags = known_tags(tree, top, node);
  for (const lysc_node* child : tables::children_of(node)) {
    const std::string path = tables::path_of(child);
    if (tags.erase(child->name) == 0) {
      found.passed.insert(path);
    } else if (tables::is_leaf(child)) {
      found.known.insert(path);
      found.leaves.insert(path);
    } else {
      compare(tree, top, child, found);
    }
  }
  for (const std::string& tag : tags) found.imaginary.insert(tables::path_of(node) + "/" + tag);
}

Found compare(const Schemas& schemas, const std::vector<Tree>& trees) {
  Found found;
  for (const Tree& tree : trees) {
    const lysc_node* const top = schemas.find(tree.ns, tree.top);
    EXPECT_NE(top, nullptr) << tree.top << " is no node of its schema";
    if (top != nullptr) compare(tree, top, top, found);
  }
  return found;
}

Tree openconfig() {
  return {registrations()[0].openconfig_walker, support::kOpenconfigLacp, "/lacp"};
}

std::string joined(const Paths& paths) {
  std::string text;
  for (const std::string& path : paths) text += "\n  " + path;
  return text;
}

class Tables : public testing::Test {
 protected:
  const Schemas schemas;
};

TEST_F(Tables, Openconfig_HoldsEveryNodeOfTheSchemaAndNoOther) {
  const Found found = compare(schemas, {openconfig()});
  EXPECT_TRUE(found.passed.empty()) << "in no table:" << joined(found.passed);
  EXPECT_TRUE(found.imaginary.empty()) << "no node of the schema:" << joined(found.imaginary);
  EXPECT_GT(found.leaves.size(), 30U);
}

TEST_F(Tables, NativeModels_HoldEveryNodeNotDeclaredUnmapped) {
  Found found = compare(schemas, registered_trees());
  // What no registration leads to is found as passed over, if it is not a root.
  for (const Tree& tree : unreached_trees()) {
    const bool is_root = tree.top.find('/', 1) == std::string::npos;
    EXPECT_EQ(found.passed.erase(tree.top), is_root ? 0U : 1U) << tree.top << " is reached";
  }
  const Found unreached = compare(schemas, unreached_trees());
  found.passed.insert(unreached.passed.begin(), unreached.passed.end());
  EXPECT_THAT(found.passed, UnorderedElementsAreArray(not_mapped()));
}

TEST_F(Tables, NativeModels_HoldNodesOfTheSchemasOnly) {
  for (const std::vector<Tree>& trees : {registered_trees(), unreached_trees()}) {
    const Found found = compare(schemas, trees);
    EXPECT_TRUE(found.imaginary.empty()) << "no node of the schema:" << joined(found.imaginary);
  }
}

TEST_F(Tables, SchemaRoots_EachHaveATree) {
  Paths roots;
  for (const char* ns : {support::kIfmgrCfg, support::kBundlemgrCfg, support::kBundlemgrOper}) {
    for (const lysc_node* root : schemas.roots(ns)) roots.insert(tables::path_of(root));
  }
  Paths walked;
  for (const std::vector<Tree>& trees : {registered_trees(), unreached_trees()}) {
    for (const Tree& tree : trees) {
      if (tree.top.find('/', 1) == std::string::npos) walked.insert(tree.top);
    }
  }
  EXPECT_EQ(roots, walked);
}

TEST_F(Tables, NotMappedNodes_AreNodesOfTheSchemas) {
  for (const std::string& path : not_mapped()) EXPECT_NE(schemas.find(support::kIfmgrCfg, path), nullptr) << path;
}

// ---- Leaves

std::vector<oclacp_leaf> rows_of(oclacp_leaf_table table) {
  return {table.leaves, table.leaves + table.count};
}

std::vector<oclacp_leaf> native_rows() {
  std::vector<oclacp_leaf> rows = rows_of(oclacp_native_configuration_leaves());
  const std::vector<oclacp_leaf> more = rows_of(oclacp_native_operational_leaves());
  rows.insert(rows.end(), more.begin(), more.end());
  return rows;
}

std::vector<std::string> targets_of(const oclacp_leaf& row) {
  std::vector<std::string> targets;
  for (unsigned i = 0; i < row.target_count; ++i) targets.emplace_back(row.targets[i].path);
  return targets;
}

// The module of a native path's root.
const char* native_model_of(const std::string& path) {
  if (path.rfind("/lacp-", 0) == 0) return support::kBundlemgrOper;
  return path.rfind("/interface-configurations/", 0) == 0 ? support::kIfmgrCfg : support::kBundlemgrCfg;
}

TEST_F(Tables, KnownLeaves_AreEachListedOnce) {
  Paths native;
  for (const oclacp_leaf& row : native_rows()) EXPECT_TRUE(native.insert(row.node).second) << row.node << " twice";
  const Found reached = compare(schemas, registered_trees());
  const Found unreached = compare(schemas, unreached_trees());
  Paths expected = reached.leaves;
  expected.insert(unreached.leaves.begin(), unreached.leaves.end());
  // Keys of the interface configuration that are keys and no more.
  for (const char* key : {"/active", "/mtus/mtu/owner"}) {
    EXPECT_EQ(expected.erase(std::string(kEntry) + key), 1U) << key;
  }
  EXPECT_EQ(native, expected);

  Paths openconfig_leaves;
  for (const oclacp_leaf& row : rows_of(oclacp_openconfig_leaves())) {
    EXPECT_TRUE(openconfig_leaves.insert(row.node).second) << row.node << " twice";
  }
  EXPECT_EQ(openconfig_leaves, compare(schemas, {openconfig()}).leaves);
}

// That a row's leaf and targets are leaves of the schemas, of the namespaces that are told. `ns` and `target_ns` are
// those of the roots of their trees.
void expect_leaves(const Schemas& schemas, const oclacp_leaf& row, const char* ns, const char* target_ns) {
  const lysc_node* const leaf = schemas.find(ns, row.node);
  ASSERT_NE(leaf, nullptr) << row.node << " is no node";
  EXPECT_STREQ(row.ns, leaf->module->ns) << row.node;
  for (unsigned i = 0; i < row.target_count; ++i) {
    const oclacp_leaf_target& target = row.targets[i];
    const char* const root = target_ns == nullptr ? native_model_of(target.path) : target_ns;
    const lysc_node* const node = schemas.find(root, target.path);
    ASSERT_NE(node, nullptr) << target.path << ", the target of " << row.node << ", is no node";
    EXPECT_TRUE(tables::is_leaf(node)) << target.path;
    EXPECT_STREQ(target.ns, node->module->ns) << target.path;
  }
}

TEST_F(Tables, Leaves_HaveTargetsInTheOtherModel) {
  for (const oclacp_leaf& row : rows_of(oclacp_openconfig_leaves())) {
    expect_leaves(schemas, row, support::kOpenconfigLacp, nullptr);
  }
  for (const oclacp_leaf& row : native_rows()) {
    expect_leaves(schemas, row, native_model_of(row.node), support::kOpenconfigLacp);
  }
}

// A name that goes with some kinds of work and not with others.
void expect_named(const oclacp_leaf& row, const char* name, bool is_wanted) {
  EXPECT_EQ(name != nullptr, is_wanted) << row.node;
}

TEST_F(Tables, Leaves_NameConverterAndTargetsAsTheirWorkNeeds) {
  std::vector<oclacp_leaf> rows = rows_of(oclacp_openconfig_leaves());
  for (const oclacp_leaf& row : rows) expect_named(row, row.walker, true);
  for (const oclacp_leaf& row : native_rows()) {
    expect_named(row, row.walker, false);
    rows.push_back(row);
  }
  for (const oclacp_leaf& row : rows) {
    expect_named(row, row.converter, row.work == OCLACP_LEAF_CONVERTED);
    const bool serves_nothing = row.work == OCLACP_LEAF_REFUSED || row.work == OCLACP_LEAF_SILENT;
    // The name in an entry's configuration reaches the native side through the list key.
    const bool is_ignored = row.converter != nullptr && std::string(row.converter) == "oc2qd_config_name_ignore";
    EXPECT_EQ(row.target_count == 0, serves_nothing || is_ignored) << row.node;
  }
}

// What a leaf's handler adds, for all values that the leaf takes: the paths, in order, each once.
std::vector<std::string> added_by(const Schemas& schemas, const oclacp_leaf& row, const char* model,
                                  const char* targets) {
  std::vector<std::string> paths;
  const lysc_node* const leaf = schemas.find(model, row.node);
  for (const std::string& value : tables::values_of(leaf)) {
    Platform platform;
    platform.set_operation(YFW_REQUEST_READ_STATE);
    platform.lacp_interfaces = {"Bundle-Ether1"};
    platform.node_info = {{std::string(kEntry) + "/interface-name", "Bundle-Ether1"},
                          {"/lacp-bundles/bundles/bundle/bundle-interface", "Bundle-Ether1"}};
    Request request(support::leaf(leaf->name, value));
    row.run(platform.ctx(), request.root(), platform.output());
    for (const support::Addition& addition : platform.additions()) {
      const char* const root = targets == nullptr ? native_model_of(addition.path) : targets;
      const lysc_node* const node = schemas.find(root, addition.path);
      EXPECT_EQ(addition.ns, node == nullptr ? "that of no node" : node->module->ns) << addition.path;
      if (std::find(paths.begin(), paths.end(), addition.path) == paths.end()) paths.push_back(addition.path);
    }
  }
  return paths;
}

TEST_F(Tables, NativeLeaves_NameExactlyWhatTheirHandlersReport) {
  for (const oclacp_leaf& row : native_rows()) {
    EXPECT_EQ(added_by(schemas, row, native_model_of(row.node), support::kOpenconfigLacp), targets_of(row)) << row.node;
  }
}

TEST_F(Tables, OpenconfigLeaves_NameExactlyWhatTheirHandlersRequest) {
  for (const oclacp_leaf& row : rows_of(oclacp_openconfig_leaves())) {
    std::vector<std::string> expected = targets_of(row);
    // With the name of an interface, its class is asked for.
    if (row.work == OCLACP_LEAF_HANDWRITTEN) expected.push_back(std::string(kEntry) + "/active");
    EXPECT_EQ(added_by(schemas, row, support::kOpenconfigLacp, nullptr), expected) << row.node;
  }
}

// Whether the walk of a tree leads to a leaf's handler.
bool is_reached(const Schemas& schemas, const Tree& tree, const oclacp_leaf& row) {
  const lysc_node* const leaf = schemas.find(tree.ns, row.node);
  const lysc_node* const top = schemas.find(tree.ns, tree.top);
  std::vector<Node> children;
  if (!lysc_is_key(leaf)) children = {support::leaf(leaf->name, tables::values_of(leaf)[0]).in(leaf->module->ns)};
  Platform platform;
  platform.set_operation(YFW_REQUEST_READ_STATE);
  Request request(tables::tree_to(top, leaf->parent, children));
  tree.walker(platform.ctx(), request.root(), platform.output());
  return platform.traced(row.handler, "Start") == 1;
}

TEST_F(Tables, NativeLeaves_NameTheHandlerThatTheWalkersCall) {
  std::vector<Tree> trees = registered_trees();
  const std::vector<Tree> unreached = unreached_trees();
  trees.insert(trees.end(), unreached.begin(), unreached.end());
  for (const oclacp_leaf& row : native_rows()) {
    const auto tree = std::find_if(trees.begin(), trees.end(), [&](const Tree& one) {
      return std::string(row.node).rfind(one.top + "/", 0) == 0 && one.ns == native_model_of(row.node);
    });
    ASSERT_NE(tree, trees.end()) << row.node;
    EXPECT_TRUE(is_reached(schemas, *tree, row)) << row.node << " does not reach " << row.handler;
  }
}

}  // namespace
