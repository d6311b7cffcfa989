#include "host/trees/path_request.h"

#include <algorithm>

#include "host/trees/node.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

RequestTree parse_path(const std::string& path) {
  return parse_paths(schemas().request(), {path});
}

std::string refused(const std::string& path) {
  return refusal_of([&] { parse_path(path); });
}

// The path of the node that a chain of only children leads to.
std::string last_of(const std::string& path) {
  RequestTree tree = parse_path(path);
  const yfw_datatree* node = tree.top();
  while (node->child_count != 0) {
    node = &node->children[node->child_count - 1];
  }
  return node_path(node);
}

TEST(RequestPath, Path_NamesOneNode) {
  EXPECT_EQ(last_of("/lacp"), "/openconfig-lacp:lacp");
  EXPECT_EQ(last_of("/lacp/"), "/openconfig-lacp:lacp");
  EXPECT_EQ(last_of("/openconfig-lacp:lacp/config/system-priority"), "/openconfig-lacp:lacp/config/system-priority");
  EXPECT_EQ(last_of("/lacp/interfaces/interface/config/openconfig-lacp:interval"),
            "/openconfig-lacp:lacp/interfaces/interface/config/interval");
}

TEST(RequestPath, Predicate_GivesTheChildItsValue) {
  for (const char* path : {"/lacp/interfaces/interface[name='Bundle-Ether1']/config",
                           R"(/lacp/interfaces/interface[ name = "Bundle-Ether1" ]/config)"}) {
    RequestTree tree = parse_path(path);
    const yfw_datatree* name = find(tree, {"interfaces", "interface", "name"});
    ASSERT_NE(name, nullptr);
    EXPECT_STREQ(name->value, "Bundle-Ether1");
    EXPECT_NE(find(tree, {"interfaces", "interface", "config"}), nullptr);
  }
}

TEST(RequestPath, KeyWithSlashesAndBrackets_IsTakenWhole) {
  RequestTree tree = parse_path("/lacp/interfaces/interface[name='GigabitEthernet0/0/0/1[x]']");
  EXPECT_STREQ(find(tree, {"interfaces", "interface", "name"})->value, "GigabitEthernet0/0/0/1[x]");
}

TEST(RequestPath, PredicateOfALeaf_GivesItsValue) {
  RequestTree tree = parse_path("/lacp/interfaces/interface/config/interval[.='FAST']");
  EXPECT_STREQ(find(tree, {"interfaces", "interface", "config", "interval"})->value, "FAST");
  RequestTree without = parse_path("/lacp/interfaces/interface/config/interval");
  EXPECT_EQ(find(without, {"interfaces", "interface", "config", "interval"})->value, nullptr);
}

TEST(RequestPath, PathThatNamesNoNode_IsRefused) {
  EXPECT_EQ(refused(""), "the path '': names no node");
  EXPECT_EQ(refused("//"), "the path '//': names no node");
  EXPECT_EQ(refused("colour"), "/colour: no such node");
  EXPECT_EQ(refused("/lacp//config"), "the path '/lacp//config': the name of a node is missing after '/lacp/'");
  EXPECT_EQ(refused("/lacp/colour"), "/openconfig-lacp:lacp/colour: no such node");
  EXPECT_EQ(refused("/lacp/other:config"), "/openconfig-lacp:lacp/other:config: unknown module 'other'");
  EXPECT_EQ(refused("/lacp/config/system-priority/more"),
            "/openconfig-lacp:lacp/config/system-priority: a leaf has nothing below it");
}

TEST(RequestPath, InvalidPredicate_IsRefused) {
  const std::string list = "/lacp/interfaces/interface";
  EXPECT_EQ(refused(list + "[name"), "the path '" + list + "[name': '=' is missing after '" + list + "[name'");
  EXPECT_EQ(refused(list + "[name='x"), "the path '" + list + "[name='x': a text in quotes has no end");
  EXPECT_EQ(refused(list + "[name='x'"),
            "the path '" + list + "[name='x'': ']' is missing after '" + list + "[name='x''");
  EXPECT_EQ(refused(list + "[name='']"), "the path '" + list + "[name='']': 'name' is given no value");
  EXPECT_EQ(refused(list + "[name='x']y"),
            "the path '" + list + "[name='x']y': '/' is missing after '" + list + "[name='x']'");
  EXPECT_EQ(refused(list + "[colour='x']"), "/openconfig-lacp:lacp/interfaces/interface/colour: no such node");
  EXPECT_EQ(refused("/lacp[.='x']"), "/openconfig-lacp:lacp: takes no value");
  EXPECT_EQ(refused(list + "/config/interval[.='MEDIUM']"),
            "/openconfig-lacp:lacp/interfaces/interface/config/interval: 'MEDIUM' is none of FAST, SLOW");
  EXPECT_THAT(refused(list + "[name='" + std::string(300, 'x') + "']"),
              testing::HasSubstr("an interface name has at most 63 bytes"));
}

TEST(RequestPath, EndAtAPredicate_AsksForTheLeafWhateverItsValue) {
  RequestTree tree = parse_path("/lacp/interfaces/interface[name='x']/name");
  const yfw_datatree* name = find(tree, {"interfaces", "interface", "name"});
  EXPECT_EQ(name->value, nullptr);
  EXPECT_EQ(name->flags, 0U);
  EXPECT_STREQ(requested_value(name), "x");
  EXPECT_STREQ(key_value(find(tree, {"interfaces", "interface"})), "x");
}

// ---- The same paths as deletes -------------------------------------------------------------------------------------

RequestTree parse_delete(const std::string& path) {
  return parse_delete_paths(schemas().request(), {path}, AbsentNode::kIsRefused).tree;
}

// The paths of the nodes that carry a delete.
std::vector<std::string> deleted_by(const std::string& path) {
  RequestTree tree = parse_delete(path);
  std::vector<std::string> deleted;
  for (const yfw_datatree& node : tree.nodes()) {
    if (node.operation == YFW_OPERATION_DELETE) {
      deleted.push_back(node_path(&node));
    }
  }
  return deleted;
}

TEST(DeletePath, Path_DeletesItsLastNode) {
  for (const char* path :
       {"/lacp", "/lacp/config", "/lacp/config/system-priority", "/lacp/interfaces",
        "/lacp/interfaces/interface[name='Bundle-Ether1']", "/lacp/interfaces/interface[name='Bundle-Ether1']/config",
        "/lacp/interfaces/interface[name='Bundle-Ether1']/name",
        "/lacp/interfaces/interface[name='Bundle-Ether1']/config/interval"}) {
    const std::string full = "/openconfig-lacp:" + std::string(path).substr(1);
    EXPECT_THAT(deleted_by(path), testing::ElementsAre(full));
    EXPECT_THAT(deleted_by(full), testing::ElementsAre(full));
    EXPECT_THAT(deleted_by(full + "/"), testing::ElementsAre(full));
  }
}

TEST(DeletePath, DeletedLeaf_HasNoValue) {
  RequestTree tree = parse_delete("/lacp/config/system-priority");
  EXPECT_EQ(find(tree, {"config", "system-priority"})->flags & YFW_FLAG_VALUE, 0U);
}

TEST(DeletePath, KeyWithSlashesColonsAndQuotes_IsTakenWhole) {
  EXPECT_THAT(deleted_by("/lacp/interfaces/interface[name='Gig0/0/0/0:1']/config"),
              testing::ElementsAre("/openconfig-lacp:lacp/interfaces/interface[name='Gig0/0/0/0:1']/config"));
  EXPECT_THAT(deleted_by(R"(/lacp/interfaces/interface[ name = "it's" ])"),
              testing::ElementsAre(R"(/openconfig-lacp:lacp/interfaces/interface[name="it's"])"));
}

TEST(DeletePath, ValueOfANodeThatIsNotAKey_IsRefused) {
  for (const char* path : {"/lacp/config/system-priority[.='5']", "/lacp/config[system-priority='5']",
                           "/lacp/interfaces/interface[name='a']/config[interval='FAST']/lacp-mode"}) {
    EXPECT_THAT(refusal_of([&] { parse_delete(path); }),
                testing::EndsWith(": only list keys may be given values in a delete"))
        << path;
  }
}

TEST(DeletePath, InvalidPath_IsRefusedAsInARead) {
  for (const char* path :
       {"", "/", "//", "//lacp", "/lacp//interval", "/lacp/*", "/lacp/colour", "/other:lacp",
        "/lacp/interfaces/interface[name='a'", "/lacp/interfaces/interface[1]/config", "/lacp or /lacp"}) {
    const std::string reason = refused(path);
    EXPECT_NE(reason, "accepted") << path;
    EXPECT_EQ(refusal_of([&] { parse_delete(path); }), reason);
  }
}

TEST(DeletePath, ThatToleratesAbsence_Removes) {
  ParsedRequest request = parse_delete_paths(schemas().request(), {"/lacp/config"}, AbsentNode::kIsFine);
  EXPECT_EQ(find(request.tree, {"config"})->operation, static_cast<uint32_t>(YFW_OPERATION_REMOVE));
}

// ---- Several paths, and the forms of one ---------------------------------------------------------------------------

// The paths of the nodes that paths name with all that is in them, or as a leaf.
std::vector<std::string> named_by(const std::vector<std::string>& paths) {
  RequestTree tree = parse_paths(schemas().request(), paths);
  std::vector<std::string> named;
  for (const yfw_datatree& node : tree.nodes()) {
    const bool holds_only_values = std::all_of(node.children, node.children + node.child_count,
                                               [](const yfw_datatree& child) { return child.value != nullptr; });
    if (holds_only_values && node.value == nullptr) {
      named.push_back(node_path(&node));
    }
  }
  return named;
}

const std::string kList = "/lacp/interfaces/interface";
const std::string kFullList = "/openconfig-lacp:lacp/interfaces/interface";

TEST(Paths, InEveryForm_NameTheSameNode) {
  for (const std::string& path : std::initializer_list<std::string>{
           kList + "[name='x']/config", kList + "[name=\"x\"]/config", kList + "[name=x]/config",
           kList.substr(1) + "[name=x]/config/", "/oc-lacp:lacp/oc-lacp:interfaces/interface[oc-lacp:name='x']/config",
           "openconfig-lacp:lacp/interfaces/openconfig-lacp:interface[openconfig-lacp:name=x]/config"}) {
    EXPECT_THAT(named_by({path}), testing::ElementsAre(kFullList + "[name='x']/config")) << path;
  }
}

TEST(Paths, KeyLeftOutOrAsterisk_StandsForAllEntries) {
  for (const std::string& path : {kList + "/config", kList + "[name=*]/config"}) {
    EXPECT_THAT(named_by({path}), testing::ElementsAre(kFullList + "/config")) << path;
  }
}

TEST(Paths, OfSeveralNodes_AreOneRequest) {
  EXPECT_THAT(
      named_by({"/lacp/config", kList + "[name=x]/config/interval", kList + "[name=x]/state", kList + "[name=y]"}),
      testing::UnorderedElementsAre("/openconfig-lacp:lacp/config", kFullList + "[name='x']/config/interval",
                                    kFullList + "[name='x']/state", kFullList + "[name='y']"));
}

TEST(Paths, InsideOfAnother_MakeNoDifferenceInEitherOrder) {
  const std::string inner = kList + "[name=x]/config/interval";
  const std::string outer = kList + "[name=x]";
  for (const auto& paths : {std::vector{inner, outer}, {outer, inner}, {outer, outer}, {outer + "/name", outer}}) {
    EXPECT_THAT(named_by(paths), testing::ElementsAre(kFullList + "[name='x']"));
  }
}

TEST(Paths, UnknownInsideOfAnother_AreRefusedInEitherOrder) {
  for (const auto& paths : {std::vector<std::string>{"/lacp", "/lacp/colour"}, {"/lacp/colour", "/lacp"}}) {
    EXPECT_EQ(refusal_of([&] { parse_paths(schemas().request(), paths); }),
              "/openconfig-lacp:lacp/colour: no such node");
  }
}

}  // namespace
}  // namespace oclacp::host
